#include "ide/memory/memory_project.h"

#include <algorithm>

#include "base/text.h"

#include "ide/memory/component_kind.h"
#include "ide/memory/memory_collection.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_references.h"
#include "ide/memory/memory_vbe.h"
#include "ide/memory/source_file.h"
#include "ide/memory/vbp_file.h"

namespace tavrin::ide::memory {

MemoryProject::MemoryProject(std::weak_ptr<MemoryVbe> vbe, std::string name,
                             std::string file_name, std::string vbp_bytes)
    : vbe_(std::move(vbe)),
      name_(std::move(name)),
      file_name_(std::move(file_name)),
      vbp_bytes_(std::move(vbp_bytes)) {}

namespace {

// VBComponents: the project's components now, and the project to change.
class MemoryComponents : public ListCollection<IComponent, IComponents> {
 public:
  explicit MemoryComponents(std::shared_ptr<MemoryProject> project)
      : ListCollection(std::vector<std::shared_ptr<IComponent>>(project->Components().begin(),
                                                                project->Components().end()),
                       [](IComponent& component) { return component.Name(); }),
        project_(std::move(project)) {}

  std::shared_ptr<IComponent> Add(ComponentType type) override { return project_->AddNew(type); }
  void Remove(IComponent& component) override { project_->Remove(component); }
  std::shared_ptr<IComponent> Import(std::string_view path) override {
    return project_->Import(path);
  }

 private:
  std::shared_ptr<MemoryProject> project_;
};

// References: the project's references now, and the project to change.
class MemoryReferences : public ListCollection<IReference, IReferences> {
 public:
  explicit MemoryReferences(std::shared_ptr<MemoryProject> project)
      : ListCollection(std::vector<std::shared_ptr<IReference>>(project->ReferenceList().begin(),
                                                                project->ReferenceList().end()),
                       [](IReference& reference) { return reference.Name(); }),
        project_(std::move(project)) {}

  std::shared_ptr<IReference> AddFromFile(std::string_view path) override {
    return project_->AddReferenceFromFile(path);
  }
  std::shared_ptr<IReference> AddFromGuid(std::string_view guid, int major, int minor) override {
    return project_->AddReferenceFromGuid(guid, major, minor);
  }
  void Remove(IReference& reference) override { project_->RemoveReference(reference); }

