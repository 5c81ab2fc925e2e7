// The fragment browser ("Insert Fragme&nt..."): the code folders as a tree,
// a preview of the picked file with its placeholders and includes expanded,
// and the dialog that asks for the fragment variables no file defines.
#pragma once

#include <string>
#include <vector>

#include "builders/dialog.h"
#include "codegen/template_environment.h"
#include "fragments/fragment_library.h"
#include "platform/file_system.h"
#include "platform/ui.h"

namespace tavrin::builders {

inline constexpr std::string_view kFragmentBrowserTitle = "Insert Fragment";
inline constexpr std::string_view kFragmentVariablesTitle = "Fragment Variables";
inline constexpr std::string_view kFragmentTree = "tree";
inline constexpr std::string_view kFragmentPreview = "preview";

// A fragment's text as it is inserted, before its variables are filled:
// placeholders replaced and includes expanded by the template rules, the
// header lines of an exported module dropped, merge markers taken out. A
// fragment in the code root is expanded as an include of itself, so an
// include that comes back to it (directly or not) stays as written, as does
// one of a missing file.
std::string ExpandFragment(const codegen::TemplateEnvironment& environment, std::string text,
                           std::string_view include_name = "");

// Besides picking, the browser renames, moves and deletes the picked file
// (its buttons "rename", "move", "delete") and saves the code of the pane
// as a new fragment through the fragment editor ("save"), reading the tree
// again after each.
class FragmentBrowser : public DialogModel {
 public:
  FragmentBrowser(fragments::CodeFolders folders, codegen::TemplateEnvironment environment,
                  platform::FileSystem& files, platform::Ui& ui);

  std::string Title() const override { return std::string(kFragmentBrowserTitle); }
  std::string HelpTopic() const override { return "fragments.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  void Pressed(std::string_view id, DialogHost& host) override;
  std::optional<Refusal> Accept() override;

  // The picked file; null for none or a folder.
  const fragments::FragmentEntry* Selected() const;
  // Its expanded text (see ExpandFragment); empty before a pick.
  const std::string& Text() const { return text_; }

  // The code "save" offers to the fragment editor (the selection of the
  // code pane, or the procedure at the caret); empty: the button says what
  // to select.
  std::string selection;

  // How a tree entry is shown: indented by depth, folders ending in "\".
  static std::string RowText(const fragments::FragmentEntry& entry);

 private:
  void ReadTree(std::string_view select_path);
  void Tell(std::string_view text);

  fragments::CodeFolders folders_;
  platform::Ui& ui_;
  fragments::FragmentTree tree_;
  codegen::TemplateEnvironment environment_;
  platform::FileSystem& files_;
  std::vector<Field> fields_;
  std::string text_;
  std::string problem_;  // why the picked file cannot be inserted
};

// One text field per variable, filled with the user's last answers.
class FragmentVariablesDialog : public DialogModel {
 public:
  FragmentVariablesDialog(const std::vector<std::string>& names,
                          const fragments::VariableValues& last_answers);
  std::string Title() const override { return std::string(kFragmentVariablesTitle); }
  std::string HelpTopic() const override { return "fragments.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override { return std::nullopt; }
  fragments::VariableValues Values() const;

 private:
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
