#include "transform/code_text.h"

#include <array>

#include "ide/ignore_errors.h"

namespace tavrin::transform {

std::string ModuleCodeText(ide::ICodeModule& module) {
  const int count = module.CountOfLines();
  return count > 0 ? module.Lines(1, count) : std::string();
}

std::optional<ProcedureCode> ProcedureCodeText(ide::ICodeModule& module, std::string_view name) {
  constexpr std::array kKinds = {ide::ProcKind::kProc, ide::ProcKind::kGet, ide::ProcKind::kLet,
                                 ide::ProcKind::kSet};
  std::optional<ProcedureCode> found;
  for (const ide::ProcKind kind : kKinds) {
    // A kind the module has no such procedure of raises an error: try the next.
    ide::IgnoreErrors([&] {
      const int body = module.ProcBodyLine(name, kind);
      const int end = module.ProcStartLine(name, kind) + module.ProcCountLines(name, kind) - 1;
      found = ProcedureCode{module.ProcOfLine(body).name, module.Lines(body, end - body + 1)};
    });
    if (found) break;
  }
  return found;
}

}  // namespace tavrin::transform
