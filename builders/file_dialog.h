// Asks for the path of one existing file: a file field with its browse
// button. "I&mport File..." uses it for the module to add to the project.
#pragma once

#include <string>

#include "builders/dialog.h"
#include "platform/file_system.h"

namespace tavrin::builders {

class FileDialog : public DialogModel {
 public:
  FileDialog(std::string title, std::string caption, platform::FileSystem& files);

  std::string Title() const override { return title_; }
  std::string HelpTopic() const override { return "import-export.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override;

  std::string Path() const { return fields_.front().text; }

 private:
  std::string title_;
  std::vector<Field> fields_;
  platform::FileSystem& files_;
};

}  // namespace tavrin::builders
