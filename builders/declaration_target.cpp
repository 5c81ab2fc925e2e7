#include "builders/declaration_target.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "builders/procedure_dialog.h"
#include "scan/module_text_scanner.h"
#include "settings/naming.h"

namespace tavrin::builders {
namespace {

using scan::DeclKind;
using scan::DeclScope;
using scan::Declaration;

std::string_view KindWord(DeclKind kind) {
  switch (kind) {
    case DeclKind::kVariable: return "variable";
    case DeclKind::kConstant: return "constant";
    case DeclKind::kEnum: return "enum";
    case DeclKind::kEnumMember: return "enum member";
    case DeclKind::kType: return "type";
    case DeclKind::kTypeMember: return "type member";
    case DeclKind::kDeclare: return "declared procedure";
    case DeclKind::kArgument: return "argument";
    case DeclKind::kLabel: return "label";
    case DeclKind::kClass: return "class";
    case DeclKind::kProcedure: return "procedure";
  }
  return "name";
}

std::string Clash(std::string_view name, const Declaration& with, std::string_view where) {
  return "The name '" + std::string(name) + "' is already used by the " +
         std::string(KindWord(with.kind)) + " '" + with.name + "' " + std::string(where) + ".";
}

std::string OnLine(int line, const std::string& module) {
  return "on line " + std::to_string(line) + " of " + module;
}

}  // namespace

const scan::ScannedProc* DeclarationTarget::Procedure() const {
  return scan::ProcedureAtLine(module, caret_line);
}

std::string_view ScopeKeyword(DeclScope scope) {
  return scope == DeclScope::kLocal ? "Dim" : scope == DeclScope::kModule ? "Private" : "Public";
}

int ScopeCodeOf(DeclScope scope) {
  return scope == DeclScope::kLocal    ? settings::kScopeLocal
         : scope == DeclScope::kModule ? settings::kScopeModule
                                       : settings::kScopeGlobal;
}

Insertion PlaceDeclaration(const DeclarationTarget& target, DeclScope scope,
                           std::string_view statement) {
  const scan::ScannedProc* proc = target.Procedure();
  if (scope == DeclScope::kLocal && proc) {
    const std::string indent = target.declaration_indented ? target.indent : "";
    return {proc->last_declaration_line + 1, indent + std::string(statement)};
  }
  return {target.module.last_declaration_line + 1, std::string(statement)};
}

std::optional<std::string> NameClash(const DeclarationTarget& target, std::string_view name,
                                     DeclScope scope) {
  const std::string_view wanted = TrimBlanks(name);
  const auto same = [&](const std::string& other) { return EqualsIgnoreCase(other, wanted); };
  if (scope == DeclScope::kLocal) {
    if (const scan::ScannedProc* proc = target.Procedure())
      for (const Declaration& local : proc->locals)
        if (same(local.name)) return Clash(wanted, local, OnLine(local.line, target.module_name));
  }
  for (const Declaration& declaration : target.module.declarations)
    if (declaration.kind != DeclKind::kTypeMember && same(declaration.name))
      return Clash(wanted, declaration, OnLine(declaration.line, target.module_name));
  for (const scan::ScannedProc& proc : target.module.procedures) {
    if (!same(proc.name)) continue;
    Declaration as_declaration;
    as_declaration.kind = DeclKind::kProcedure;
    as_declaration.name = proc.name;
    return Clash(wanted, as_declaration, OnLine(proc.line, target.module_name));
  }
  // A referenced library's constant or enum member would be hidden by the
  // new name, quietly changing what code that means the library's value gets.
  for (const scan::ProjectSymbol& symbol : target.libraries) {
    const Declaration& declaration = symbol.declaration;
    if ((declaration.kind == DeclKind::kConstant || declaration.kind == DeclKind::kEnumMember) &&
        same(declaration.name))
      return Clash(wanted, declaration, "of the library " + symbol.project);
  }
  if (scope != DeclScope::kGlobal) return std::nullopt;
  for (const scan::ProjectSymbol& symbol : target.project) {
    const Declaration& declaration = symbol.declaration;
    if (symbol.module == target.module_name || declaration.scope != DeclScope::kGlobal ||
        declaration.kind == DeclKind::kTypeMember || !same(declaration.name))
      continue;
    return Clash(wanted, declaration, "in " + symbol.project + "." + symbol.module);
  }
  return std::nullopt;
}

std::vector<std::string> TypeChoices(const DeclarationTarget& target) {
  std::vector<std::string> types = SimpleTypes();
  types.push_back("Collection");
  const auto add = [&types](const std::string& name) {
    if (std::none_of(types.begin(), types.end(),
                     [&](const std::string& known) { return EqualsIgnoreCase(known, name); }))
      types.push_back(name);
  };
  for (const std::string& name : scan::ProjectTypeNames(target.project)) add(name);
  for (const scan::ProjectSymbol& symbol : target.libraries)
    if (symbol.declaration.kind == DeclKind::kClass) add(symbol.declaration.name);
  return types;
}

bool IsSimpleType(std::string_view type) {
  static constexpr std::array<std::string_view, 16> kSimple = {
      "Boolean", "Byte",    "Currency", "Date",    "Double", "Integer", "Long",    "LongLong",
      "LongPtr", "Object",  "Single",   "String",  "Variant", "Decimal", "Any",    "Error"};
  const std::string_view name = TrimBlanks(type);
  return std::any_of(kSimple.begin(), kSimple.end(),
                     [&](std::string_view simple) { return EqualsIgnoreCase(simple, name); }) ||
         StartsWithIgnoreCase(name, "String *");
}

bool IsClassType(const DeclarationTarget& target, std::string_view type) {
  const std::string_view name = TrimBlanks(type);
  if (name.empty() || IsSimpleType(name)) return false;
  const auto is_enum_or_type = [&](const scan::ProjectSymbol& symbol) {
    const DeclKind kind = symbol.declaration.kind;
    return (kind == DeclKind::kEnum || kind == DeclKind::kType) &&
           EqualsIgnoreCase(symbol.declaration.name, name);
  };
  return std::none_of(target.project.begin(), target.project.end(), is_enum_or_type) &&
         std::none_of(target.libraries.begin(), target.libraries.end(), is_enum_or_type);
}

std::optional<std::string> TypeProblem(std::string_view type) {
  const std::string_view name = TrimBlanks(type);
  if (name.empty()) return "Choose or type the type.";
  if (StartsWithIgnoreCase(name, "String *")) {  // a fixed-length string
    const std::string_view length = TrimBlanks(name.substr(8));
    if (!length.empty() && std::all_of(length.begin(), length.end(),
                                       [](char c) { return c >= '0' && c <= '9'; }))
      return std::nullopt;
  }
  bool part_start = true;
  for (const char c : name) {
    const unsigned char u = static_cast<unsigned char>(c);
    const bool letter = (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || u >= 0x80;
    const bool digit = u >= '0' && u <= '9';
    if (c == '.' && !part_start) {
      part_start = true;
      continue;
    }
    if (part_start ? !letter : !(letter || digit || c == '_'))
      return "'" + std::string(name) + "' is not a type name.";
    part_start = false;
  }
  if (part_start) return "'" + std::string(name) + "' is not a type name.";
  return std::nullopt;
}

}  // namespace tavrin::builders
