// The add-in class: receives the IDE's connection and disconnection, owns
// the toolbar, the menus and their click sinks, the IDE event sinks and the
// three tool windows for the time of a connection, and runs every click.
// Nothing it does lets an error reach the IDE.
#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "addin/command_host.h"
#include "addin/command_table.h"
#include "addin/connection_state.h"
#include "addin/tool_windows.h"
#include "ide/command_bars.h"
#include "ide/events.h"

namespace tavrin::addin {

// ext_ConnectMode: loaded by another add-in or program.
inline constexpr int kConnectModeExternal = 2;

class Connect : public CommandHost {
 public:
  explicit Connect(HostServices services);
  ~Connect() override;
  Connect(const Connect&) = delete;
  Connect& operator=(const Connect&) = delete;

  // The IDE's host data (the custom arrays) is never used and not passed.
  void AddinInstance_OnConnection(std::shared_ptr<ide::IVbe> application, int connect_mode,
                                  std::shared_ptr<ide::IAddIn> add_in_inst) noexcept;
  void AddinInstance_OnDisconnection(int remove_mode) noexcept;
  void AddinInstance_OnStartupComplete() noexcept;
  void AddinInstance_OnAddInsUpdate() noexcept;

  // One tick of the project watcher; nothing while not connected.
  void TimerTick() noexcept;
  // True from connection to disconnection: the Windows build runs the
  // watcher's timer while this holds.
  bool WatcherLoaded() const { return watcher_loaded_; }

  // Runs the handler of a row, guarded.
  void Click(const CommandRow& row) noexcept;

  ConnectionState* State() { return state_.get(); }
  // The controls created for the rows, in table order.
  struct BoundControl {
    const CommandRow* row = nullptr;
    std::shared_ptr<ide::ICommandBarControl> control;
    ide::EventConnection click;
  };
  const std::vector<BoundControl>& Controls() const { return controls_; }
  const ToolWindow& Window(const ToolWindowClass& window_class) const;

  // CommandHost.
  Context& CommandContext() override;
  platform::Shell& Shell() override { return services_.shell; }
  void ShowToolWindow(std::string_view class_word) override;
  void ShowSettingsDialog() override;
  void SaveSetting(settings::Item item, settings::SettingValue value) override;
  CodeExplorerDocument* ExplorerDocument() override;

 private:
  void AddControls();
  void SetUp(int connect_mode, const std::shared_ptr<ide::IAddIn>& add_in_inst);
  // Creates the window hosted by `add_in`, reporting a failure; the Code
  // Explorer also builds its tree.
  void CreateWindowOf(const ToolWindowClass& window_class, std::shared_ptr<ide::IAddIn> add_in);
  void RefreshControls();
  void Teardown() noexcept;
  ToolWindow& WindowOf(const ToolWindowClass& window_class);
  ICodeExplorerDocument* Explorer();

  HostServices services_;
  std::unique_ptr<ConnectionState> state_;
  std::vector<BoundControl> controls_;
  bool watcher_loaded_ = false;  // frmTimer
  // In the order of kToolWindowClasses.
  std::array<ToolWindow, std::size(kToolWindowClasses)> windows_;
  std::vector<ide::EventConnection> ide_events_;
};

}  // namespace tavrin::addin
