// The code that is shown as a page: a whole module, or one procedure from
// its declaration line to its end.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ide/object_model.h"

namespace tavrin::transform {

// The module's code lines joined by CR LF, no line break after the last.
std::string ModuleCodeText(ide::ICodeModule& module);

struct ProcedureCode {
  std::string name;  // as the module spells it
  std::string text;
};

// The first procedure of that name (any kind, case-insensitive); nullopt
// when the module has none.
std::optional<ProcedureCode> ProcedureCodeText(ide::ICodeModule& module, std::string_view name);

}  // namespace tavrin::transform
