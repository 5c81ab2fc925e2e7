#include "ide/memory/memory_vbe.h"

#include "base/encoding.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_collection.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_window.h"
#include "ide/memory/send_keys.h"
#include "ide/memory/vbp_file.h"

namespace tavrin::ide::memory {
namespace {

std::function<std::string()> FixedCaption(std::string caption) {
  return [caption = std::move(caption)] { return caption; };
}

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
  return std::make_shared<ListCollection<IWindow, IWindows>>(
      std::move(items), [](IWindow& window) { return window.Caption(); });
}

void MemoryVbe::SendKeys(std::string_view keys) {
  const auto strokes = ParseKeys(keys);  // a bad sequence fails before anything is typed
  if (!active_window_ || active_window_->Type() != WindowType::kCodeWindow) return;
  const auto window = std::dynamic_pointer_cast<MemoryWindow>(active_window_);
  const auto pane = window ? window->Pane() : nullptr;
  if (pane) TypeKeys(*pane, strokes, tab_width_);
}

std::shared_ptr<MemoryProject> MemoryVbe::AddProject(std::string_view name) {
  auto project = std::make_shared<MemoryProject>(weak_from_this(), std::string(name), "", "");
  projects_.push_back(project);
  return project;
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
  for (const std::string& member : vbp.members) {
    const std::string path = ResolveMemberPath(vbp_path, member);
    Result<std::string> source = file_system.ReadFile(path);
    if (!source) return tavrin::Error{source.error()};
    auto component = project->AddSourceFile(path, *source);
    if (!component) return tavrin::Error{component.error()};
  }
  projects_.push_back(project);
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

}  // namespace tavrin::ide::memory
