// A project of the in-memory IDE: a .vbp file (kept byte for byte) and its
// components, or a project built in memory.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "ide/object_model.h"
#include "platform/file_system.h"

namespace tavrin::ide::memory {

class MemoryComponent;
class MemoryReference;
class MemoryVbe;

class MemoryProject : public IProject, public std::enable_shared_from_this<MemoryProject> {
 public:
  // `vbp_bytes` are written back unchanged by Save; `file_name` is empty
  // for a project never saved.
  MemoryProject(std::weak_ptr<MemoryVbe> vbe, std::string name, std::string file_name,
                std::string vbp_bytes);

  std::string Name() override { return name_; }
  std::string FileName() override { return file_name_; }
  std::shared_ptr<IComponents> VBComponents() override;
  std::shared_ptr<IReferences> References() override;

  // A new component with the header the IDE gives that type; the code is
  // split at line breaks as InsertLines splits it (empty: no lines).
  std::shared_ptr<MemoryComponent> AddComponent(ComponentType type, std::string_view name,
                                                std::string_view code);
  // A component from a source file's bytes; `path` names it in errors and is
  // where Save writes it.
  Result<std::shared_ptr<MemoryComponent>> AddSourceFile(std::string_view path,
                                                         std::string_view bytes);
  // VBComponents.Add, Remove and Import; each raises its VBComponentsEvents.
  std::shared_ptr<MemoryComponent> AddNew(ComponentType type);
  void Remove(IComponent& component);
  std::shared_ptr<MemoryComponent> Import(std::string_view path);
  const std::vector<std::shared_ptr<MemoryComponent>>& Components() const { return components_; }

  // References.AddFromFile, AddFromGuid and Remove, each raising its
  // ReferencesEvents. A changed list is written back to the project file by
  // Save. `AddReference` adds one as
  // the project file named it (loading, tests).
  void AddReference(std::shared_ptr<MemoryReference> reference);
  std::shared_ptr<MemoryReference> AddReferenceFromFile(std::string_view path);
  std::shared_ptr<MemoryReference> AddReferenceFromGuid(std::string_view guid, int major,
                                                        int minor);
  void RemoveReference(IReference& reference);
  const std::vector<std::shared_ptr<MemoryReference>>& ReferenceList() const {
    return references_;
  }

  // Writes the project file (if any) and every component that has a file.
  Status Save(platform::FileSystem& file_system);

 private:
  std::weak_ptr<MemoryVbe> vbe_;
  std::string name_;
  std::string file_name_;
  std::string vbp_bytes_;
  std::vector<std::shared_ptr<MemoryComponent>> components_;
  std::vector<std::shared_ptr<MemoryReference>> references_;
  bool references_changed_ = false;
};

}  // namespace tavrin::ide::memory
