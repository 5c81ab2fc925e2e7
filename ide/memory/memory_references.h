// The references of an in-memory project, read from its .vbp file's
// Reference= and Object= lines. Nothing registers type libraries here, so a
// reference knows what its line says: its name is its file's stem, and a
// library added by GUID alone is broken.
#pragma once

#include <memory>
#include <string>

#include "ide/memory/vbp_file.h"
#include "ide/object_model.h"

namespace tavrin::ide::memory {

class MemoryReference : public IReference {
 public:
  MemoryReference(VbpReference line, std::string name, bool built_in = false,
                  bool broken = false)
      : line_(std::move(line)), name_(std::move(name)), built_in_(built_in), broken_(broken) {}

  // A reference as its project file line gives it.
  static std::shared_ptr<MemoryReference> FromLine(VbpReference line);

  std::string Name() override { return name_; }
  std::string Description() override { return line_.description; }
  std::string Guid() override { return line_.guid; }
  int Major() override { return line_.major; }
  int Minor() override { return line_.minor; }
  std::string FullPath() override { return line_.path; }
  ReferenceKind Type() override {
    return line_.is_project ? ReferenceKind::kProject : ReferenceKind::kTypeLib;
  }
  bool BuiltIn() override { return built_in_; }
  bool IsBroken() override { return broken_; }

  const VbpReference& Line() const { return line_; }

 private:
  VbpReference line_;
  std::string name_;
  bool built_in_;
  bool broken_;
};

}  // namespace tavrin::ide::memory
