#include "tests/support/memory_file_system.h"

#include <fstream>
#include <sstream>

namespace tavrin::testing {

std::string ReadSourceTreeFile(std::string_view relative) {
  std::ifstream in(std::string(TAVRIN_SOURCE_DIR) + "/" + std::string(relative),
                   std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

void MemoryFileSystem::AddFile(std::string_view path, std::string_view bytes) {
  files_[std::string(path)] = std::string(bytes);
}

void MemoryFileSystem::AddFileFromSourceTree(std::string_view relative, std::string_view path) {
  AddFile(path, ReadSourceTreeFile(relative));
}

Result<std::string> MemoryFileSystem::ReadFile(std::string_view path) {
  const auto it = files_.find(path);
  if (it == files_.end()) return Error{std::string(path) + ": file not found"};
  return it->second;
}

Status MemoryFileSystem::WriteFile(std::string_view path, std::string_view bytes) {
  files_[std::string(path)] = std::string(bytes);
  written_.emplace_back(path);
  return {};
}

bool MemoryFileSystem::FileExists(std::string_view path) { return files_.contains(path); }

bool MemoryFileSystem::FolderExists(std::string_view path) {
  // "/a/" names the same folder as "/a".
  while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.remove_suffix(1);
  const std::string prefix = std::string(path) + "/";
  for (const auto& [name, bytes] : files_) {
    if (name.starts_with(prefix)) return true;
  }
  return false;
}

Status MemoryFileSystem::CreateFolders(std::string_view) { return {}; }

}  // namespace tavrin::testing
