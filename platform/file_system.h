// Files and folders. Paths are UTF-8; an implementation may use either
// separator.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace tavrin::platform {

struct FolderEntry {
  std::string name;
  bool is_folder = false;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;
  virtual Result<std::string> ReadFile(std::string_view path) = 0;
  // Replaces the file as a whole: a failure leaves the old file as it was.
  virtual Status WriteFile(std::string_view path, std::string_view bytes) = 0;
  virtual bool FileExists(std::string_view path) = 0;
  virtual bool FolderExists(std::string_view path) = 0;
  virtual Status CreateFolders(std::string_view path) = 0;
  // Changes whenever the file does (its size and modification time), so a
  // cache of its contents can skip reading it again; nullopt when this file
  // system cannot tell.
  virtual std::optional<std::string> ChangeStamp(std::string_view path) { return std::nullopt; }
  // The files and sub-folders of a folder, sorted by name without regard
  // to case.
  virtual Result<std::vector<FolderEntry>> ListFolder(std::string_view path) {
    return Error{"cannot list '" + std::string(path) + "': not supported here"};
  }
  // Renames or moves a file; an existing target is refused, not replaced.
  virtual Status MoveFile(std::string_view from, std::string_view to) {
    return Error{"cannot move '" + std::string(from) + "': not supported here"};
  }
  virtual Status DeleteFile(std::string_view path) {
    return Error{"cannot delete '" + std::string(path) + "': not supported here"};
  }
};

// The operating system's shell: the temporary folder and opening a document
// (a page in the user's browser).
class Shell {
 public:
  virtual ~Shell() = default;
  virtual std::string TempFolder() = 0;
  virtual Status OpenDocument(std::string_view path) = 0;
};

}  // namespace tavrin::platform
