#include "scan/module_scanner.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/text.h"
#include "ide/ignore_errors.h"

namespace tavrin::scan {
namespace {

std::string ProjectNameOf(ide::IComponent& component) {
  std::string name;
  ide::IgnoreErrors([&] {
    if (const auto project = component.Project()) name = project->Name();
  });
  return name;
}

ScannedProcedure Scan(ide::IVbe* vbe, const std::string& project, ide::IComponent& component,
                      const std::string& name, ide::ProcKind kind) {
  ScannedProcedure scanned;
  scanned.status = scanned.def.init(vbe, project, component, name, kind);
  return scanned;
}

}  // namespace

std::vector<ProcedureEntry> ListProcedures(ide::ICodeModule& module) {
  std::vector<ProcedureEntry> entries;
  // The IDE answers for the first of two procedures with one name and kind
  // (a module that does not compile); each is listed once.
  std::set<std::pair<std::string, ide::ProcKind>> listed;
  ide::IgnoreErrors([&] {
    const int count = module.CountOfLines();
    int line = module.CountOfDeclarationLines() + 1;
    while (line <= count) {
      const ide::ProcRef proc = module.ProcOfLine(line);
      if (proc.name.empty()) {
        ++line;
        continue;
      }
      ProcedureEntry entry{proc.name, proc.kind};
      entry.start_line = module.ProcStartLine(proc.name, proc.kind);
      entry.body_line = module.ProcBodyLine(proc.name, proc.kind);
      entry.count_lines = module.ProcCountLines(proc.name, proc.kind);
      // Always forward, whatever the IDE reports.
      line = std::max(line + 1, entry.start_line + entry.count_lines);
      if (listed.emplace(ToUpperAscii(proc.name), proc.kind).second)
        entries.push_back(std::move(entry));
    }
  });
  return entries;
}

std::vector<ScannedProcedure> ScanModule(ide::IVbe* vbe, ide::IComponent& component) {
  std::vector<ScannedProcedure> scanned;
  std::shared_ptr<ide::ICodeModule> module;
  ide::IgnoreErrors([&] { module = component.CodeModule(); });
  if (!module) return scanned;
  const std::string project = ProjectNameOf(component);
  for (const ProcedureEntry& entry : ListProcedures(*module))
    scanned.push_back(Scan(vbe, project, component, entry.name, entry.kind));
  return scanned;
}

std::optional<ScannedProcedure> ScanProcedureAt(ide::IVbe* vbe, ide::IComponent& component,
                                                int line) {
  ide::ProcRef proc;
  ide::IgnoreErrors([&] {
    if (const auto module = component.CodeModule()) proc = module->ProcOfLine(line);
  });
  if (proc.name.empty()) return std::nullopt;
  return Scan(vbe, ProjectNameOf(component), component, proc.name, proc.kind);
}

}  // namespace tavrin::scan
