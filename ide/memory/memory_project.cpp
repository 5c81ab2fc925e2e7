#include "ide/memory/memory_project.h"

#include "ide/memory/component_kind.h"
#include "ide/memory/memory_collection.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_vbe.h"
#include "ide/memory/source_file.h"

namespace tavrin::ide::memory {

MemoryProject::MemoryProject(std::weak_ptr<MemoryVbe> vbe, std::string name,
                             std::string file_name, std::string vbp_bytes)
    : vbe_(std::move(vbe)),
      name_(std::move(name)),
      file_name_(std::move(file_name)),
      vbp_bytes_(std::move(vbp_bytes)) {}

std::shared_ptr<ICollection<IComponent>> MemoryProject::VBComponents() {
  std::vector<std::shared_ptr<IComponent>> items(components_.begin(), components_.end());
  return std::make_shared<ListCollection<IComponent>>(
      std::move(items), [](IComponent& component) { return component.Name(); });
}

std::shared_ptr<MemoryComponent> MemoryProject::AddComponent(ComponentType type,
                                                             std::string_view name,
                                                             std::string_view code) {
  SourceFile source = SourceFile::Create(NewComponentHeader(type, name), code);
  auto component = MemoryComponent::Create(weak_from_this(), vbe_, type, std::string(name), "",
                                           std::move(source));
  components_.push_back(component);
  if (auto vbe = vbe_.lock()) vbe->MemoryEventHub()->RaiseComponentAdded(component);
  return component;
}

Result<std::shared_ptr<MemoryComponent>> MemoryProject::AddSourceFile(std::string_view path,
                                                                      std::string_view bytes) {
  Result<SourceFile> source = SourceFile::Parse(bytes, path);
  if (!source) return tavrin::Error{source.error()};
  const ComponentType type = ComponentTypeOf(path, *source);
  std::string name = source->VbName();
  if (name.empty()) name = FileStem(path);
  auto component = MemoryComponent::Create(weak_from_this(), vbe_, type, std::move(name),
                                           std::string(path), std::move(*source));
  components_.push_back(component);
  return component;
}

Status MemoryProject::Save(platform::FileSystem& file_system) {
  if (!file_name_.empty()) {
    if (Status status = file_system.WriteFile(file_name_, vbp_bytes_); !status) return status;
  }
  for (const auto& component : components_) {
    if (Status status = component->Save(file_system); !status) return status;
  }
  return {};
}

}  // namespace tavrin::ide::memory
