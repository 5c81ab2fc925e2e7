// The constant builder: a name composed by the naming rules (with the
// constant tag before or after the type tag), the scope (local, module,
// global in a standard module), the type and the value, written as the
// type's literal. A literal selected in the code is picked up: it gives the
// value, the type and a name, and the command puts the constant's name in
// its place.
#pragma once

#include <string>

#include "builders/declaration_target.h"
#include "builders/dialog.h"
#include "settings/naming.h"
#include "settings/type_prefixes.h"

namespace tavrin::builders {

inline constexpr std::string_view kConstantDialogTitle = "Add Constant";

class ConstantDialog : public DialogModel {
 public:
  // `type`: the type chosen at first ("": the picked-up literal's, else
  // String).
  ConstantDialog(DeclarationTarget target, settings::NamingRules rules,
                 settings::TypePrefixTable prefixes, std::string type = "");

  std::string Title() const override { return std::string(kConstantDialogTitle); }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  scan::DeclScope Scope() const;
  std::string Type() const;
  std::string DeclaredName() const;
  // "Private Const cstrTitle As String = "Stock"".
  std::string Statement() const;
  Insertion Place() const { return PlaceDeclaration(target_, Scope(), Statement()); }
  // True when the selection was a literal and is to be replaced by the name.
  bool PickedUp() const { return picked_up_; }

 private:
  const Field& F(std::string_view id) const;
  void Refresh();

  DeclarationTarget target_;
  settings::NamingRules rules_;
  settings::TypePrefixTable prefixes_;
  bool picked_up_ = false;
  std::vector<Field> fields_;
};

// The types a constant can have, in the list's order.
const std::vector<std::string>& ConstantTypes();

}  // namespace tavrin::builders
