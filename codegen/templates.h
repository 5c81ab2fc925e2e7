// Templates: code texts with placeholders ("{AUTHOR}", "{PROCEDURENAME}",
// ...), include directives ("{INCLUDE name}") and merge markers. Expanded
// for headers and for procedure pieces such as error handlers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "codegen/template_environment.h"

namespace tavrin::codegen {

enum class HeaderKind { kProcedure, kModule };

// The header file of the kind expanded for `name` (both {MODULENAME} and
// {PROCEDURENAME}); "" when there is no such file or it is empty.
std::string ExpandHeader(const TemplateEnvironment& environment, HeaderKind kind,
                         std::string_view name, std::string_view description);

// A header text expanded: see ExpandHeader. A procedure header is indented
// by the indent unit, a module header is not; the result ends with one
// CR LF.
std::string ExpandHeaderText(const TemplateEnvironment& environment, std::string_view text,
                             HeaderKind kind, std::string_view name,
                             std::string_view description);

// Expands a procedure template in place. An empty module name, procedure
// name or procedure type is taken from the active code pane when the text
// needs it. Always answers true.
bool ExpandProcedureTemplate(const TemplateEnvironment& environment, std::string& text,
                             std::string_view module_name, std::string_view procedure_name,
                             std::string_view procedure_type);

// Resolves every "{INCLUDE name}" in place with the expanded file read from
// the code folders. A directive without "}", whose file gives no text, or
// that would include a file into itself stays as written.
void ExpandIncludes(const TemplateEnvironment& environment, std::string& text,
                    std::string_view module_name, std::string_view procedure_name,
                    std::string_view procedure_type);

// "Function", "Property" or "Sub", from the words before the procedure's
// name and "(" in its declaration line.
std::string ProcedureTypeOf(std::string_view procedure_name, std::string_view declaration_line);

// Every occurrence of a placeholder, matched without regard to case.
std::string ReplacePlaceholder(std::string_view text, std::string_view placeholder,
                               std::string_view value);

// The error-handler template: the file named by the settings, or the
// built-in one.
std::string ErrorHandlerTemplate(const TemplateEnvironment& environment);

}  // namespace tavrin::codegen
