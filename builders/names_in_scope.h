// "Insert Varia&ble...": the variables and constants a statement at the
// caret can name, offered in the list dialog; the one picked is typed at
// the caret.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "builders/declaration_target.h"

namespace tavrin::builders {

inline constexpr std::string_view kInsertVariableTitle = "Insert Variable";
inline constexpr std::string_view kInsertVariablePrompt = "Variable";

// The nearest first: the arguments, variables and constants of the
// procedure at the caret, then the module's variables and constants, then
// the public variables and constants of the projects' other standard
// modules. A name hidden by a nearer one is offered once (case ignored).
std::vector<std::string> NamesInScope(const DeclarationTarget& target);

}  // namespace tavrin::builders
