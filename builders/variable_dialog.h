// The variable builder: a name composed by the naming rules, the scope
// (local, module, global, declared with Dim, Private or Public), the type
// (simple types, Collection, the projects' classes, enums and types, or any
// typed name), As New for a class, an array with its bounds, and a preview
// of the statement.
#pragma once

#include <string>

#include "builders/declaration_target.h"
#include "builders/dialog.h"
#include "settings/naming.h"
#include "settings/type_prefixes.h"

namespace tavrin::builders {

inline constexpr std::string_view kVariableDialogTitle = "Add Variable";

// The scope list's entries, in its order (Local only in a procedure).
inline constexpr std::string_view kScopeLocal = "Local (Dim)";
inline constexpr std::string_view kScopeModule = "Module (Private)";
inline constexpr std::string_view kScopeGlobal = "Global (Public)";

class VariableDialog : public DialogModel {
 public:
  // `type`: the type chosen at first ("" for String's place in the list:
  // the typed menu entries give theirs).
  VariableDialog(DeclarationTarget target, settings::NamingRules rules,
                 settings::TypePrefixTable prefixes, std::string type = "");

  std::string Title() const override { return std::string(kVariableDialogTitle); }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  scan::DeclScope Scope() const;
  std::string Type() const;
  // The name the statement declares: the typed name with its prefixes.
  std::string DeclaredName() const;
  // "Dim lngCount As Long", "Private maItems(1 To 10) As New Collection".
  std::string Statement() const;
  Insertion Place() const { return PlaceDeclaration(target_, Scope(), Statement()); }

 private:
  const Field& F(std::string_view id) const;
  void Refresh();

  DeclarationTarget target_;
  settings::NamingRules rules_;
  settings::TypePrefixTable prefixes_;
  std::vector<Field> fields_;
};

// The scope an entry of the scope lists stands for.
scan::DeclScope ScopeOfEntry(std::string_view entry);

}  // namespace tavrin::builders
