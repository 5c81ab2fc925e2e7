#include "builders/fragment_browser.h"

#include "base/text.h"
#include "codegen/template_merge.h"
#include "codegen/templates.h"
#include "builders/fragment_editor.h"

namespace tavrin::builders {
namespace {

// The lines an exported module starts with, which the code pane never shows.
bool IsModuleHeaderLine(std::string_view line) {
  return line.starts_with("VERSION ") || line.starts_with("Attribute VB_") ||
         line == "BEGIN" || line == "END" || line.starts_with("  MultiUse =") ||
         line.starts_with("  Persistable =") || line.starts_with("  DataBindingBehavior =") ||
         line.starts_with("  DataSourceBehavior =") || line.starts_with("  MTSTransactionMode =");
}

}  // namespace

std::string ExpandFragment(const codegen::TemplateEnvironment& environment, std::string text,
                           std::string_view include_name) {
  std::string expanded;
  if (!include_name.empty()) {
    const std::string directive = "{INCLUDE " + std::string(include_name) + "}";
    expanded = directive;
    codegen::ExpandProcedureTemplate(environment, expanded, "", "", "");
    if (expanded == directive) expanded.clear();  // the file gave no text that way
  }
  if (expanded.empty()) {
    expanded = std::move(text);
    codegen::ExpandProcedureTemplate(environment, expanded, "", "", "");
  }
  const std::vector<std::string_view> lines = SplitCrLf(expanded);
  std::size_t first = 0;
  while (first < lines.size() && IsModuleHeaderLine(lines[first])) ++first;
  if (first > 0) {
    std::vector<std::string> kept(lines.begin() + static_cast<std::ptrdiff_t>(first), lines.end());
    expanded = JoinCrLf(kept);
  }
  return codegen::RemoveMergeMarkers(expanded);
}

FragmentBrowser::FragmentBrowser(fragments::CodeFolders folders,
                                 codegen::TemplateEnvironment environment,
                                 platform::FileSystem& files, platform::Ui& ui)
    : folders_(std::move(folders)),
      ui_(ui),
      environment_(std::move(environment)),
      files_(files) {
  Field list = MakeField(std::string(kFragmentTree), FieldKind::kList, "&Code folders:");
  list.rows = 18;
  list.remember = true;
  fields_.push_back(list);
  for (auto [id, caption] : {std::pair{"rename", "Re&name..."}, std::pair{"move", "&Move..."},
                             std::pair{"delete", "&Delete"},
                             std::pair{"save", "&Save Selection as Fragment..."}})
    fields_.push_back(MakeField(id, FieldKind::kButton, caption));
  Field preview = MakeField(std::string(kFragmentPreview), FieldKind::kPreview, "Pre&view:");
  preview.rows = 18;
  fields_.push_back(preview);
  fields_.push_back(MakeField("problems", FieldKind::kLabel));
  ReadTree("");
}

void FragmentBrowser::ReadTree(std::string_view select_path) {
  tree_ = fragments::ReadFragmentTree(folders_, files_);
  Field& list = fields_.front();
  list.items.clear();
  list.selected = -1;
  for (std::size_t i = 0; i < tree_.entries.size(); ++i) {
    list.items.push_back(RowText(tree_.entries[i]));
    if (!select_path.empty() && tree_.entries[i].path == select_path)
      list.selected = static_cast<int>(i);
  }
  Field& problems = *FindField(fields_, "problems");
  problems.text = problems.caption = JoinCrLf(tree_.problems);
  problems.visible = !tree_.problems.empty();
  Changed(kFragmentTree);
}

void FragmentBrowser::Tell(std::string_view text) {
  ui_.MessageBox(text, platform::Buttons::kOk, platform::Icon::kExclamation, platform::kAppTitle);
}

void FragmentBrowser::Pressed(std::string_view id, DialogHost& host) {
  if (id == "save") {
    if (selection.empty()) {
      Tell("Select the lines to save, or put the caret in a procedure.");
      return;
    }
    FragmentEditor editor(folders_, files_, selection);
    if (host.Show(editor)) ReadTree(editor.SavedPath());
    return;
  }
  const fragments::FragmentEntry* picked = Selected();
  if (!picked) {
    if (id == "rename" || id == "move" || id == "delete") Tell("Pick a fragment file first.");
    return;
  }
  const fragments::FragmentEntry entry = *picked;
  Result<std::string> done = std::string();
  if (id == "rename") {
    FragmentNameDialog dialog("Rename Fragment", entry.name);
    if (!host.Show(dialog)) return;
    done = fragments::RenameFragment(files_, entry, dialog.Name(), folders_.Style());
  } else if (id == "move") {
    FragmentFolderDialog dialog("Move Fragment", tree_);
    if (!host.Show(dialog)) return;
    done = fragments::MoveFragment(files_, entry, dialog.Folder(), folders_.Style());
  } else if (id == "delete") {
    if (ui_.MessageBox("Delete the fragment '" + entry.display + "'?", platform::Buttons::kYesNo,
                       platform::Icon::kQuestion, platform::kAppTitle) != platform::Answer::kYes)
      return;
    if (Status deleted = fragments::DeleteFragment(files_, entry); !deleted)
      done = Error{deleted.error()};
  } else {
    return;
  }
  if (!done) {
    Tell(done.error());
    return;
  }
  ReadTree(*done);
}

std::string FragmentBrowser::RowText(const fragments::FragmentEntry& entry) {
  return Blanks(entry.depth * 2) + entry.name + (entry.is_folder && entry.depth > 0 ? "\\" : "");
}

const fragments::FragmentEntry* FragmentBrowser::Selected() const {
  const int selected = fields_.front().selected;  // the tree comes first
  if (selected < 0 || selected >= static_cast<int>(tree_.entries.size())) return nullptr;
  const fragments::FragmentEntry& entry = tree_.entries[static_cast<std::size_t>(selected)];
  return entry.is_folder ? nullptr : &entry;
}

void FragmentBrowser::Changed(std::string_view id) {
  if (id != kFragmentTree) return;
  text_.clear();
  problem_.clear();
  Field& preview = *FindField(fields_, kFragmentPreview);
  const fragments::FragmentEntry* entry = Selected();
  if (!entry) {
    preview.text.clear();
    return;
  }
  Result<std::string> text = fragments::ReadFragmentText(files_, entry->path);
  if (!text) {
    problem_ = text.error();
    preview.text = problem_;
    return;
  }
  text_ = ExpandFragment(environment_, std::move(*text), entry->include_name);
  preview.text = text_;
}

std::optional<Refusal> FragmentBrowser::Accept() {
  if (!problem_.empty()) return Refusal{problem_, std::string(kFragmentTree)};
  if (!Selected()) return Refusal{"Pick a fragment file in the code folders.",
                                  std::string(kFragmentTree)};
  return std::nullopt;
}

FragmentVariablesDialog::FragmentVariablesDialog(const std::vector<std::string>& names,
                                                 const fragments::VariableValues& last_answers) {
  for (const std::string& name : names) {
    Field field = MakeField(name, FieldKind::kText, name + ":");
    const auto last = last_answers.find(ToUpperAscii(name));
    if (last != last_answers.end()) field.text = last->second;
    fields_.push_back(field);
  }
}

fragments::VariableValues FragmentVariablesDialog::Values() const {
  fragments::VariableValues values;
  for (const Field& field : fields_) values[ToUpperAscii(field.id)] = field.text;
  return values;
}

}  // namespace tavrin::builders
