#include "tests/support/memory_file_system.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace tavrin::testing {
namespace {

// Either separator names the same file, as on Windows: the code under test
// joins paths with its platform's separator, the tests write "/".
std::string Normal(std::string_view path) {
  std::string normal(path);
  std::replace(normal.begin(), normal.end(), '\\', '/');
  return normal;
}

}  // namespace

std::string ReadSourceTreeFile(std::string_view relative) {
  std::ifstream in(std::string(TAVRIN_SOURCE_DIR) + "/" + std::string(relative),
                   std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

void MemoryFileSystem::AddFile(std::string_view path, std::string_view bytes) {
  files_[Normal(path)] = std::string(bytes);
}

void MemoryFileSystem::AddFileFromSourceTree(std::string_view relative, std::string_view path) {
  AddFile(path, ReadSourceTreeFile(relative));
}

void MemoryFileSystem::AddSampleProject(std::string_view folder) {
  for (const char* name :
       {"Inventory.vbp", "basMain.bas", "clsStockItem.cls", "frmMain.frm", "frmAbout.frm"})
    AddFileFromSourceTree(std::string("sample/") + name, std::string(folder) + "/" + name);
}

Result<std::string> MemoryFileSystem::ReadFile(std::string_view path) {
  const auto it = files_.find(Normal(path));
  if (it == files_.end()) return Error{std::string(path) + ": file not found"};
  return it->second;
}

Status MemoryFileSystem::WriteFile(std::string_view path, std::string_view bytes) {
  files_[Normal(path)] = std::string(bytes);
  written_.push_back(Normal(path));
  return {};
}

bool MemoryFileSystem::FileExists(std::string_view path) { return files_.contains(Normal(path)); }

bool MemoryFileSystem::FolderExists(std::string_view path) {
  // "/a/" names the same folder as "/a".
  std::string folder = Normal(path);
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  const std::string prefix = folder + "/";
  for (const auto& [name, bytes] : files_) {
    if (name.starts_with(prefix)) return true;
  }
  return false;
}

Status MemoryFileSystem::CreateFolders(std::string_view) { return {}; }

}  // namespace tavrin::testing
