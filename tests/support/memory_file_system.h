// A file system held in memory for tests: files by exact path, and a record
// of the paths written.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace tavrin::testing {

class MemoryFileSystem : public platform::FileSystem {
 public:
  void AddFile(std::string_view path, std::string_view bytes);
  // Copies a file of the source tree (e.g. "sample/basMain.bas") under `path`.
  void AddFileFromSourceTree(std::string_view relative, std::string_view path);
  // The sample project (Inventory.vbp and its four members) into `folder`.
  void AddSampleProject(std::string_view folder);
  const std::map<std::string, std::string, std::less<>>& files() const { return files_; }
  const std::vector<std::string>& written() const { return written_; }

  Result<std::string> ReadFile(std::string_view path) override;
  Status WriteFile(std::string_view path, std::string_view bytes) override;
  bool FileExists(std::string_view path) override;
  bool FolderExists(std::string_view path) override;
  Status CreateFolders(std::string_view path) override;

 private:
  std::map<std::string, std::string, std::less<>> files_;
  std::vector<std::string> written_;
};

// The bytes of a file of the source tree; empty when it cannot be read.
std::string ReadSourceTreeFile(std::string_view relative);

}  // namespace tavrin::testing
