#include "builders/constant_dialog.h"

#include <algorithm>

#include "base/text.h"
#include "builders/literal.h"
#include "builders/variable_dialog.h"

namespace tavrin::builders {

const std::vector<std::string>& ConstantTypes() {
  static const std::vector<std::string> types = {"String", "Byte",   "Boolean",  "Integer", "Long",
                                                 "Single", "Double", "Currency", "Date"};
  return types;
}

ConstantDialog::ConstantDialog(DeclarationTarget target, settings::NamingRules rules,
                               settings::TypePrefixTable prefixes, std::string type)
    : DeclarationDialog(std::move(target), std::move(rules), std::move(prefixes)) {
  const std::string picked_type = LiteralType(target_.selected_text);
  picked_up_ = !picked_type.empty();
  if (type.empty()) type = picked_up_ ? picked_type : "String";
  const auto& types = ConstantTypes();
  const auto known = std::find_if(types.begin(), types.end(), [&](const std::string& t) {
    return EqualsIgnoreCase(t, type);
  });

  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  if (picked_up_) fields_.back().text = NameFromLiteral(target_.selected_text);
  // Module level first: a constant usually serves the whole module.
  Field scope = MakeField("scope", FieldKind::kChoice, "&Scope:");
  scope.items.emplace_back(kScopeModule);
  if (target_.standard_module) scope.items.emplace_back(kScopeGlobal);
  if (target_.Procedure()) scope.items.emplace_back(kScopeLocal);
  scope.selected = 0;
  scope.text = scope.items[0];
  fields_.push_back(std::move(scope));
  Field type_field = MakeField("type", FieldKind::kChoice, "&Type:");
  type_field.items = types;
  type_field.selected = known == types.end() ? 0 : static_cast<int>(known - types.begin());
  type_field.text = types[type_field.selected];
  fields_.push_back(std::move(type_field));
  fields_.push_back(MakeField("value", FieldKind::kText, "&Value:"));
  if (picked_up_) fields_.back().text = std::string(TrimBlanks(target_.selected_text));
  fields_.push_back(MakeField("declared", FieldKind::kLabel, "Declared name:"));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 2;
  Refresh();
}

scan::DeclScope ConstantDialog::Scope() const {
  const Field& scope = F("scope");
  return ScopeOfEntry(scope.items[std::clamp(scope.selected, 0,
                                             static_cast<int>(scope.items.size()) - 1)]);
}

std::string ConstantDialog::Type() const {
  const Field& type = F("type");
  return type.items[std::clamp(type.selected, 0, static_cast<int>(type.items.size()) - 1)];
}

std::string ConstantDialog::Statement() const {
  const scan::DeclScope scope = Scope();
  std::string statement = scope == scan::DeclScope::kLocal ? "" : std::string(ScopeKeyword(scope)) + " ";
  const Literal literal = LiteralFor(F("value").text, Type());
  return statement + "Const " + DeclaredName() + " As " + Type() + " = " +
         (literal.problem.empty() ? literal.text : std::string(TrimBlanks(F("value").text)));
}

void ConstantDialog::Preset(std::string value, std::string name) {
  FindField(fields_, "value")->text = std::move(value);
  FindField(fields_, "name")->text = std::move(name);
  Refresh();
}

std::optional<Refusal> ConstantDialog::Accept() {
  if (auto refusal = NameRefusal()) return refusal;
  const Literal literal = LiteralFor(F("value").text, Type());
  if (!literal.problem.empty()) return Refusal{literal.problem, "value"};
  return std::nullopt;
}

}  // namespace tavrin::builders
