#include "ide/memory/memory_vbe.h"

#include "base/encoding.h"
#include "base/text.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_command_bars.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_collection.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_window.h"
#include "ide/memory/send_keys.h"
#include "ide/memory/memory_references.h"
#include "ide/memory/vbp_file.h"

namespace tavrin::ide::memory {
namespace {

std::function<std::string()> FixedCaption(std::string caption) {
  return [caption = std::move(caption)] { return caption; };
}

class MemoryWindows : public ListCollection<IWindow, IWindows> {
 public:
  MemoryWindows(std::shared_ptr<MemoryVbe> vbe, std::vector<std::shared_ptr<IWindow>> items)
      : ListCollection(std::move(items), [](IWindow& window) { return window.Caption(); }),
        vbe_(std::move(vbe)) {}

  std::shared_ptr<IWindow> CreateToolWindow(std::shared_ptr<IAddIn> add_in,
                                            std::string_view prog_id, std::string_view caption,
                                            std::string_view guid_position,
                                            std::shared_ptr<IUserDocument>& doc_object) override {
    if (!add_in) throw Error(5, "Invalid procedure call or argument");
    return vbe_->CreateToolWindow(prog_id, caption, guid_position, doc_object);
  }

 private:
  std::shared_ptr<MemoryVbe> vbe_;
};

}  // namespace

MemoryVbe::MemoryVbe(Token) {}

std::shared_ptr<MemoryVbe> MemoryVbe::Create() {
  auto vbe = std::make_shared<MemoryVbe>(Token{});
  vbe->Init();
  return vbe;
}

void MemoryVbe::Init() {
  const std::weak_ptr<MemoryVbe> self = weak_from_this();
  main_window_ = std::make_shared<MemoryWindow>(self, WindowType::kMainWindow,
                                                FixedCaption("Microsoft Visual Basic [design]"));
  project_window_ = std::make_shared<MemoryWindow>(self, WindowType::kProjectWindow,
                                                   FixedCaption("Project"));
  properties_window_ = std::make_shared<MemoryWindow>(self, WindowType::kPropertyWindow,
                                                      FixedCaption("Properties"));
  immediate_window_ = std::make_shared<MemoryWindow>(self, WindowType::kImmediate,
                                                     FixedCaption("Immediate"));
  events_ = std::make_shared<MemoryEvents>();
  command_bar_host_ = std::make_shared<CommandBarHost>();
  command_bar_host_->click = [weak_events = std::weak_ptr<MemoryEvents>(events_)](
                                 const std::shared_ptr<ICommandBarControl>& control) {
    if (auto events = weak_events.lock()) events->RaiseClick(control);
  };
  command_bars_ = std::make_shared<MemoryCommandBars>(command_bar_host_);
  command_bars_->AddBuiltInBars();
  add_ins_ = std::make_shared<MemoryAddins>();
}

std::shared_ptr<ICollection<IProject>> MemoryVbe::VBProjects() {
  std::vector<std::shared_ptr<IProject>> items(projects_.begin(), projects_.end());
  return std::make_shared<ListCollection<IProject>>(
      std::move(items), [](IProject& project) { return project.Name(); });
}

std::shared_ptr<IProject> MemoryVbe::ActiveVBProject() {
  if (active_project_) return active_project_;
  return projects_.empty() ? nullptr : projects_.front();
}

std::shared_ptr<ICodePane> MemoryVbe::ActiveCodePane() { return active_code_pane_; }

std::shared_ptr<IWindows> MemoryVbe::Windows() {
  std::vector<std::shared_ptr<IWindow>> items{main_window_, project_window_, properties_window_,
                                              immediate_window_};
  for (const auto& project : projects_) {
    for (const auto& component : project->Components()) {
      items.push_back(component->CodeWindow());
      if (auto designer = component->DesignerWindow()) items.push_back(designer);
    }
  }
  for (const auto& [guid, window] : ToolWindows()) items.push_back(window);
  return std::make_shared<MemoryWindows>(shared_from_this(), std::move(items));
}

std::shared_ptr<ICommandBars> MemoryVbe::CommandBars() { return command_bars_; }
std::shared_ptr<IEvents> MemoryVbe::Events() { return events_; }
std::shared_ptr<IAddins> MemoryVbe::Addins() { return add_ins_; }

void MemoryVbe::ClipboardSetData(const Picture& picture) {
  command_bar_host_->clipboard = picture;
}

std::shared_ptr<MemoryAddIn> MemoryVbe::RegisterAddIn(std::string prog_id,
                                                      std::string description, bool connected) {
  return add_ins_->Register(std::move(prog_id), std::move(description), connected);
}

void MemoryVbe::SetCommandBarsHavePicture(bool has_picture) {
  command_bar_host_->has_picture_property = has_picture;
}

void MemoryVbe::RegisterDocumentClass(std::string prog_id, DocumentFactory factory) {
  document_classes_[std::move(prog_id)] = std::move(factory);
}

std::shared_ptr<IWindow> MemoryVbe::CreateToolWindow(std::string_view prog_id,
                                                     std::string_view caption,
                                                     std::string_view guid_position,
                                                     std::shared_ptr<IUserDocument>& doc_object) {
  const auto found = document_classes_.find(prog_id);
  if (found == document_classes_.end())
    throw Error(429, "ActiveX component can't create object: " + std::string(prog_id));
  doc_object = found->second();
  auto window = std::make_shared<MemoryWindow>(weak_from_this(), WindowType::kToolWindow,
                                               FixedCaption(std::string(caption)));
  window->SetVisible(false);
  std::erase_if(tool_windows_, [](const auto& each) { return each.second.expired(); });
  tool_windows_.emplace_back(std::string(guid_position), window);
  return window;
}

std::vector<std::pair<std::string, std::shared_ptr<IWindow>>> MemoryVbe::ToolWindows() const {
  std::vector<std::pair<std::string, std::shared_ptr<IWindow>>> live;
  for (const auto& [guid, weak_window] : tool_windows_)
    if (auto window = weak_window.lock()) live.emplace_back(guid, window);
  return live;
}

void MemoryVbe::SendKeys(std::string_view keys) {
  const auto strokes = ParseKeys(keys);  // a bad sequence fails before anything is typed
  if (!active_window_ || active_window_->Type() != WindowType::kCodeWindow) return;
  const auto window = std::dynamic_pointer_cast<MemoryWindow>(active_window_);
  const auto pane = window ? window->Pane() : nullptr;
  if (pane) TypeKeys(*pane, strokes, tab_width_);
}

std::shared_ptr<MemoryProject> MemoryVbe::AddProject(std::string_view name,
                                                     std::string_view file_name) {
  auto project = std::make_shared<MemoryProject>(weak_from_this(), std::string(name),
                                                 std::string(file_name), "");
  projects_.push_back(project);
  events_->RaiseProjectAdded(project);
  return project;
}

void MemoryVbe::RemoveProject(const std::shared_ptr<IProject>& project) {
  const auto before = projects_.size();
  std::erase_if(projects_, [&](const auto& each) { return each.get() == project.get(); });
  if (projects_.size() == before) return;
  if (active_project_.get() == project.get()) active_project_ = nullptr;
  if (active_code_pane_) {
    auto component = active_code_pane_->CodeModule()->Parent();
    if (component && component->Project().get() == project.get()) {
      active_code_pane_ = nullptr;
      active_window_ = nullptr;
    }
  }
  events_->RaiseProjectRemoved(project);
}

Result<std::shared_ptr<MemoryProject>> MemoryVbe::OpenProject(platform::FileSystem& file_system,
                                                              std::string_view vbp_path) {
  Result<std::string> bytes = file_system.ReadFile(vbp_path);
  if (!bytes) return tavrin::Error{bytes.error()};
  if (bytes->find('\0') != std::string::npos) {
    return tavrin::Error{std::string(vbp_path) +
                         ": not a Visual Basic project file (it holds binary data)"};
  }
  const VbpFile vbp = ParseVbp(DecodeSource(*bytes).text);
  auto project = std::make_shared<MemoryProject>(
      weak_from_this(), vbp.name.empty() ? "Project1" : vbp.name, std::string(vbp_path),
      std::move(*bytes));
  for (const VbpReference& reference : vbp.references)
    project->AddReference(MemoryReference::FromLine(reference));
  for (const std::string& member : vbp.members) {
    const std::string path = ResolveMemberPath(vbp_path, member);
    Result<std::string> source = file_system.ReadFile(path);
    if (!source) return tavrin::Error{source.error()};
    auto component = project->AddSourceFile(path, *source);
    if (!component) return tavrin::Error{component.error()};
  }
  projects_.push_back(project);
  events_->RaiseProjectAdded(project);
  return project;
}

Result<std::shared_ptr<MemoryComponent>> MemoryVbe::OpenFile(platform::FileSystem& file_system,
                                                             std::string_view path) {
  Result<std::string> bytes = file_system.ReadFile(path);
  if (!bytes) return tavrin::Error{bytes.error()};
  auto project = std::make_shared<MemoryProject>(weak_from_this(), "Project1", "", "");
  auto component = project->AddSourceFile(path, *bytes);
  if (!component) return tavrin::Error{component.error()};
  projects_.push_back(project);
  events_->RaiseProjectAdded(project);
  return component;
}

void MemoryVbe::ActivateWindow(std::shared_ptr<IWindow> window) {
  active_window_ = std::move(window);
  const auto memory_window = std::dynamic_pointer_cast<MemoryWindow>(active_window_);
  if (!memory_window) return;
  if (auto pane = memory_window->Pane()) {
    active_code_pane_ = pane;
    auto component = std::dynamic_pointer_cast<MemoryComponent>(pane->CodeModule()->Parent());
    if (component) active_project_ = std::dynamic_pointer_cast<MemoryProject>(component->Project());
  }
}

std::shared_ptr<IWindow> MemoryVbe::MainWindow() const { return main_window_; }
std::shared_ptr<IWindow> MemoryVbe::ImmediateWindow() const { return immediate_window_; }
std::shared_ptr<IWindow> MemoryVbe::ProjectWindow() const { return project_window_; }
std::shared_ptr<IWindow> MemoryVbe::PropertiesWindow() const { return properties_window_; }

platform::FileSystem& MemoryVbe::FileSystemForIo() const {
  if (!file_system_) throw Error(75, "Path/File access error");
  return *file_system_;
}

}  // namespace tavrin::ide::memory
