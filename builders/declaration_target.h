// What the declaration builders (variable, constant, property, enum, type)
// know of the place they write into: the module's scan, the caret, the
// symbols of the open projects, the indent. From it they answer where a new
// declaration goes and whether a name is free.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scan/declarations.h"
#include "scan/project_scanner.h"

namespace tavrin::builders {

struct DeclarationTarget {
  std::string module_name;
  bool standard_module = true;  // else a class, form or user control
  int caret_line = 1;
  scan::ModuleScan module;
  std::vector<scan::ProjectSymbol> project;  // every open project
  // The members of the libraries the projects reference (type library
  // scanner); their `project` is the library's name.
  std::vector<scan::ProjectSymbol> libraries;
  std::string indent = "    ";               // the IDE's indent unit
  bool declaration_indented = true;          // the `Declaration Indented` setting
  std::string selected_text;                 // the selection, when on one line

  // The procedure at the caret; null in the declaration area.
  const scan::ScannedProc* Procedure() const;
};

// Where a statement goes: InsertLines(line, text).
struct Insertion {
  int line = 1;
  std::string text;
};

// A new declaration of that scope: a local below the declarations at the
// top of the procedure at the caret, anything else at the end of the
// module's declaration area. Locals are indented by the indent unit when
// `Declaration Indented` is set; module-level lines never are.
Insertion PlaceDeclaration(const DeclarationTarget& target, scan::DeclScope scope,
                           std::string_view statement);

// The message naming what `name` would clash with, when declared with that
// scope; nullopt when it is free. A local must not repeat a name of its
// procedure (arguments, locals, labels) nor of its module (declarations,
// enum members, procedures); a module-level name must not repeat a name of
// its module, and a global one neither a global name of another module of
// the project. Case is ignored, as the language ignores it.
std::optional<std::string> NameClash(const DeclarationTarget& target, std::string_view name,
                                     scan::DeclScope scope);

// The types the type combos offer: the simple types, Collection, the
// projects' classes, enums and types, then the referenced libraries'
// classes.
std::vector<std::string> TypeChoices(const DeclarationTarget& target);

// True when `type` names a class (As New is possible): neither a simple type
// nor Object nor Variant nor an enum or type of the projects or libraries.
bool IsClassType(const DeclarationTarget& target, std::string_view type);

// True for a simple type of the language (Variant and Object included).
bool IsSimpleType(std::string_view type);

// A type as typed: a name, or names joined by dots ("ADODB.Recordset");
// the message when it is not.
std::optional<std::string> TypeProblem(std::string_view type);

// The keyword that declares at that scope: Dim, Private or Public.
std::string_view ScopeKeyword(scan::DeclScope scope);
// The scope code of the naming rules.
int ScopeCodeOf(scan::DeclScope scope);

}  // namespace tavrin::builders
