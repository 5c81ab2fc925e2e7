#include "builders/fragment_editor.h"

#include <cctype>

#include "base/text.h"

namespace tavrin::builders {
namespace {

std::vector<fragments::FragmentEntry> FoldersOf(const fragments::FragmentTree& tree) {
  std::vector<fragments::FragmentEntry> folders;
  for (const fragments::FragmentEntry& entry : tree.entries)
    if (entry.is_folder) folders.push_back(entry);
  return folders;
}

Field FolderChoice(const std::vector<fragments::FragmentEntry>& folders) {
  Field field = MakeField("folder", FieldKind::kChoice, "&Folder:");
  for (const fragments::FragmentEntry& entry : folders) field.items.push_back(entry.display);
  field.selected = folders.empty() ? -1 : 0;
  if (!folders.empty()) field.text = field.items.front();
  field.remember = true;
  return field;
}

bool IsVariableName(std::string_view name) {
  if (name.empty() || name.size() > 40 || !std::isalpha(static_cast<unsigned char>(name[0])))
    return false;
  for (char c : name)
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
  return true;
}

}  // namespace

FragmentEditor::FragmentEditor(fragments::CodeFolders folders, platform::FileSystem& files,
                               std::string text)
    : folders_(std::move(folders)),
      files_(files),
      folder_entries_(FoldersOf(fragments::ReadFragmentTree(folders_, files_))),
      text_(std::move(text)) {
  fields_.push_back(FolderChoice(folder_entries_));
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  Field mark_text = MakeField("mark.text", FieldKind::kText, "&Text to mark:");
  mark_text.group = "Variables";
  fields_.push_back(mark_text);
  Field mark_name = MakeField("mark.name", FieldKind::kText, "&Variable:");
  mark_name.group = "Variables";
  fields_.push_back(mark_name);
  Field mark = MakeField("mark", FieldKind::kButton, "&Mark as Variable");
  mark.group = "Variables";
  fields_.push_back(mark);
  fields_.push_back(MakeField("problem", FieldKind::kLabel));
  Field preview = MakeField("text", FieldKind::kPreview, "Fragment:");
  preview.rows = 14;
  preview.text = text_;
  fields_.push_back(preview);
}

void FragmentEditor::Pressed(std::string_view id, DialogHost&) {
  if (id != "mark") return;
  Field& problem = *FindField(fields_, "problem");
  const std::string target = FindField(fields_, "mark.text")->text;
  const std::string name(TrimBlanks(FindField(fields_, "mark.name")->text));
  problem.text.clear();
  if (target.empty() || text_.find(target) == std::string::npos)
    problem.text = "Type text that the fragment holds.";
  else if (!IsVariableName(name))
    problem.text = "A variable's name is a letter, then letters, digits or _.";
  else
    text_ = ReplaceAll(text_, target, "{" + name + "}");
  problem.caption = problem.text;
  FindField(fields_, "text")->text = text_;
}

std::optional<Refusal> FragmentEditor::Accept() {
  const Field& folder = fields_.front();
  if (folder.selected < 0 || folder.selected >= static_cast<int>(folder_entries_.size()))
    return Refusal{"Pick the folder of the new fragment.", "folder"};
  const Result<std::string> saved = fragments::SaveFragment(
      files_, folder_entries_[static_cast<std::size_t>(folder.selected)].path,
      FindField(fields_, "name")->text, text_, folders_.Style());
  if (!saved) return Refusal{saved.error(), "name"};
  saved_path_ = *saved;
  return std::nullopt;
}

FragmentNameDialog::FragmentNameDialog(std::string title, std::string name)
    : title_(std::move(title)) {
  Field field = MakeField("name", FieldKind::kText, "&Name:");
  field.text = std::move(name);
  fields_.push_back(field);
}

std::optional<Refusal> FragmentNameDialog::Accept() {
  if (const auto name = fragments::FragmentFileName(Name()); !name)
    return Refusal{name.error(), "name"};
  return std::nullopt;
}

FragmentFolderDialog::FragmentFolderDialog(std::string title, const fragments::FragmentTree& tree)
    : title_(std::move(title)), folders_(FoldersOf(tree)) {
  fields_.push_back(FolderChoice(folders_));
}

std::optional<Refusal> FragmentFolderDialog::Accept() {
  if (Folder().empty()) return Refusal{"Pick a folder.", "folder"};
  return std::nullopt;
}

std::string FragmentFolderDialog::Folder() const {
  const int selected = fields_.front().selected;
  if (selected < 0 || selected >= static_cast<int>(folders_.size())) return "";
  return folders_[static_cast<std::size_t>(selected)].path;
}

}  // namespace tavrin::builders