 private:
  std::shared_ptr<MemoryProject> project_;
};

[[noreturn]] void ThrowNameConflict() {
  throw Error(32813, "Name conflicts with existing module, project, or object library");
}

}  // namespace

std::shared_ptr<IComponents> MemoryProject::VBComponents() {
  return std::make_shared<MemoryComponents>(shared_from_this());
}

std::shared_ptr<IReferences> MemoryProject::References() {
  return std::make_shared<MemoryReferences>(shared_from_this());
}

void MemoryProject::AddReference(std::shared_ptr<MemoryReference> reference) {
  references_.push_back(std::move(reference));
}

std::shared_ptr<MemoryReference> MemoryProject::AddReferenceFromFile(std::string_view path) {
  auto vbe = vbe_.lock();
  if (!vbe) throw Error(75, "Path/File access error");
  if (!vbe->FileSystemForIo().FileExists(path))
    throw Error(53, "File not found: " + std::string(path));
  VbpReference line;
  line.path = std::string(path);
  line.is_project = path.size() > 4 && EqualsIgnoreCase(path.substr(path.size() - 4), ".vbp");
  auto reference = MemoryReference::FromLine(std::move(line));
  for (const auto& each : references_) {
    if (EqualsIgnoreCase(each->FullPath(), path) || EqualsIgnoreCase(each->Name(), reference->Name()))
      ThrowNameConflict();
  }
  references_.push_back(reference);
  references_changed_ = true;
  vbe->MemoryEventHub()->RaiseReferenceAdded(shared_from_this(), reference);
  return reference;
}

std::shared_ptr<MemoryReference> MemoryProject::AddReferenceFromGuid(std::string_view guid,
                                                                     int major, int minor) {
  for (const auto& each : references_) {
    if (EqualsIgnoreCase(each->Guid(), guid)) ThrowNameConflict();
  }
  VbpReference line;
  line.guid = std::string(guid);
  line.major = major;
  line.minor = minor;
  // No registry tells where the library lives: the reference is broken.
  auto reference = std::make_shared<MemoryReference>(std::move(line), std::string(guid),
                                                     false, true);
  references_.push_back(reference);
  references_changed_ = true;
  if (auto vbe = vbe_.lock()) vbe->MemoryEventHub()->RaiseReferenceAdded(shared_from_this(), reference);
  return reference;
}

void MemoryProject::RemoveReference(IReference& reference) {
  const auto found = std::find_if(references_.begin(), references_.end(),
                                  [&](const auto& each) { return each.get() == &reference; });
  if (found == references_.end()) throw Error(5, "Invalid procedure call or argument");
  if ((*found)->BuiltIn()) throw Error(5, "Can't remove a default reference");
  const std::shared_ptr<IReference> removed = *found;
  references_.erase(found);
  references_changed_ = true;
  if (auto vbe = vbe_.lock()) vbe->MemoryEventHub()->RaiseReferenceRemoved(shared_from_this(), removed);
}

std::shared_ptr<MemoryComponent> MemoryProject::AddNew(ComponentType type) {
  if (type == ComponentType::kResFile ||
      type == ComponentType::kRelatedDocument || type == ComponentType::kDocument)
    throw Error(5, "Invalid procedure call or argument");
  const std::string stem = NewComponentStem(type);
  for (int number = 1;; ++number) {
    const std::string name = stem + std::to_string(number);
    const bool taken = std::any_of(components_.begin(), components_.end(), [&](const auto& each) {
      return EqualsIgnoreCase(each->Name(), name);
    });
    if (!taken) return AddComponent(type, name, "");
  }
}

void MemoryProject::Remove(IComponent& component) {
  const auto found = std::find_if(components_.begin(), components_.end(),
                                  [&](const auto& each) { return each.get() == &component; });
  if (found == components_.end()) throw Error(5, "Invalid procedure call or argument");
  const std::shared_ptr<MemoryComponent> removed = *found;
  components_.erase(found);
  if (auto vbe = vbe_.lock()) vbe->MemoryEventHub()->RaiseComponentRemoved(removed);
}

std::shared_ptr<MemoryComponent> MemoryProject::Import(std::string_view path) {
  auto vbe = vbe_.lock();
  if (!vbe) throw Error(75, "Path/File access error");
  platform::FileSystem& file_system = vbe->FileSystemForIo();
  if (!IsSourceFileName(path)) throw Error(5, "Invalid procedure call or argument");
  if (!file_system.FileExists(path)) throw Error(53, "File not found: " + std::string(path));
  Result<std::string> bytes = file_system.ReadFile(path);
  if (!bytes) throw Error(75, "Path/File access error: " + bytes.error());
  Result<SourceFile> source = SourceFile::Parse(*bytes, path);
  if (!source) throw Error(75, source.error());
  std::string name = source->VbName();
  if (name.empty()) name = FileStem(path);
  for (const auto& each : components_) {
    if (EqualsIgnoreCase(each->Name(), name))
      throw Error(32813, "Name conflicts with existing module, project, or object library");
  }
  // The imported component has no file of its own until the project is saved.
  auto component = MemoryComponent::Create(weak_from_this(), vbe_, ComponentTypeOf(path, *source),
                                           std::move(name), "", std::move(*source));
  components_.push_back(component);
  vbe->MemoryEventHub()->RaiseComponentAdded(component);
  return component;
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
  if (references_changed_) {
    // Reference= lines first, then Object= lines, as the IDE writes them.
    std::vector<std::string> lines;
    for (const bool controls : {false, true}) {
      for (const auto& reference : references_) {
        if (!reference->BuiltIn() && reference->Line().is_control == controls)
          lines.push_back(VbpReferenceLine(reference->Line()));
      }
    }
    vbp_bytes_ = ReplaceVbpReferences(vbp_bytes_, lines);
    references_changed_ = false;
  }
  if (!file_name_.empty()) {
    // The IDE writes the names components have now (a rename) into the
    // project file.
    const std::string bytes = RenameVbpMembers(vbp_bytes_, file_name_, [&](std::string_view path) {
      for (const auto& component : components_)
        if (component->FilePath() == path) return component->Name();
      return std::string();
    });
    if (Status status = file_system.WriteFile(file_name_, bytes); !status) return status;
  }
  for (const auto& component : components_) {
    if (Status status = component->Save(file_system); !status) return status;
  }
  return {};
}

}  // namespace tavrin::ide::memory
