#include "addin/connect.h"

#include <stdexcept>
#include <utility>

#include "addin/error_report.h"
#include "addin/help_commands.h"
#include "addin/ide_events.h"
#include "addin/ignore_errors.h"
#include "addin/project_watcher.h"
#include "addin/tool_documents.h"
#include "addin/toolbar.h"
#include "resources/string_table.h"

namespace tavrin::addin {
namespace {

class ClickSink : public ide::ICommandBarEventsSink {
 public:
  ClickSink(Connect& connect, const CommandRow& row) : connect_(connect), row_(row) {}
  void Click(std::shared_ptr<ide::ICommandBarControl>, bool& handled, bool&) override {
    connect_.Click(row_);
    handled = true;
  }

 private:
  Connect& connect_;
  const CommandRow& row_;
};

std::shared_ptr<ide::IWindow> FindWindowOfType(ide::IVbe& vbe, ide::WindowType type) {
  const auto windows = vbe.Windows();
  for (int i = 1; i <= windows->Count(); ++i) {
    auto window = windows->Item(i);
    if (window->Type() == type) return window;
  }
  return nullptr;
}

// Removes a "Tavrin Insert" left in the code window's menu by a connection
// that ended without a disconnection.
void RemoveLeftOverEntries(ide::ICommandBar& bar, std::string_view caption) {
  const auto controls = bar.Controls();
  for (int i = controls->Count(); i >= 1; --i) {
    IgnoreErrors([&] {
      const auto control = controls->Item(i);
      if (control->Caption() == caption) control->Delete();
    });
  }
}

// The Code Explorer's context bar, new at each connection (one left by a
// connection that ended without a disconnection is replaced); null when
// the IDE cannot make it, and the explorer then has no context menu.
std::shared_ptr<ide::ICommandBar> CreateExplorerPopUp(ide::IVbe& vbe) {
  if (const auto left_over = FindBar(vbe, kCodeExplorerPopUpName))
    IgnoreErrors([&] { left_over->Delete(); });
  std::shared_ptr<ide::ICommandBar> popup;
  IgnoreErrors([&] {
    popup = vbe.CommandBars()->Add(kCodeExplorerPopUpName, ide::BarPosition::kPopup, false, true);
  });
  return popup;
}

}  // namespace

Connect::Connect(HostServices services) : services_(std::move(services)) {}

Connect::~Connect() { Teardown(); }

void Connect::AddinInstance_OnConnection(std::shared_ptr<ide::IVbe> application,
                                         int connect_mode,
                                         std::shared_ptr<ide::IAddIn> add_in_inst) noexcept {
  Guarded(services_.ui, "AddinInstance_OnConnection", [&] {
    if (!application) throw ide::Error(91, "Object variable not set");
    Teardown();  // connected twice without a disconnection: start afresh
    state_ = std::make_unique<ConnectionState>(services_, application, add_in_inst);
    // The code folders are settings ("Base Folder"), so one load gives the
    // settings, the naming prefixes and the code folders before the testing
    // flag is looked for in the code root.
    state_->LoadSettings();
    state_->ReadTestingFlag();
    IgnoreErrors([&] {
      state_->immediate_window = FindWindowOfType(*application, ide::WindowType::kImmediate);
    });
    state_->current_project_file.clear();
    watcher_loaded_ = true;
    CreateToolbar(*application, services_.settings_store, "");
    application->CommandBars()->Item(kToolbarName);
    AddControls();
    SetUp(connect_mode, add_in_inst);
    CreateWindowOf(kDirectAccessWindow, add_in_inst);
    CreateWindowOf(kCodeExplorerWindow, add_in_inst);
    ShowStartupTip(state_->CommandContext(), [this](bool show_at_startup) {
      SaveSetting(settings::Item::kViewTipOfTheDay, show_at_startup);
    });
  });
}

void Connect::AddinInstance_OnDisconnection(int) noexcept {
  Guarded(services_.ui, "AddinInstance_OnDisconnection", [&] { Teardown(); });
}

void Connect::AddinInstance_OnStartupComplete() noexcept {
  Guarded(services_.ui, "AddinInstance_OnStartupComplete", [] {});
}

void Connect::AddinInstance_OnAddInsUpdate() noexcept {
  Guarded(services_.ui, "AddinInstance_OnAddInsUpdate", [] {});
}

void Connect::TimerTick() noexcept {
  if (!state_ || !watcher_loaded_) return;
  Guarded(services_.ui, "frmTimer", [&] {
    ProjectWatcherTick(*state_, Explorer(), [this] { RefreshControls(); });
  });
}

void Connect::Click(const CommandRow& row) noexcept {
  Guarded(services_.ui, row.handler, [&] {
    if (state_ && row.run) row.run(*this, row.argument);
  });
}

void Connect::ShowSettingsDialog() {
  if (state_) state_->ShowSettingsDialog();
}

void Connect::SaveSetting(settings::Item item, settings::SettingValue value) {
  if (state_) state_->SaveSetting(item, std::move(value));
}

Context& Connect::CommandContext() {
  if (!state_) throw ide::Error(91, "The add-in is not connected");
  return state_->CommandContext();
}

const ToolWindow& Connect::Window(const ToolWindowClass& window_class) const {
  for (std::size_t i = 0; i < windows_.size(); ++i)
    if (kToolWindowClasses[i].class_word == window_class.class_word) return windows_[i];
  throw std::invalid_argument("no tool window " + std::string(window_class.class_word));
}

ToolWindow& Connect::WindowOf(const ToolWindowClass& window_class) {
  return const_cast<ToolWindow&>(std::as_const(*this).Window(window_class));
}

ICodeExplorerDocument* Connect::Explorer() {
  return dynamic_cast<ICodeExplorerDocument*>(WindowOf(kCodeExplorerWindow).document.get());
}

CodeExplorerDocument* Connect::ExplorerDocument() {
  return dynamic_cast<CodeExplorerDocument*>(Explorer());
}

void Connect::ShowToolWindow(std::string_view class_word) {
  if (!state_) return;
  for (const ToolWindowClass& window_class : kToolWindowClasses) {
    if (window_class.class_word != class_word) continue;
    if (!WindowOf(window_class).window) CreateWindowOf(window_class, state_->AddInInst());
    const ToolWindow& tool_window = WindowOf(window_class);
    if (!tool_window.window) return;  // reported
    tool_window.window->SetVisible(true);
    tool_window.window->SetFocus();
    if (auto* tab_order = dynamic_cast<ITabOrderDocument*>(tool_window.document.get()))
      tab_order->RefreshList(0);
  }
}

void Connect::AddControls() {
  ide::IVbe& vbe = state_->VBInst();
  const auto toolbar = vbe.CommandBars()->Item(kToolbarName);
  const auto code_window = FindBar(vbe, kCodeWindowBarName);
  if (code_window)
    RemoveLeftOverEntries(*code_window, resources::LoadResString(kTavrinInsertCaption));
  const auto explorer_popup = CreateExplorerPopUp(vbe);

  // The pop-up each depth adds to; a row that is left out takes its
  // entries with it.
  std::vector<std::shared_ptr<ide::ICommandBarControl>> parents;
  int skip_below = -1;
  for (const CommandRow& row : CommandTable()) {
    if (skip_below >= 0 && row.depth > skip_below) continue;
    skip_below = -1;
    const auto bar = row.bar == CommandBarRoot::kToolbar      ? toolbar
                     : row.bar == CommandBarRoot::kCodeWindow ? code_window
                                                              : explorer_popup;
    if (!bar || (row.testing_only && !state_->testing)) {
      skip_below = row.depth;
      continue;
    }
    parents.resize(static_cast<std::size_t>(row.depth));
    const auto parent = row.depth == 0 ? nullptr : parents.back();
    auto control = AddBarControl(vbe, *bar, row.caption_id, row.type, row.begin_group,
                                 row.PictureId(), parent, row.argument, false, 0);
    BoundControl bound{&row, control, {}};
    if (!row.handler.empty()) {
      bound.click =
          vbe.Events()->CommandBarEvents(control)->Advise(std::make_shared<ClickSink>(*this, row));
    }
    if (row.IsPopup()) parents.push_back(control);
    controls_.push_back(std::move(bound));
  }
}

void Connect::SetUp(int connect_mode, const std::shared_ptr<ide::IAddIn>& add_in_inst) {
  ide::IVbe& vbe = state_->VBInst();
  // The separate tab order add-in brings its own window: with it connected
  // there is no second one, registered but not connected it hosts ours.
  std::shared_ptr<ide::IAddIn> host_add_in = add_in_inst;
  bool create_tab_order = true;
  if (connect_mode == kConnectModeExternal) {
    std::shared_ptr<ide::IAddIn> tab_order_add_in;
    IgnoreErrors([&] { tab_order_add_in = vbe.Addins()->Item(kTabOrderAddInProgId); });
    if (tab_order_add_in) {
      if (tab_order_add_in->Connect())
        create_tab_order = false;
      else
        host_add_in = tab_order_add_in;
    }
  }
  if (create_tab_order) CreateWindowOf(kTabOrderWindow, host_add_in);
  ide_events_ = ConnectIdeEvents(vbe,
                                 EventTargets{&WindowOf(kCodeExplorerWindow),
                                              &WindowOf(kTabOrderWindow),
                                              state_->CommandContext().type_libraries},
                                 services_.ui);
}

void Connect::CreateWindowOf(const ToolWindowClass& window_class,
                             std::shared_ptr<ide::IAddIn> add_in) {
  Guarded(services_.ui, window_class.class_word, [&] {
    ToolWindow& tool_window = WindowOf(window_class);
    tool_window = CreateToolWindow(state_->VBInst(), std::move(add_in), window_class);
    if (window_class.class_word != kCodeExplorerWindow.class_word) return;
    if (auto* explorer = Explorer()) {
      explorer->Initialize(true);
      if (explorer->OnceOpened()) tool_window.window->SetVisible(state_->CodeExplorerVisible());
    }
  });
}

void Connect::RefreshControls() {
  for (const BoundControl& bound : controls_) {
    IgnoreErrors([&] {
      bound.control->SetCaption(resources::LoadResString(bound.row->caption_id));
      bound.control->SetVisible(true);
    });
  }
}

void Connect::Teardown() noexcept {
  if (!state_) return;
  ide::IVbe& vbe = state_->VBInst();
  Guarded(services_.ui, "SaveAndRemoveToolbar",
          [&] { SaveAndRemoveToolbar(vbe, services_.settings_store, ""); });
  // The code window's entry is the one control outside our own bar.
  Guarded(services_.ui, "Tavrin Insert", [&] {
    for (const BoundControl& bound : controls_) {
      if (bound.row->bar == CommandBarRoot::kCodeWindow && bound.row->depth == 0)
        IgnoreErrors([&] { bound.control->Delete(); });
    }
  });
  controls_.clear();
  watcher_loaded_ = false;
  ide_events_.clear();
  // The IDE may keep a window's control, and its document, after we let go.
  for (ToolWindow& tool_window : windows_) {
    if (auto* document = dynamic_cast<IToolDocument*>(tool_window.document.get()))
      IgnoreErrors([&] { document->Attach(nullptr); });
  }
  windows_ = {};
  state_.reset();
}

}  // namespace tavrin::addin
