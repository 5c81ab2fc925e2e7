// The project scanner: what the open projects declare for the whole project
// to use (enums with their members, user-defined types, module-level
// constants, the public variables of standard modules, classes and public
// procedures), each with the project and module that declare it. Every
// module's text is read once, so a scan is linear in the size of the
// projects.
#pragma once

#include <string>
#include <vector>

#include "ide/object_model.h"
#include "scan/declarations.h"

namespace tavrin::scan {

// The module's whole text read in one call and scanned; an empty scan when
// the IDE cannot read it.
ModuleScan ScanCodeModule(ide::ICodeModule& module);

struct ProjectSymbol {
  std::string project;
  std::string module;
  Declaration declaration;
};

// In project, module and line order. A module the IDE cannot read is
// skipped; the others are still scanned.
std::vector<ProjectSymbol> ScanProjects(ide::IVbe& vbe);

// The type names a declaration can use from the symbols: classes, enums and
// types, each once, in the order found.
std::vector<std::string> ProjectTypeNames(const std::vector<ProjectSymbol>& symbols);

}  // namespace tavrin::scan
