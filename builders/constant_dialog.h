// The constant builder: a name composed by the naming rules (with the
// constant tag before or after the type tag), the scope (local, module,
// global in a standard module), the type and the value, written as the
// type's literal. A literal selected in the code is picked up: it gives the
// value, the type and a name, and the command puts the constant's name in
// its place.
#pragma once

#include <string>

#include "builders/declaration_dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kConstantDialogTitle = "Add Constant";

class ConstantDialog : public DeclarationDialog {
 public:
  // `type`: the type chosen at first ("": the picked-up literal's, else
  // String).
  ConstantDialog(DeclarationTarget target, settings::NamingRules rules,
                 settings::TypePrefixTable prefixes, std::string type = "");

  std::string Title() const override { return std::string(kConstantDialogTitle); }
  std::optional<Refusal> Accept() override;

  scan::DeclScope Scope() const override;
  std::string Type() const override;
  std::string DeclaredName() const override { return ComposedName(true); }
  // "Private Const cstrTitle As String = "Stock"".
  std::string Statement() const override;
  // True when the selection was a literal and is to be replaced by the name.
  bool PickedUp() const { return picked_up_; }
  // The value and the name as typed, set before the dialog is shown (a path
  // picked for "&Filename...").
  void Preset(std::string value, std::string name);

 private:
  bool picked_up_ = false;
};

// The types a constant can have, in the list's order.
const std::vector<std::string>& ConstantTypes();

}  // namespace tavrin::builders
