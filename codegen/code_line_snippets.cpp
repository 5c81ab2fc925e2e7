#include "codegen/code_line_snippets.h"

#include <array>

#include "base/text.h"
#include "codegen/snippets.h"
#include "resources/string_table.h"

namespace tavrin::codegen {
namespace {

using resources::LoadResString;

// The caret marker that the code pane operations resolve after insertion.
constexpr std::string_view kCursor = "<cursor>";

constexpr std::array<LineCommand, 6> kLineCommands = {{
    {"On Error GoTo", "Label", false, true, false, LabelChoice::kLabels, true},
    {"On Error Resume Next", "", false, false, false},
    {"On Error GoTo 0", "", false, false, false},
    // An empty answer resumes at the failing statement; "Next" after it.
    {"Resume", "Label (empty: the failing statement; Next: the one after it)", true, false,
     false, LabelChoice::kLabelsAndNext},
    {"GoTo", "Label", false, false, false, LabelChoice::kLabels},
    {"Debug.Print ", "Expression", false, false, true, LabelChoice::kNone, false, true},
}};

void AppendLine(std::string& text, std::string_view margin, std::string_view line) {
  text.append(margin).append(line).append(kCrLf);
}

}  // namespace

std::optional<SelectCaseForm> SelectCaseFormOf(std::string_view command_name) {
  if (command_name == "Select Case") return SelectCaseForm::kSelectCase;
  if (command_name == "Select Case Else") return SelectCaseForm::kSelectCaseElse;
  if (command_name == "Select Case UCase") return SelectCaseForm::kSelectCaseUCase;
  return std::nullopt;
}

CaseValues CaseValuesFor(SelectCaseForm form, bool in_function, std::string_view return_type) {
  if (form == SelectCaseForm::kSelectCaseUCase) return CaseValues::kText;
  if (!in_function) return CaseValues::kPlain;
  if (EqualsIgnoreCase(return_type, "String")) return CaseValues::kText;
  if (EqualsIgnoreCase(return_type, "Boolean")) return CaseValues::kBoolean;
  return CaseValues::kPlain;
}

std::string SelectCaseText(SelectCaseForm form, CaseValues values, std::string_view expression,
                           std::string_view margin, std::string_view unit) {
  const std::string case_word(LoadResString(kCase));
  const std::string case_margin = std::string(margin) + std::string(unit);
  const std::string body = std::string(unit) + std::string(unit);
  // The caret goes to the first thing left to type: the expression when
  // none was given, else the first Case.
  const std::string_view at_expression = expression.empty() ? kCursor : "";
  const std::string_view at_case = expression.empty() ? "" : kCursor;
  std::string first = std::string(LoadResString(kSelectCase)) + " ";
  if (form == SelectCaseForm::kSelectCaseUCase)
    first += "UCase(" + std::string(expression) + std::string(at_expression) + ")";
  else
    first += std::string(expression) + std::string(at_expression);

  std::string text;
  AppendLine(text, margin, first);
  switch (values) {
    case CaseValues::kPlain:
      AppendLine(text, case_margin, case_word + " " + std::string(at_case));
      AppendLine(text, margin, body);
      break;
    case CaseValues::kText:
      AppendLine(text, case_margin, case_word + " \"" + std::string(at_case) + "\"");
      AppendLine(text, margin, body);
      break;
    case CaseValues::kBoolean:
      AppendLine(text, case_margin, case_word + " True");
      AppendLine(text, margin, body + std::string(at_case));
      AppendLine(text, case_margin, case_word + " False");
      AppendLine(text, margin, body);
      break;
  }
  if (form == SelectCaseForm::kSelectCaseElse) {
    AppendLine(text, case_margin, LoadResString(kCaseElse));
    AppendLine(text, margin, body);
  }
  text.append(margin).append(LoadResString(kEndSelect));
  return text;
}

std::string StatementLine(std::string_view statement, std::string_view margin) {
  return std::string(margin) + std::string(statement) + std::string(kCursor);
}

const LineCommand* LineCommandOf(std::string_view command_name) {
  for (const LineCommand& command : kLineCommands)
    if (command.command_name == command_name) return &command;
  return nullptr;
}

std::string LineCommandStatement(const LineCommand& command, std::string_view answer) {
  const std::string_view name = command.command_name;
  const std::string value(TrimBlanks(answer));
  if (name == "Resume") return value.empty() ? "Resume" : "Resume " + value;
  if (name == "On Error GoTo" || name == "GoTo") return std::string(name) + " " + value;
  if (name == "Debug.Print ") return std::string(name) + value;
  return std::string(name);
}

std::string ExitStatement(std::string_view procedure_type) {
  return "Exit " + std::string(procedure_type);
}

}  // namespace tavrin::codegen
