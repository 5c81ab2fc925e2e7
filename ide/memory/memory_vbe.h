// The root of the in-memory IDE: projects loaded from exported source files
// or built in memory, the IDE's windows, the active pane and window, and
// keystrokes typed into the active code pane. The test host for every
// command and the engine of the command-line tool.
//
// The VBE owns its projects, a project its components, a component its code
// module, pane and windows; children refer to their parents weakly, so keep
// the VBE alive while its objects are used.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "ide/object_model.h"
#include "platform/file_system.h"

namespace tavrin::ide::memory {

class CommandBarHost;
class MemoryAddIn;
class MemoryAddins;
class MemoryCodePane;
class MemoryCommandBars;
class MemoryComponent;
class MemoryEvents;
class MemoryProject;
class MemoryWindow;

class MemoryVbe : public IVbe, public std::enable_shared_from_this<MemoryVbe> {
 public:
  struct Token {};  // construction goes through Create
  explicit MemoryVbe(Token);
  static std::shared_ptr<MemoryVbe> Create();

  std::shared_ptr<ICollection<IProject>> VBProjects() override;
  // The project of the last shown pane, else the first project.
  std::shared_ptr<IProject> ActiveVBProject() override;
  // The active (or last active) code pane.
  std::shared_ptr<ICodePane> ActiveCodePane() override;
  std::shared_ptr<IWindow> ActiveWindow() override { return active_window_; }
  std::shared_ptr<IWindows> Windows() override;
  // Typed into the active code pane; nothing happens when the active window
  // is not a code window.
  void SendKeys(std::string_view keys) override;
  std::shared_ptr<ICommandBars> CommandBars() override;
  std::shared_ptr<IEvents> Events() override;
  std::shared_ptr<IAddins> Addins() override;
  void DoEvents() override {}
  void ClipboardSetData(const Picture& picture) override;

  // The typed views of the same objects, for tests and the tool.
  std::shared_ptr<MemoryCommandBars> MemoryBars() const { return command_bars_; }
  std::shared_ptr<MemoryEvents> MemoryEventHub() const { return events_; }
  std::shared_ptr<MemoryAddIn> RegisterAddIn(std::string prog_id, std::string description,
                                             bool connected);
  // The command bars of the VB6 IDE have no Picture property: faces go
  // through the clipboard there.
  void SetCommandBarsHavePicture(bool has_picture);

  // The classes CreateToolWindow can host: a factory per ProgID.
  using DocumentFactory = std::function<std::shared_ptr<IUserDocument>()>;
  void RegisterDocumentClass(std::string prog_id, DocumentFactory factory);
  std::shared_ptr<IWindow> CreateToolWindow(std::string_view prog_id, std::string_view caption,
                                            std::string_view guid_position,
                                            std::shared_ptr<IUserDocument>& doc_object);
  // The tool windows somebody still holds, by position identifier.
  std::vector<std::pair<std::string, std::shared_ptr<IWindow>>> ToolWindows() const;

  // Adding and removing projects raise the VBProjectsEvents.
  std::shared_ptr<MemoryProject> AddProject(std::string_view name,
                                            std::string_view file_name = {});
  void RemoveProject(const std::shared_ptr<IProject>& project);
  Result<std::shared_ptr<MemoryProject>> OpenProject(platform::FileSystem& file_system,
                                                     std::string_view vbp_path);
  // A new project "Project1" (no project file) holding that one file.
  Result<std::shared_ptr<MemoryComponent>> OpenFile(platform::FileSystem& file_system,
                                                    std::string_view path);

  // nullptr: no window is active. A code window also makes its pane the
  // active code pane.
  void ActivateWindow(std::shared_ptr<IWindow> window);
  std::shared_ptr<IWindow> MainWindow() const;
  std::shared_ptr<IWindow> ImmediateWindow() const;
  std::shared_ptr<IWindow> ProjectWindow() const;
  std::shared_ptr<IWindow> PropertiesWindow() const;

  // Where VBComponents.Import reads and VBComponent.Export writes; not
  // owned, it must outlive its use. Without one both raise ide::Error (75).
  void SetFileSystem(platform::FileSystem* file_system) { file_system_ = file_system; }
  platform::FileSystem& FileSystemForIo() const;

  // The editor's tab width, for {TAB}; 4 unless set.
  void SetTabWidth(int width) { tab_width_ = width > 0 ? width : 4; }

 private:
  void Init();

  std::vector<std::shared_ptr<MemoryProject>> projects_;
  std::shared_ptr<MemoryWindow> main_window_;
  std::shared_ptr<MemoryWindow> project_window_;
  std::shared_ptr<MemoryWindow> properties_window_;
  std::shared_ptr<MemoryWindow> immediate_window_;
  std::shared_ptr<IWindow> active_window_;
  std::shared_ptr<MemoryCodePane> active_code_pane_;
  std::shared_ptr<MemoryProject> active_project_;
  int tab_width_ = 4;
  platform::FileSystem* file_system_ = nullptr;
  std::shared_ptr<CommandBarHost> command_bar_host_;
  std::shared_ptr<MemoryCommandBars> command_bars_;
  std::shared_ptr<MemoryEvents> events_;
  std::shared_ptr<MemoryAddins> add_ins_;
  std::map<std::string, DocumentFactory, std::less<>> document_classes_;
  // Tool windows live while the add-in that created them holds them.
  std::vector<std::pair<std::string, std::weak_ptr<MemoryWindow>>> tool_windows_;
};

}  // namespace tavrin::ide::memory
