#include "builders/names_in_scope.h"

#include <unordered_set>

#include "base/text.h"
#include "scan/module_text_scanner.h"

namespace tavrin::builders {
namespace {

bool IsValue(const scan::Declaration& declaration) {
  return declaration.kind == scan::DeclKind::kVariable ||
         declaration.kind == scan::DeclKind::kConstant ||
         declaration.kind == scan::DeclKind::kArgument;
}

}  // namespace

std::vector<std::string> NamesInScope(const DeclarationTarget& target) {
  std::vector<std::string> names;
  std::unordered_set<std::string> seen;  // upper-cased
  const auto offer = [&](const std::string& name) {
    if (seen.insert(ToUpperAscii(name)).second) names.push_back(name);
  };
  for (const scan::Declaration* declaration :
       scan::DeclarationsInScope(target.module, target.caret_line))
    if (IsValue(*declaration)) offer(declaration->name);
  // A class's public members need an object: only standard modules count.
  std::unordered_set<std::string> classes;
  for (const scan::ProjectSymbol& symbol : target.project)
    if (symbol.declaration.kind == scan::DeclKind::kClass) classes.insert(symbol.module);
  for (const scan::ProjectSymbol& symbol : target.project) {
    const scan::Declaration& declaration = symbol.declaration;
    if (symbol.module != target.module_name && declaration.scope == scan::DeclScope::kGlobal &&
        IsValue(declaration) && !classes.contains(symbol.module))
      offer(declaration.name);
  }
  return names;
}

}  // namespace tavrin::builders
