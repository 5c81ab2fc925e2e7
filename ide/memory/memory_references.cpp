#include "ide/memory/memory_references.h"

namespace tavrin::ide::memory {

std::shared_ptr<MemoryReference> MemoryReference::FromLine(VbpReference line) {
  std::string path = line.path;
  const auto slash = path.find_last_of("/\\");
  if (slash != std::string::npos) path.erase(0, slash + 1);
  const auto dot = path.find_last_of('.');
  std::string name = path.substr(0, dot);
  if (name.empty()) name = line.guid;
  return std::make_shared<MemoryReference>(std::move(line), std::move(name));
}

}  // namespace tavrin::ide::memory
