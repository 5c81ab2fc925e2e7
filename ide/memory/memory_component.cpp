#include "ide/memory/memory_component.h"

#include "base/text.h"
#include "ide/memory/component_kind.h"
#include "ide/memory/memory_code_module.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_designer.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "ide/memory/memory_window.h"

namespace tavrin::ide::memory {

MemoryComponent::MemoryComponent(Token, std::weak_ptr<MemoryProject> project,
                                 std::weak_ptr<MemoryVbe> vbe, ComponentType type,
                                 std::string name, std::string file_path, SourceFile source)
    : project_(std::move(project)),
      vbe_(std::move(vbe)),
      type_(type),
      name_(std::move(name)),
      file_path_(std::move(file_path)),
      source_(std::make_shared<SourceFile>(std::move(source))) {}

std::shared_ptr<MemoryComponent> MemoryComponent::Create(std::weak_ptr<MemoryProject> project,
                                                         std::weak_ptr<MemoryVbe> vbe,
                                                         ComponentType type, std::string name,
                                                         std::string file_path,
                                                         SourceFile source) {
  auto component = std::make_shared<MemoryComponent>(Token{}, std::move(project), std::move(vbe),
                                                     type, std::move(name),
                                                     std::move(file_path), std::move(source));
  component->Init();
  return component;
}

void MemoryComponent::Init() {
  const std::weak_ptr<MemoryComponent> self = weak_from_this();
  module_ = std::make_shared<MemoryCodeModule>(self, source_);
  pane_ = std::make_shared<MemoryCodePane>(self);
  auto caption = [self](std::string_view kind) {
    return [self, kind = std::string(kind)]() -> std::string {
      auto component = self.lock();
      if (!component) return {};
      auto project = component->project_.lock();
      return (project ? project->Name() + " - " : std::string()) + component->Name() + " (" +
             kind + ")";
    };
  };
  code_window_ = std::make_shared<MemoryWindow>(vbe_, WindowType::kCodeWindow, caption("Code"));
  code_window_->SetPane(pane_);
  if (HasDesigner(type_)) {
    designer_ = std::make_shared<MemoryDesigner>(source_);
    designer_window_ = std::make_shared<MemoryWindow>(vbe_, WindowType::kDesigner,
                                                      caption(DesignerCaptionWord(type_)));
  }
}

namespace {
// What the IDE raises for a component it cannot open.
[[noreturn]] void CannotRead() {
  throw Error(50289, "Can't perform operation since the project is protected");
}
}  // namespace

std::shared_ptr<ICodeModule> MemoryComponent::CodeModule() {
  if (unreadable_) CannotRead();
  return module_;
}

std::shared_ptr<IDesigner> MemoryComponent::Designer() {
  if (unreadable_) CannotRead();
  return designer_;
}

std::shared_ptr<IProject> MemoryComponent::Project() { return project_.lock(); }

void MemoryComponent::SetName(std::string_view name) {
  if (!IsValidComponentName(name)) throw Error(380, "Invalid property value");
  auto project = project_.lock();
  if (project) {
    for (const auto& other : project->Components()) {
      if (other.get() != this && EqualsIgnoreCase(other->Name(), name))
        throw Error(32813, "Name conflicts with existing module, project, or object library");
    }
  }
  const std::string old_name = name_;
  name_ = std::string(name);
  for (PhysicalLine& line : source_->header()) {
    if (StartsWithIgnoreCase(line.text, "Attribute VB_Name")) {
      line.text = "Attribute VB_Name = \"" + name_ + "\"";
    } else if (EqualsIgnoreCase(FirstWord(line.text), "Begin")) {
      // The designer's root object is named after the component.
      const auto last_blank = line.text.find_last_of(' ');
      if (last_blank != std::string::npos &&
          EqualsIgnoreCase(std::string_view(line.text).substr(last_blank + 1), old_name))
        line.text = line.text.substr(0, last_blank + 1) + name_;
    }
  }
  if (auto vbe = vbe_.lock()) vbe->MemoryEventHub()->RaiseComponentRenamed(shared_from_this(), old_name);
}

void MemoryComponent::Export(std::string_view path) {
  auto vbe = vbe_.lock();
  if (!vbe) throw Error(75, "Path/File access error");
  if (Status status = vbe->FileSystemForIo().WriteFile(path, SourceBytes()); !status)
    throw Error(75, "Path/File access error: " + status.error());
}

std::string MemoryComponent::SourceBytes() const { return source_->Serialize(); }

Status MemoryComponent::Save(platform::FileSystem& file_system) {
  if (file_path_.empty())
    return tavrin::Error{name_ + ": the component has no file to save to"};
  return file_system.WriteFile(file_path_, SourceBytes());
}

}  // namespace tavrin::ide::memory
