// What the variable and constant builders share: the place they write
// into, the naming rules, the fields (a name, a scope, a type, the declared
// name and a preview, refreshed after every change) and the checks of the
// declared name.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "builders/declaration_target.h"
#include "builders/dialog.h"
#include "settings/naming.h"
#include "settings/type_prefixes.h"

namespace tavrin::builders {

class DeclarationDialog : public DialogModel {
 public:
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view) override { Refresh(); }
  std::string HelpTopic() const override { return "variables.html"; }

  virtual scan::DeclScope Scope() const = 0;
  virtual std::string Type() const = 0;
  // The name the statement declares: the typed name with its prefixes.
  virtual std::string DeclaredName() const = 0;
  virtual std::string Statement() const = 0;
  Insertion Place() const { return PlaceDeclaration(target_, Scope(), Statement()); }

 protected:
  DeclarationDialog(DeclarationTarget target, settings::NamingRules rules,
                    settings::TypePrefixTable prefixes);

  const Field& F(std::string_view id) const;
  // The typed name composed by the naming rules for the type and scope.
  std::string ComposedName(bool is_constant) const;
  // The typed and the declared name must be names, the declared one free.
  std::optional<Refusal> NameRefusal() const;
  // Shows the declared name and the statement; derived dialogs add theirs.
  virtual void Refresh();

  DeclarationTarget target_;
  settings::NamingRules rules_;
  settings::TypePrefixTable prefixes_;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
