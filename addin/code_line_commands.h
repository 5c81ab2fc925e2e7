// The code-line commands beyond the If, loop and With blocks: the Select
// Case family, the error-handling lines, Exit, GoTo, Debug.Print and the
// error handler merged into the procedure at the caret. Each asks through
// the Ui (or, for GoTo and Resume, the list dialog) what it needs and
// inserts at the caret like the blocks do.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "addin/context.h"
#include "codegen/template_environment.h"

namespace tavrin::addin {

// "Select Case", "Select Case Else", "Select Case UCase".
void InsertSelectCase(Context& context, std::string_view command_name);

// "On Error GoTo", "On Error Resume Next", "On Error GoTo 0", "Resume",
// "GoTo", "Debug.Print ".
void InsertLineCommand(Context& context, std::string_view command_name);

// "Exit": Exit Sub, Function or Property, by the procedure at the caret;
// nothing outside a procedure.
void InsertExit(Context& context);

// "ErrorHandling": the error-handler template merged into the procedure at
// the caret; nothing outside a procedure.
void InsertErrorHandling(Context& context);

// The object expression of a With block: picked from the object variables
// in scope in the list dialog ("" for "<Start Typing>"), else typed in the
// input box; nullopt when cancelled.
std::optional<std::string> AskWithObject(Context& context);

// True for the command names above.
bool IsCodeLineCommand(std::string_view command_name);
// True for the commands that read the settings or the code folders.
bool ReadsSettings(std::string_view command_name);
// Runs one of them.
void InsertCodeLineCommand(Context& context, std::string_view command_name);

// The template environment of a command: the context's settings and code
// folders (the defaults while it has none), the indent unit and the IDE.
codegen::TemplateEnvironment TemplateEnvironmentOf(Context& context);

}  // namespace tavrin::addin
