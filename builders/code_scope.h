// What the code-line dialogs offer: the labels of a procedure and the object
// variables a With block can name. Read from the code text alone, so a type
// is an object type when it is not one of the language's simple types.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scan/proc_arguments.h"

namespace tavrin::builders {

// The line labels of a procedure ("Retry:" at the start of a body line), in
// line order. Line numbers are not offered: GoTo to a number is rare.
std::vector<std::string> LabelsOf(std::string_view procedure_code);

// The variables of an object type visible in a procedure: its arguments, its
// own Dim and Static lines, then the module's declarations; a name declared
// twice is offered once (the nearest declaration hides the farther one).
std::vector<std::string> ObjectVariablesOf(std::string_view declarations,
                                           std::string_view procedure_code,
                                           const scan::C4_ProcArguments& arguments);

// Every variable visible in a procedure, of any type, in the same order.
std::vector<std::string> VariablesOf(std::string_view declarations,
                                     std::string_view procedure_code,
                                     const scan::C4_ProcArguments& arguments);

}  // namespace tavrin::builders
