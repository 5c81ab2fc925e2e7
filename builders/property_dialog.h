// The property builder: the property's name and type, read/write,
// read-only or write-only, and the "Property Builder" options (error trap,
// procedure constant, module constant). Writes a private member variable
// named by the naming rules and the property procedures over it. Only a
// class, form or user control module can hold it.
#pragma once

#include <string>

#include "builders/declaration_target.h"
#include "builders/dialog.h"
#include "builders/property_code.h"
#include "settings/naming.h"
#include "settings/type_prefixes.h"
#include "settings/value_table.h"

namespace tavrin::builders {

inline constexpr std::string_view kPropertyDialogTitle = "Add Property";

// Why a standard module cannot take a property.
inline constexpr std::string_view kPropertyInStandardModule =
    "A property can only be added to a class, form or user control module. A standard "
    "module has no instances to hold its value: use a Public variable or a Function there.";

inline constexpr std::string_view kReadWrite = "Read and write";
inline constexpr std::string_view kReadOnly = "Read-only";
inline constexpr std::string_view kWriteOnly = "Write-only";

// Names the private member (a module variable) and the Let/Set argument (a
// ByVal argument) of the property `spec` names, by the naming rules.
void NameMemberAndArgument(PropertySpec& spec, const settings::NamingRules& rules,
                           const settings::TypePrefixTable& prefixes);

class PropertyDialog : public DialogModel {
 public:
  PropertyDialog(DeclarationTarget target, settings::NamingRules rules,
                 settings::TypePrefixTable prefixes, const settings::ValueTable& values,
                 std::string type = "");

  std::string Title() const override { return std::string(kPropertyDialogTitle); }
  std::string HelpTopic() const override { return "variables.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  PropertySpec Spec() const;
  // The module-name constant the options ask for and the module lacks:
  // "Private Const cstrModule = "clsOrder""; "" when none is needed.
  std::string ModuleConstant() const;
  // The declaration-area lines (member variable, then the module constant
  // when needed) and where they go.
  Insertion MemberPlace() const;

 private:
  const Field& F(std::string_view id) const;
  void Refresh();

  DeclarationTarget target_;
  settings::NamingRules rules_;
  settings::TypePrefixTable prefixes_;
  std::string trap_;                   // `Add Error Handling Property`
  std::string procedure_constant_;     // `Procedure Name Constant`
  std::string module_constant_;        // `Module Name Constant`
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
