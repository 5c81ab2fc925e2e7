// The fragment editor: code of the code pane saved as a new fragment file
// in a folder of the code folders, with the parts that change marked as
// fragment variables; and the two small dialogs the browser's Rename and
// Move buttons show.
#pragma once

#include <string>
#include <vector>

#include "builders/dialog.h"
#include "fragments/fragment_library.h"
#include "platform/file_system.h"

namespace tavrin::builders {

inline constexpr std::string_view kFragmentEditorTitle = "Save Fragment";

class FragmentEditor : public DialogModel {
 public:
  // `text`: the code to save (a selection or a procedure).
  FragmentEditor(fragments::CodeFolders folders, platform::FileSystem& files, std::string text);

  std::string Title() const override { return std::string(kFragmentEditorTitle); }
  std::string HelpTopic() const override { return "fragments.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  // "mark": every occurrence of the text to mark becomes "{Variable}".
  void Pressed(std::string_view id, DialogHost& host) override;
  // Writes the file; refused for a bad name, a missing folder or a file
  // that exists.
  std::optional<Refusal> Accept() override;

  const std::string& Text() const { return text_; }
  const std::string& SavedPath() const { return saved_path_; }

 private:
  fragments::CodeFolders folders_;
  platform::FileSystem& files_;
  std::vector<fragments::FragmentEntry> folder_entries_;
  std::string text_;
  std::string saved_path_;
  std::vector<Field> fields_;
};

// One name, as for Rename.
class FragmentNameDialog : public DialogModel {
 public:
  FragmentNameDialog(std::string title, std::string name);
  std::string Title() const override { return title_; }
  std::string HelpTopic() const override { return "fragments.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override;
  std::string Name() const { return fields_.front().text; }

 private:
  std::string title_;
  std::vector<Field> fields_;
};

// One folder of the tree, as for Move.
class FragmentFolderDialog : public DialogModel {
 public:
  FragmentFolderDialog(std::string title, const fragments::FragmentTree& tree);
  std::string Title() const override { return title_; }
  std::string HelpTopic() const override { return "fragments.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override;
  std::string Folder() const;

 private:
  std::string title_;
  std::vector<fragments::FragmentEntry> folders_;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
