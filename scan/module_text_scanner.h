// The declarations of a module read from its code text in one pass: the
// declaration area (variables, constants, enums and types with their
// members, Declare statements) and every procedure with its arguments,
// local variables, constants and labels. Continued lines are joined,
// comments and string literals are skipped, keywords match without regard
// to case. Code that does not compile is read as far as it makes sense;
// nothing is refused.
#pragma once

#include <string_view>

#include "scan/declarations.h"

namespace tavrin::scan {

// `code`: the module's lines (CR LF or any line break), the first being
// line 1; Attribute lines, if present, are skipped.
ModuleScan ScanModuleText(std::string_view code);

// The procedure that holds a line (from its declaration to its End line);
// null in the declaration area and between procedures.
const ScannedProc* ProcedureAtLine(const ModuleScan& scan, int line);

// The declarations visible at a line: the procedure's locals (when the line
// is in one), then the module's declarations, the nearer first.
std::vector<const Declaration*> DeclarationsInScope(const ModuleScan& scan, int line);

}  // namespace tavrin::scan
