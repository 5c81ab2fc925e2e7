// Asks for the path of one file: a file field with its browse button.
// "I&mport File..." asks for an existing module to add to the project,
// "Export File..." for the file to write (which may exist or not).
#pragma once

#include <string>

#include "builders/dialog.h"
#include "platform/file_system.h"

namespace tavrin::builders {

class FileDialog : public DialogModel {
 public:
  enum class Purpose { kOpen, kSave };
  FileDialog(std::string title, std::string caption, platform::FileSystem& files,
             Purpose purpose = Purpose::kOpen);

  std::string Title() const override { return title_; }
  std::string HelpTopic() const override { return "import-export.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override;

  std::string Path() const { return fields_.front().text; }
  void SetPath(std::string path) { fields_.front().text = std::move(path); }

 private:
  std::string title_;
  std::vector<Field> fields_;
  platform::FileSystem& files_;
};

}  // namespace tavrin::builders
