#include "builders/file_dialog.h"

namespace tavrin::builders {

FileDialog::FileDialog(std::string title, std::string caption, platform::FileSystem& files,
                       Purpose purpose)
    : title_(std::move(title)), files_(files) {
  Field path = MakeField("path", FieldKind::kFile, std::move(caption));
  // A file to write is named after what is written, not after last time.
  path.save = purpose == Purpose::kSave;
  path.remember = !path.save;
  fields_.push_back(std::move(path));
}

std::optional<Refusal> FileDialog::Accept() {
  const std::string& path = fields_.front().text;
  if (path.empty()) return Refusal{"Choose a file.", "path"};
  if (!fields_.front().save && !files_.FileExists(path)) return Refusal{"The file '" + path + "' does not exist.", "path"};
  return std::nullopt;
}

}  // namespace tavrin::builders
