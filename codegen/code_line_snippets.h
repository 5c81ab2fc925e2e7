// The texts of the code-line commands beyond the If, loop and With blocks:
// the Select Case family, the error-handling lines, Exit, GoTo and
// Debug.Print. Pure text builders like snippets.h: margin and unit in, text
// out, with a "<cursor>" marker where the caret goes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::codegen {

enum class SelectCaseForm {
  kSelectCase,      // "Select Case"
  kSelectCaseElse,  // "Select Case Else": ends with a Case Else part
  kSelectCaseUCase, // "Select Case UCase": the expression in UCase(), text cases
};

std::optional<SelectCaseForm> SelectCaseFormOf(std::string_view command_name);

// How the Case values are written: by the return type of the function the
// block goes into.
enum class CaseValues {
  kPlain,    // Case, the value to be typed
  kText,     // Case "", the text to be typed between the quotes
  kBoolean,  // Case True and Case False, each with its body line
};

CaseValues CaseValuesFor(SelectCaseForm form, bool in_function, std::string_view return_type);

// The block; with an empty expression the caret goes to the Select Case
// line, else to the first Case value (or, for True/False, its body line).
std::string SelectCaseText(SelectCaseForm form, CaseValues values, std::string_view expression,
                           std::string_view margin, std::string_view unit);

// One statement line with the caret at its end: M + statement + "<cursor>".
std::string StatementLine(std::string_view statement, std::string_view margin);

// The one-line commands and the statement each writes, given the answer
// the command asked for (empty when it asks nothing).
// What the label list of a GoTo or Resume offers.
enum class LabelChoice { kNone, kLabels, kLabelsAndNext };

struct LineCommand {
  std::string_view command_name;
  std::string_view prompt;  // empty: asks nothing
  bool default_is_exit_label = false;
  bool default_is_error_label = false;
  bool default_is_selection = false;
  // Picked from the procedure's labels when a list dialog is at hand.
  LabelChoice labels = LabelChoice::kNone;
  // The default label is offered even when the procedure lacks it yet.
  bool offers_default = false;
  // Picked among the variables in scope, with "<Expression>" for any other.
  bool picks_expression = false;
};

const LineCommand* LineCommandOf(std::string_view command_name);
std::string LineCommandStatement(const LineCommand& command, std::string_view answer);

// "Exit Sub", "Exit Function" or "Exit Property".
std::string ExitStatement(std::string_view procedure_type);

}  // namespace tavrin::codegen
