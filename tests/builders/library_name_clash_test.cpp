// The declaration builders' name check against the referenced libraries: a
// library's constants and enum members are refused at every scope, since the
// new name would hide them; its classes and procedures are not names a
// declaration hides.
#include <gtest/gtest.h>

#include "builders/declaration_target.h"

namespace tavrin::builders {
namespace {

scan::ProjectSymbol LibraryMember(scan::DeclKind kind, std::string library, std::string name) {
  scan::ProjectSymbol symbol;
  symbol.project = std::move(library);
  symbol.module = symbol.project;
  symbol.declaration.kind = kind;
  symbol.declaration.scope = scan::DeclScope::kGlobal;
  symbol.declaration.name = std::move(name);
  return symbol;
}

TEST(LibraryNameClashTest, LibraryConstantsAndEnumMembersAreTaken) {
  DeclarationTarget target;
  target.module_name = "Module1";
  target.libraries = {LibraryMember(scan::DeclKind::kConstant, "VBA", "vbCrLf"),
                      LibraryMember(scan::DeclKind::kEnumMember, "stdole", "Checked"),
                      LibraryMember(scan::DeclKind::kClass, "stdole", "StdFont"),
                      LibraryMember(scan::DeclKind::kProcedure, "VBA", "Left")};
  const struct {
    const char* name;
    scan::DeclScope scope;
    std::optional<std::string> clash;
  } cases[] = {
      {"VBCRLF", scan::DeclScope::kLocal,
       "The name 'VBCRLF' is already used by the constant 'vbCrLf' of the library VBA."},
      {"Checked", scan::DeclScope::kGlobal,
       "The name 'Checked' is already used by the enum member 'Checked' of the library stdole."},
      {"StdFont", scan::DeclScope::kModule, std::nullopt},
      {"Left", scan::DeclScope::kModule, std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(NameClash(target, c.name, c.scope), c.clash) << c.name;
}

}  // namespace
}  // namespace tavrin::builders
