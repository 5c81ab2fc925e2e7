#include "fragments/addin_folder.h"

#include "base/text.h"
#include "fragments/code_folders.h"
#include "resources/default_files.h"

namespace tavrin::fragments {

Status SeedAddinFolder(platform::FileSystem& files, const std::string& folder,
                       platform::PathStyle style) {
  if (files.FileExists(JoinPath({folder, "tvrusr.ini"}, style))) return {};
  if (Status created = files.CreateFolders(folder); !created) return created;
  for (std::string_view code_folder : {"Fragments", "Classes", "Templates", "ErrorHandlers",
                                       "Library"}) {
    if (Status created = files.CreateFolders(JoinPath({folder, "vbcode", std::string(code_folder)},
                                                      style));
        !created)
      return created;
  }
  for (const resources::EmbeddedFile& file : resources::DefaultAddinFiles()) {
    const std::string path = JoinPath({folder, std::string(file.path)}, style);
    if (files.FileExists(path)) continue;
    if (Status created = files.CreateFolders(ParentFolder(path)); !created) return created;
    if (Status written = files.WriteFile(path, ReplaceAll(file.bytes, "\n", "\r\n")); !written)
      return written;
  }
  return {};
}

Status InstallHelpBook(platform::FileSystem& files, const std::string& folder,
                       platform::PathStyle style) {
  for (const resources::EmbeddedFile& file : resources::DefaultAddinFiles()) {
    if (!file.path.starts_with("help/")) continue;
    const std::string path = JoinPath({folder, std::string(file.path)}, style);
    const std::string bytes = ReplaceAll(file.bytes, "\n", "\r\n");
    if (Result<std::string> present = files.ReadFile(path); present && *present == bytes) continue;
    if (Status created = files.CreateFolders(ParentFolder(path)); !created) return created;
    if (Status written = files.WriteFile(path, bytes); !written) return written;
  }
  return {};
}

}  // namespace tavrin::fragments
