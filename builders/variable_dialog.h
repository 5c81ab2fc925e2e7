// The variable builder: a name composed by the naming rules, the scope
// (local, module, global, declared with Dim, Private or Public), the type
// (simple types, Collection, the projects' classes, enums and types, or any
// typed name), As New for a class, an array with its bounds, and a preview
// of the statement.
#pragma once

#include <string>

#include "builders/declaration_dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kVariableDialogTitle = "Add Variable";

// The scope list's entries, in its order (Local only in a procedure).
inline constexpr std::string_view kScopeLocal = "Local (Dim)";
inline constexpr std::string_view kScopeModule = "Module (Private)";
inline constexpr std::string_view kScopeGlobal = "Global (Public)";

class VariableDialog : public DeclarationDialog {
 public:
  // `type`: the type chosen at first ("" for String's place in the list:
  // the typed menu entries give theirs).
  VariableDialog(DeclarationTarget target, settings::NamingRules rules,
                 settings::TypePrefixTable prefixes, std::string type = "");

  std::string Title() const override { return std::string(kVariableDialogTitle); }
  std::optional<Refusal> Accept() override;

  scan::DeclScope Scope() const override;
  std::string Type() const override;
  std::string DeclaredName() const override { return ComposedName(false); }
  // "Dim lngCount As Long", "Private maItems(1 To 10) As New Collection".
  std::string Statement() const override;

 private:
  void Refresh() override;
};

// The scope an entry of the scope lists stands for.
scan::DeclScope ScopeOfEntry(std::string_view entry);

}  // namespace tavrin::builders
