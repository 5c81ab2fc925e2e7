// Files and folders through the standard library, on every platform.
#pragma once

#include "platform/file_system.h"

namespace tavrin::platform {

class StdFileSystem : public FileSystem {
 public:
  Result<std::string> ReadFile(std::string_view path) override;
  // Writes a temporary file beside the target and renames it over the
  // target, so a failure at any point leaves the old file as it was.
  Status WriteFile(std::string_view path, std::string_view bytes) override;
  bool FileExists(std::string_view path) override;
  bool FolderExists(std::string_view path) override;
  Status CreateFolders(std::string_view path) override;
  std::optional<std::string> ChangeStamp(std::string_view path) override;
  Result<std::vector<FolderEntry>> ListFolder(std::string_view path) override;
  Status MoveFile(std::string_view from, std::string_view to) override;
  Status DeleteFile(std::string_view path) override;
};

}  // namespace tavrin::platform
