#include "builders/file_dialog.h"

namespace tavrin::builders {

FileDialog::FileDialog(std::string title, std::string caption, platform::FileSystem& files,
                       FieldKind kind, std::string help_topic, Purpose purpose)
    : title_(std::move(title)), help_topic_(std::move(help_topic)), files_(files) {
  Field path = MakeField("path", kind, std::move(caption));
  // A file to write is named after what is written, not after last time.
  path.save = purpose == Purpose::kSave;
  path.remember = !path.save;
  fields_.push_back(std::move(path));
}

std::optional<Refusal> FileDialog::Accept() {
  const std::string& path = fields_.front().text;
  const bool folder = fields_.front().kind == FieldKind::kFolder;
  if (path.empty()) return Refusal{folder ? "Choose a folder." : "Choose a file.", "path"};
  if (fields_.front().save) return std::nullopt;
  if (folder ? !files_.FolderExists(path) : !files_.FileExists(path))
    return Refusal{(folder ? "The folder '" : "The file '") + path + "' does not exist.", "path"};
  return std::nullopt;
}

}  // namespace tavrin::builders
