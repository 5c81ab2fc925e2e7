#include "builders/declaration_dialog.h"

#include "base/text.h"
#include "builders/name_check.h"

namespace tavrin::builders {

DeclarationDialog::DeclarationDialog(DeclarationTarget target, settings::NamingRules rules,
                                     settings::TypePrefixTable prefixes)
    : target_(std::move(target)), rules_(std::move(rules)), prefixes_(std::move(prefixes)) {}

const Field& DeclarationDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

std::string DeclarationDialog::ComposedName(bool is_constant) const {
  const std::string typed(TrimBlanks(F("name").text));
  return settings::ComposeName(typed, Type(), ScopeCodeOf(Scope()), is_constant, rules_,
                               prefixes_);
}

std::optional<Refusal> DeclarationDialog::NameRefusal() const {
  if (auto problem = NameProblem(F("name").text)) return Refusal{*problem, "name"};
  const std::string name = DeclaredName();
  if (auto problem = NameProblem(name)) return Refusal{*problem, "name"};
  if (auto clash = NameClash(target_, name, Scope())) return Refusal{*clash, "name"};
  return std::nullopt;
}

void DeclarationDialog::Refresh() {
  FindField(fields_, "declared")->text = DeclaredName();
  FindField(fields_, "preview")->text = Statement();
}

}  // namespace tavrin::builders
