#include "addin/declaration_builders.h"

#include "addin/pane_command.h"
#include "addin/procedure_builder.h"
#include "addin/referenced_libraries.h"
#include "base/utf8.h"
#include "base/text.h"
#include "builders/block_dialogs.h"
#include "builders/constant_dialog.h"
#include "builders/file_dialog.h"
#include "builders/literal.h"
#include "builders/property_dialog.h"
#include "builders/variable_dialog.h"
#include "scan/project_scanner.h"

namespace tavrin::addin {
namespace {

const fragments::Settings& SettingsOf(Context& context) {
  static const fragments::Settings defaults;
  return context.settings ? *context.settings : defaults;
}

// The text of a selection on one line; "" for a caret or several lines.
std::string SelectedText(ide::ICodeModule& module, const ide::TextRange& range) {
  if (range.start_line != range.end_line || range.start_column >= range.end_column) return "";
  const std::string line = module.Lines(range.start_line, 1);
  const std::size_t from = utf8::OffsetOfColumn(line, range.start_column);
  const std::size_t to = utf8::OffsetOfColumn(line, range.end_column);
  return from < to && to <= line.size() ? line.substr(from, to - from) : "";
}

// Writes a declaration; the caret stays on its text.
void Write(ide::ICodePane& pane, ide::ICodeModule& module, const builders::Insertion& place) {
  ide::TextRange caret = pane.GetSelection();
  module.InsertLines(place.line, place.text);
  if (caret.start_line >= place.line) ++caret.start_line;
  if (caret.end_line >= place.line) ++caret.end_line;
  pane.SetSelection(caret);
}

template <typename Steps>
bool Guarded(Context& context, Steps steps) {
  return RunPaneCommand(context, /*shows_dialog=*/true, steps);
}

// Shows a builder and writes its text where it places it.
template <typename Dialog>
bool ShowAndWrite(Context& context, Dialog& dialog) {
  if (!context.dialogs->Show(dialog)) return false;
  const auto pane = context.vbe.ActiveCodePane();
  Write(*pane, *pane->CodeModule(), dialog.Place());
  return true;
}

// The constant builder shown; a picked-up literal gives way to the
// constant's name, and the caret follows it.
bool ShowConstant(Context& context, builders::ConstantDialog& dialog) {
  if (!context.dialogs->Show(dialog)) return false;
  const auto pane = context.vbe.ActiveCodePane();
  const auto module = pane->CodeModule();
  if (dialog.PickedUp()) {
    const ide::TextRange range = pane->GetSelection();
    const std::string line = module->Lines(range.start_line, 1);
    const std::size_t from = utf8::OffsetOfColumn(line, range.start_column);
    const std::size_t to = utf8::OffsetOfColumn(line, range.end_column);
    const std::string name = dialog.DeclaredName();
    module->ReplaceLine(range.start_line, line.substr(0, from) + name + line.substr(to));
    const int column = range.start_column + utf8::CharCount(name);
    pane->SetSelection({range.start_line, column, range.start_line, column});
  }
  Write(*pane, *module, dialog.Place());
  return true;
}

// The name a path suggests: its file's name without the extension, or its
// last folder (C:\Data\orders.mdb gives Orders, C:\Data\ gives Data).
std::string NameFromPath(std::string_view path, bool is_folder) {
  while (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.remove_suffix(1);
  const std::size_t slash = path.find_last_of("\\/:");
  std::string_view last = slash == std::string_view::npos ? path : path.substr(slash + 1);
  const std::size_t dot = last.rfind('.');
  if (!is_folder && dot != std::string_view::npos && dot > 0)
    last = last.substr(0, dot);
  return builders::NameFromLiteral(last);
}

}  // namespace

builders::DeclarationTarget DeclarationTargetOf(Context& context) {
  const auto pane = context.vbe.ActiveCodePane();
  const auto module = pane->CodeModule();
  const auto component = module->Parent();
  builders::DeclarationTarget target;
  target.module_name = component->Name();
  target.standard_module = component->Type() == ide::ComponentType::kStdModule;
  const ide::TextRange selection = pane->GetSelection();
  target.caret_line = selection.start_line;
  target.selected_text = SelectedText(*module, selection);
  target.module = scan::ScanCodeModule(*module);
  target.project = scan::ScanProjects(context.vbe);
  target.libraries = ReferencedLibrarySymbols(context);
  target.indent = IndentString(context.ide_options);
  target.declaration_indented = SettingsOf(context).YesNo(settings::Item::kDeclarationIndented);
  return target;
}

bool AddVariable(Context& context, std::string_view type) {
  return Guarded(context, [&] {
    const fragments::Settings& settings = SettingsOf(context);
    builders::VariableDialog dialog(DeclarationTargetOf(context), settings.Naming(),
                                    settings.type_prefixes, std::string(type));
    return ShowAndWrite(context, dialog);
  });
}

bool AddConstant(Context& context, std::string_view type) {
  return Guarded(context, [&] {
    const fragments::Settings& settings = SettingsOf(context);
    builders::ConstantDialog dialog(DeclarationTargetOf(context), settings.Naming(),
                                    settings.type_prefixes, std::string(type));
    return ShowConstant(context, dialog);
  });
}

bool AddPathConstant(Context& context, builders::FieldKind kind) {
  if (!context.files) return false;
  return Guarded(context, [&] {
    const bool folder = kind == builders::FieldKind::kFolder;
    builders::FileDialog picker(
        std::string(folder ? builders::kSelectFolderTitle : builders::kSelectFileTitle),
        folder ? "F&older:" : "&File:", *context.files, kind, "variables.html");
    if (!context.dialogs->Show(picker)) return false;
    const fragments::Settings& settings = SettingsOf(context);
    builders::DeclarationTarget target = DeclarationTargetOf(context);
    target.selected_text.clear();  // the path is the value, not a selected literal
    builders::ConstantDialog dialog(std::move(target), settings.Naming(),
                                    settings.type_prefixes, "String");
    dialog.Preset(picker.Path(), NameFromPath(picker.Path(), folder));
    return ShowConstant(context, dialog);
  });
}

bool AddProperty(Context& context, std::string_view type) {
  return Guarded(context, [&] {
    const fragments::Settings& settings = SettingsOf(context);
    builders::DeclarationTarget target = DeclarationTargetOf(context);
    if (target.standard_module) {
      TellUser(context, builders::kPropertyInStandardModule);
      return false;
    }
    builders::PropertyDialog dialog(std::move(target), settings.Naming(), settings.type_prefixes,
                                    settings.values, std::string(type));
    if (!context.dialogs->Show(dialog)) return false;
    const auto pane = context.vbe.ActiveCodePane();
    const auto module = pane->CodeModule();
    const builders::PropertySpec spec = dialog.Spec();
    const ide::ProcKind first = spec.access != builders::PropertyAccess::kWriteOnly
                                    ? ide::ProcKind::kGet
                                    : spec.is_object && !EqualsIgnoreCase(spec.type, "Variant")
                                          ? ide::ProcKind::kSet
                                          : ide::ProcKind::kLet;
    // The procedures first, below the caret's procedure; then the member
    // above them, which moves them down together.
    const builders::Insertion member = dialog.MemberPlace();
    InsertProcedureText(*module, pane->GetSelection().start_line, builders::PropertyCode(spec),
                        spec.name, first);
    module->InsertLines(member.line, member.text);
    const int line = module->ProcBodyLine(spec.name, first) + 1;
    const int column = utf8::CharCount(module->Lines(line, 1)) + 1;
    pane->SetSelection({line, column, line, column});
    return true;
  });
}

bool AddBlock(Context& context, builders::BlockKind kind) {
  return Guarded(context, [&] {
    builders::BlockDialog dialog(DeclarationTargetOf(context), kind);
    return ShowAndWrite(context, dialog);
  });
}

bool AddBlockItem(Context& context, builders::BlockKind kind) {
  return Guarded(context, [&] {
    builders::BlockItemDialog dialog(DeclarationTargetOf(context), kind);
    if (dialog.Blocks().empty()) {
      TellUser(context, builders::NoBlockMessage(kind));
      return false;
    }
    return ShowAndWrite(context, dialog);
  });
}

namespace {

builders::BlockKind BlockKindOf(std::string_view word) {
  return word == "Type" ? builders::BlockKind::kType : builders::BlockKind::kEnum;
}

}  // namespace

void RunAddVariable(CommandHost& host, std::string_view type) {
  AddVariable(host.CommandContext(), type);
}

void RunAddConstant(CommandHost& host, std::string_view type) {
  AddConstant(host.CommandContext(), type);
}

void RunAddPathConstant(CommandHost& host, std::string_view kind) {
  AddPathConstant(host.CommandContext(),
                  kind == "Folder" ? builders::FieldKind::kFolder : builders::FieldKind::kFile);
}

void RunAddProperty(CommandHost& host, std::string_view type) {
  AddProperty(host.CommandContext(), type);
}

void RunNewBlock(CommandHost& host, std::string_view kind) {
  AddBlock(host.CommandContext(), BlockKindOf(kind));
}

void RunAddBlockItem(CommandHost& host, std::string_view kind) {
  AddBlockItem(host.CommandContext(), BlockKindOf(kind));
}

}  // namespace tavrin::addin
