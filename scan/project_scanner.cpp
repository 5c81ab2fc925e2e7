#include "scan/project_scanner.h"

#include <algorithm>

#include "base/text.h"
#include "ide/ignore_errors.h"
#include "scan/module_text_scanner.h"

namespace tavrin::scan {
namespace {

bool IsClassLike(ide::ComponentType type) {
  using ide::ComponentType;
  return type == ComponentType::kClassModule || type == ComponentType::kVBForm ||
         type == ComponentType::kVBMDIForm || type == ComponentType::kUserControl ||
         type == ComponentType::kMSForm;
}

bool ForTheProject(const Declaration& declaration) {
  switch (declaration.kind) {
    case DeclKind::kEnum:
    case DeclKind::kEnumMember:
    case DeclKind::kType:
    case DeclKind::kTypeMember:
    case DeclKind::kConstant:
      return true;
    default:
      return false;
  }
}

ProjectSymbol SymbolOf(const std::string& project, const std::string& module,
                       Declaration declaration) {
  ProjectSymbol symbol;
  symbol.project = project;
  symbol.module = module;
  symbol.declaration = std::move(declaration);
  return symbol;
}

void ScanComponent(const std::string& project, ide::IComponent& component,
                   std::vector<ProjectSymbol>& symbols) {
  const std::string module = component.Name();
  const ide::ComponentType type = component.Type();
  if (IsClassLike(type)) {
    Declaration declaration;
    declaration.kind = DeclKind::kClass;
    declaration.scope = DeclScope::kGlobal;
    declaration.name = module;
    declaration.type = module;
    symbols.push_back(SymbolOf(project, module, std::move(declaration)));
  }
  const auto code = component.CodeModule();
  if (!code) return;
  ModuleScan scan = ScanCodeModule(*code);
  // A class's public variables are its properties: they need an object.
  const auto is_global_variable = [&](const Declaration& declaration) {
    return declaration.kind == DeclKind::kVariable && declaration.scope == DeclScope::kGlobal &&
           !IsClassLike(type);
  };
  for (Declaration& declaration : scan.declarations)
    if (ForTheProject(declaration) || is_global_variable(declaration))
      symbols.push_back(SymbolOf(project, module, std::move(declaration)));
  for (const ScannedProc& proc : scan.procedures) {
    if (proc.scope != DeclScope::kGlobal) continue;
    Declaration declaration;
    declaration.kind = DeclKind::kProcedure;
    declaration.scope = DeclScope::kGlobal;
    declaration.name = proc.name;
    declaration.type = proc.return_type;
    declaration.line = proc.line;
    symbols.push_back(SymbolOf(project, module, std::move(declaration)));
  }
}

}  // namespace

ModuleScan ScanCodeModule(ide::ICodeModule& module) {
  std::string text;
  ide::IgnoreErrors([&] { text = module.Lines(1, module.CountOfLines()); });
  return ScanModuleText(text);
}

std::vector<ProjectSymbol> ScanProjects(ide::IVbe& vbe) {
  std::vector<ProjectSymbol> symbols;
  ide::IgnoreErrors([&] {
    const auto projects = vbe.VBProjects();
    for (int p = 1; p <= projects->Count(); ++p) {
      const auto project = projects->Item(p);
      const std::string name = project->Name();
      const auto components = project->VBComponents();
      for (int c = 1; c <= components->Count(); ++c) {
        ide::IgnoreErrors([&] { ScanComponent(name, *components->Item(c), symbols); });
      }
    }
  });
  return symbols;
}

std::vector<std::string> ProjectTypeNames(const std::vector<ProjectSymbol>& symbols) {
  std::vector<std::string> names;
  for (const ProjectSymbol& symbol : symbols) {
    const DeclKind kind = symbol.declaration.kind;
    if (kind != DeclKind::kClass && kind != DeclKind::kEnum && kind != DeclKind::kType) continue;
    const std::string& name = symbol.declaration.name;
    if (std::none_of(names.begin(), names.end(),
                     [&](const std::string& known) { return EqualsIgnoreCase(known, name); }))
      names.push_back(name);
  }
  return names;
}

}  // namespace tavrin::scan
