#include "addin/code_line_commands.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "addin/code_pane.h"
#include "addin/ignore_errors.h"
#include "base/text.h"
#include "base/utf8.h"
#include "builders/code_scope.h"
#include "builders/list_dialog.h"
#include "codegen/code_line_snippets.h"
#include "codegen/settings_environment.h"
#include "codegen/template_merge.h"
#include "codegen/templates.h"
#include "scan/module_scanner.h"

namespace tavrin::addin {
namespace {

// The procedure that holds the caret, read before anything is inserted.
std::optional<scan::ScannedProcedure> ProcedureAtCaret(Context& context) {
  std::optional<scan::ScannedProcedure> found;
  IgnoreErrors([&] {
    const auto pane = context.vbe.ActiveCodePane();
    if (!pane) return;
    const auto component = pane->CodeModule()->Parent();
    if (!component) return;
    found = scan::ScanProcedureAt(&context.vbe, *component, pane->GetSelection().start_line);
  });
  return found;
}

// "Sub", "Function" or "Property", as the Exit statement names it.
std::string ProcedureTypeOf(const scan::C4_ProcDef& def) {
  if (def.ProcKind() != 0) return "Property";
  return def.ProcIsFunction() ? "Function" : "Sub";
}

// The selected text when the selection lies within one line, else "".
std::string SelectedText(Context& context) {
  std::string selected;
  IgnoreErrors([&] {
    const auto pane = context.vbe.ActiveCodePane();
    if (!pane) return;
    const ide::TextRange range = pane->GetSelection();
    if (range.IsCaret() || range.start_line != range.end_line) return;
    const std::string line = pane->CodeModule()->Lines(range.start_line, 1);
    const std::size_t start = utf8::OffsetOfColumn(line, range.start_column);
    const std::size_t end = utf8::OffsetOfColumn(line, range.end_column);
    if (start < end) selected = std::string(TrimBlanks(std::string_view(line).substr(start, end - start)));
  });
  return selected;
}

// Inserts a block holding a "<cursor>" marker at the caret and puts the
// caret where the marker stood.
void InsertWithCursor(Context& context, std::string_view text) {
  const int first_line = InsertBlock(context, text, 0);
  if (first_line > 0) PlaceCursorMarker(context, first_line, false);
}

// Where a line of the old text stands in the new one, which holds the old
// lines in their order with lines inserted between them.
int NewIndexOf(const std::vector<std::string_view>& old_lines,
               const std::vector<std::string_view>& new_lines, int old_index) {
  int at = 0;
  for (int i = 0; i <= old_index && i < static_cast<int>(old_lines.size()); ++i) {
    while (at < static_cast<int>(new_lines.size()) && new_lines[at] != old_lines[i]) ++at;
    if (i < old_index) ++at;
  }
  return at;
}

// The preparatory step of {ERRORHANDLEPROCEDURE}: the error handler calls a
// procedure of the error-handling module, which the project must hold.
void CheckErrorModule(Context& context, const codegen::TemplateSettings& settings) {
  bool present = true;
  std::string project_name;
  IgnoreErrors([&] {
    const auto project = context.vbe.ActiveCodePane()->CodeModule()->Parent()->Project();
    project_name = project->Name();
    present = false;
    project->VBComponents()->Item(settings.error_module);
    present = true;
  });
  if (present) return;
  context.ui.MessageBox("The project " + project_name + " has no module " +
                            settings.error_module + " with the procedure " +
                            settings.error_procedure +
                            " that the error handler calls.\r\nAdd the module from the "
                            "ErrorHandlers code folder.",
                        platform::Buttons::kOk, platform::Icon::kInformation,
                        platform::kAppTitle);
}

// The label for GoTo or Resume, picked among the labels of the procedure at
// the caret. "<New Label>" stands for a typed name, or for nothing: the user
// goes on typing in the code.
std::optional<std::string> PickLabel(Context& context, const codegen::LineCommand& command,
                                     std::string_view title, const std::string& initial) {
  std::vector<std::string> entries;
  if (command.labels == codegen::LabelChoice::kLabelsAndNext) entries.push_back("Next");
  if (const auto procedure = ProcedureAtCaret(context)) {
    for (std::string& label : builders::LabelsOf(procedure->def.ProcCode()))
      entries.push_back(std::move(label));
  }
  if (command.offers_default && !initial.empty() &&
      std::find(entries.begin(), entries.end(), initial) == entries.end())
    entries.push_back(initial);
  builders::ListDialog dialog(std::string(title), std::string(command.prompt), entries,
                              std::string(builders::kNewLabel), initial);
  if (!context.dialogs->Show(dialog)) return std::nullopt;
  return dialog.Choice();
}

// The code of the declarations and of the procedure at the caret, for the
// variables in scope.
std::vector<std::string> VariablesInScope(Context& context, bool objects_only) {
  std::vector<std::string> names;
  IgnoreErrors([&] {
    const auto pane = context.vbe.ActiveCodePane();
    if (!pane) return;
    const auto module = pane->CodeModule();
    const int count = module->CountOfDeclarationLines();
    const std::string declarations = count > 0 ? module->Lines(1, count) : "";
    const auto procedure = ProcedureAtCaret(context);
    const std::string code = procedure ? procedure->def.ProcCode() : "";
    const scan::C4_ProcArguments none;
    const scan::C4_ProcArguments& arguments = procedure ? procedure->def.ProcArguments() : none;
    names = objects_only ? builders::ObjectVariablesOf(declarations, code, arguments)
                         : builders::VariablesOf(declarations, code, arguments);
  });
  return names;
}

// The expression of Debug.Print: a variable in scope, or "<Expression>"
// standing for the typed text; the selection is typed in at first.
std::optional<std::string> PickExpression(Context& context, std::string_view title,
                                          const codegen::LineCommand& command,
                                          std::string selected) {
  builders::ListDialog dialog(std::string(title), std::string(command.prompt),
                              VariablesInScope(context, false),
                              std::string(builders::kExpression));
  if (!selected.empty()) {
    // The selection is an expression as it stands: a variable that merely
    // starts with it is not meant.
    dialog.TypeFilter(selected);
    builders::Field& list = *builders::FindField(dialog.Fields(), builders::kListId);
    const auto exact = std::find(list.items.begin(), list.items.end(), selected);
    list.selected = exact != list.items.end() ? static_cast<int>(exact - list.items.begin()) : 0;
  }
  if (!context.dialogs->Show(dialog)) return std::nullopt;
  return dialog.Choice();
}

}  // namespace

std::optional<std::string> AskWithObject(Context& context) {
  if (!context.dialogs) return context.ui.InputBox("Object expression", "With", "");
  const std::vector<std::string> objects = VariablesInScope(context, true);
  builders::ListDialog dialog("With", "Object", objects, std::string(builders::kStartTyping));
  if (!context.dialogs->Show(dialog)) return std::nullopt;
  return dialog.Choice();
}

codegen::TemplateEnvironment TemplateEnvironmentOf(Context& context) {
  codegen::TemplateEnvironment environment;
  if (context.settings) {
    environment.settings = codegen::TemplateSettingsFrom(*context.settings);
    if (context.files)
      environment.read_code_file = codegen::CodeFileReader(*context.settings, *context.files);
  }
  environment.indent_unit = IndentString(context.ide_options);
  environment.vbe = &context.vbe;
  return environment;
}

bool IsCodeLineCommand(std::string_view command_name) {
  return codegen::SelectCaseFormOf(command_name) || codegen::LineCommandOf(command_name) ||
         command_name == "Exit" || command_name == "ErrorHandling";
}

bool ReadsSettings(std::string_view command_name) {
  return command_name == "On Error GoTo" || command_name == "Resume" ||
         command_name == "ErrorHandling";
}

void InsertCodeLineCommand(Context& context, std::string_view command_name) {
  if (codegen::SelectCaseFormOf(command_name))
    InsertSelectCase(context, command_name);
  else if (command_name == "Exit")
    InsertExit(context);
  else if (command_name == "ErrorHandling")
    InsertErrorHandling(context);
  else
    InsertLineCommand(context, command_name);
}

void InsertSelectCase(Context& context, std::string_view command_name) {
  const auto form = codegen::SelectCaseFormOf(command_name);
  if (!form) return;
  const auto expression = context.ui.InputBox("Expression", command_name, SelectedText(context));
  if (!expression) return;
  const auto procedure = ProcedureAtCaret(context);
  const codegen::CaseValues values = codegen::CaseValuesFor(
      *form, procedure && procedure->def.ProcIsFunction(),
      procedure ? procedure->def.ProcReturnType() : "");
  InsertWithCursor(context, codegen::SelectCaseText(*form, values, TrimBlanks(*expression),
                                                    Blanks(CaretMargin(context)),
                                                    IndentString(context.ide_options)));
}

void InsertLineCommand(Context& context, std::string_view command_name) {
  const codegen::LineCommand* command = codegen::LineCommandOf(command_name);
  if (!command) return;
  std::string answer;
  if (!command->prompt.empty()) {
    const codegen::TemplateSettings settings = TemplateEnvironmentOf(context).settings;
    std::string default_text;
    if (command->default_is_error_label) default_text = settings.error_label;
    if (command->default_is_exit_label) default_text = settings.exit_label;
    if (command->default_is_selection) default_text = SelectedText(context);
    const std::string_view title = TrimBlanks(command_name);
    const auto given =
        !context.dialogs ? context.ui.InputBox(command->prompt, title, default_text)
        : command->picks_expression ? PickExpression(context, title, *command, default_text)
        : command->labels != codegen::LabelChoice::kNone
            ? PickLabel(context, *command, title, default_text)
            : context.ui.InputBox(command->prompt, title, default_text);
    if (!given) return;
    answer = *given;
  }
  InsertWithCursor(context, codegen::StatementLine(
                                codegen::LineCommandStatement(*command, answer),
                                Blanks(CaretMargin(context))));
}

void InsertExit(Context& context) {
  const auto procedure = ProcedureAtCaret(context);
  if (!procedure) return;
  InsertWithCursor(context,
                   codegen::StatementLine(codegen::ExitStatement(ProcedureTypeOf(procedure->def)),
                                          Blanks(CaretMargin(context))));
}

void InsertErrorHandling(Context& context) {
  const auto procedure = ProcedureAtCaret(context);
  if (!procedure || procedure->def.ProcCode().empty()) return;
  const scan::C4_ProcDef& def = procedure->def;
  codegen::TemplateEnvironment environment = TemplateEnvironmentOf(context);
  // A second handler would repeat its labels, which does not compile.
  for (const std::string& label :
       {environment.settings.exit_label, environment.settings.error_label}) {
    if (codegen::HasLabelLine(def.ProcCode(), label)) {
      context.ui.MessageBox("The procedure " + def.Name() + " already has the label " + label +
                                ": it has an error handler.",
                            platform::Buttons::kOk, platform::Icon::kInformation,
                            platform::kAppTitle);
      return;
    }
  }
  environment.prepare_error_procedure = [&] { CheckErrorModule(context, environment.settings); };
  std::string handler = codegen::ErrorHandlerTemplate(environment);
  codegen::ExpandProcedureTemplate(environment, handler, def.ModuleName(), def.Name(),
                                   ProcedureTypeOf(def));
  const std::string merged =
      codegen::MergeTemplate(def.ProcCode(), handler, environment.settings.exit_label);
  const auto old_lines = SplitCrLf(def.ProcCode());
  const auto new_lines = SplitCrLf(merged);
  IgnoreErrors([&] {
    const auto pane = context.vbe.ActiveCodePane();
    const auto module = pane->CodeModule();
    const ide::TextRange caret = pane->GetSelection();
    const int body = def.ProcBodyLine();
    module->DeleteLines(body, static_cast<int>(old_lines.size()));
    module->InsertLines(body, merged);
    // The caret stays on its line of code, wherever the merge moved it.
    const int old_index = caret.start_line - body;
    if (old_index >= 0 && old_index < static_cast<int>(old_lines.size())) {
      const int line = body + NewIndexOf(old_lines, new_lines, old_index);
      pane->SetSelection({line, caret.start_column, line, caret.start_column});
    }
  });
}

}  // namespace tavrin::addin
