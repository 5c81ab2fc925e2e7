#include "ide/memory/memory_component.h"

#include "ide/memory/component_kind.h"
#include "ide/memory/memory_code_module.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_designer.h"
#include "ide/memory/memory_project.h"
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

std::shared_ptr<ICodeModule> MemoryComponent::CodeModule() { return module_; }

std::shared_ptr<IDesigner> MemoryComponent::Designer() { return designer_; }

std::shared_ptr<IProject> MemoryComponent::Project() { return project_.lock(); }

std::string MemoryComponent::SourceBytes() const { return source_->Serialize(); }

Status MemoryComponent::Save(platform::FileSystem& file_system) {
  if (file_path_.empty())
    return tavrin::Error{name_ + ": the component has no file to save to"};
  return file_system.WriteFile(file_path_, SourceBytes());
}

}  // namespace tavrin::ide::memory
