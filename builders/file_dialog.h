// Asks for the path of one file or folder: a file or folder field with its
// browse button, which opens the system's picker. "I&mport File..." asks for
// an existing module to add to the project, "Export File..." for the file to
// write (which may exist or not), "&Filename..." and "F&older..." for the
// path of a String constant.
#pragma once

#include <string>

#include "builders/dialog.h"
#include "platform/file_system.h"

namespace tavrin::builders {

inline constexpr std::string_view kSelectFileTitle = "Select File";
inline constexpr std::string_view kSelectFolderTitle = "Select Folder";

class FileDialog : public DialogModel {
 public:
  enum class Purpose { kOpen, kSave };
  // `kind` is FieldKind::kFile or FieldKind::kFolder; only a file is saved.
  FileDialog(std::string title, std::string caption, platform::FileSystem& files,
             FieldKind kind = FieldKind::kFile, std::string help_topic = "import-export.html",
             Purpose purpose = Purpose::kOpen);

  std::string Title() const override { return title_; }
  std::string HelpTopic() const override { return help_topic_; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override;

  std::string Path() const { return fields_.front().text; }
  void SetPath(std::string path) { fields_.front().text = std::move(path); }

 private:
  std::string title_;
  std::string help_topic_;
  std::vector<Field> fields_;
  platform::FileSystem& files_;
};

}  // namespace tavrin::builders
