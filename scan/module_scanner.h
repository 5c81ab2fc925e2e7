// The procedures of a code module, as the IDE reports them, and their parsed
// declarations. Works over any code module of the IDE model.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "ide/object_model.h"
#include "scan/proc_def.h"

namespace tavrin::scan {

struct ProcedureEntry {
  std::string name;
  ide::ProcKind kind = ide::ProcKind::kProc;
  int start_line = 0;  // comments and blank lines above included
  int body_line = 0;   // the declaration
  int count_lines = 0;
};

// Every procedure of the module in line order, one entry per name and kind.
// A module the IDE cannot read gives the procedures read so far.
std::vector<ProcedureEntry> ListProcedures(ide::ICodeModule& module);

struct ScannedProcedure {
  C4_ProcDef def;
  Status status;  // a duplicate argument name; the record is kept
};

// Every procedure of a component, parsed. `vbe` gives the active project
// (may be null).
std::vector<ScannedProcedure> ScanModule(ide::IVbe* vbe, ide::IComponent& component);

// The procedure that holds a line; nullopt in the declarations section or
// when the IDE cannot tell.
std::optional<ScannedProcedure> ScanProcedureAt(ide::IVbe* vbe, ide::IComponent& component,
                                                int line);

}  // namespace tavrin::scan
