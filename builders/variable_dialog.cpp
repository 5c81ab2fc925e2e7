#include "builders/variable_dialog.h"

#include "base/text.h"
#include "builders/name_check.h"

namespace tavrin::builders {
namespace {

std::string Picked(const Field& field) {
  if (field.kind == FieldKind::kChoice && field.selected >= 0 &&
      field.selected < static_cast<int>(field.items.size()))
    return field.items[field.selected];
  return std::string(TrimBlanks(field.text));
}

}  // namespace

scan::DeclScope ScopeOfEntry(std::string_view entry) {
  return entry == kScopeLocal    ? scan::DeclScope::kLocal
         : entry == kScopeModule ? scan::DeclScope::kModule
                                 : scan::DeclScope::kGlobal;
}

VariableDialog::VariableDialog(DeclarationTarget target, settings::NamingRules rules,
                               settings::TypePrefixTable prefixes, std::string type)
    : DeclarationDialog(std::move(target), std::move(rules), std::move(prefixes)) {
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  Field scope = MakeField("scope", FieldKind::kChoice, "&Scope:");
  if (target_.Procedure()) scope.items.emplace_back(kScopeLocal);
  scope.items.emplace_back(kScopeModule);
  scope.items.emplace_back(kScopeGlobal);
  scope.selected = 0;
  scope.text = scope.items[0];
  fields_.push_back(std::move(scope));
  Field types = MakeField("type", FieldKind::kCombo, "&Type:");
  types.items = TypeChoices(target_);
  types.text = type.empty() ? "String" : type;
  fields_.push_back(std::move(types));
  Field is_new = MakeField("new", FieldKind::kCheck, "As Ne&w");
  is_new.checked = EqualsIgnoreCase(type, "Collection");  // a collection is used at once
  fields_.push_back(std::move(is_new));
  fields_.push_back(MakeField("array", FieldKind::kCheck, "&Array"));
  fields_.push_back(MakeField("bounds", FieldKind::kText, "&Bounds:"));
  fields_.push_back(MakeField("declared", FieldKind::kLabel, "Declared name:"));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 2;
  Refresh();
}

scan::DeclScope VariableDialog::Scope() const { return ScopeOfEntry(Picked(F("scope"))); }

std::string VariableDialog::Type() const { return Picked(F("type")); }

std::string VariableDialog::Statement() const {
  std::string statement = std::string(ScopeKeyword(Scope())) + " " + DeclaredName();
  if (F("array").checked) statement += "(" + std::string(TrimBlanks(F("bounds").text)) + ")";
  statement += " As ";
  if (F("new").checked && F("new").enabled) statement += "New ";
  return statement + Type();
}

void VariableDialog::Refresh() {
  const bool is_class = IsClassType(target_, Type());
  FindField(fields_, "new")->enabled = is_class;
  FindField(fields_, "bounds")->enabled = F("array").checked;
  DeclarationDialog::Refresh();
}

std::optional<Refusal> VariableDialog::Accept() {
  if (auto problem = NameProblem(F("name").text)) return Refusal{*problem, "name"};
  if (auto problem = TypeProblem(Type())) return Refusal{*problem, "type"};
  if (auto refusal = NameRefusal()) return refusal;
  const std::string bounds = F("bounds").text;
  if (F("array").checked &&
      (bounds.find_first_of("()\r\n") != std::string::npos))
    return Refusal{"Type the bounds without brackets, as in 1 To 10.", "bounds"};
  return std::nullopt;
}

}  // namespace tavrin::builders
