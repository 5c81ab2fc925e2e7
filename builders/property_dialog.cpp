#include "builders/property_dialog.h"

#include <algorithm>

#include "base/text.h"
#include "builders/name_check.h"

namespace tavrin::builders {
namespace {

Field Check(std::string id, std::string caption, bool on) {
  Field field = MakeField(std::move(id), FieldKind::kCheck, std::move(caption));
  field.checked = on;
  field.group = "Options";
  return field;
}

}  // namespace

void NameMemberAndArgument(PropertySpec& spec, const settings::NamingRules& rules,
                           const settings::TypePrefixTable& prefixes) {
  spec.member =
      settings::ComposeName(spec.name, spec.type, settings::kScopeModule, false, rules, prefixes);
  spec.argument =
      settings::ComposeName(spec.name, spec.type, settings::kScopeByVal, false, rules, prefixes);
  // A name typed in lower case keeps its case and gets no prefix: the
  // member and the argument must still differ from the property.
  if (EqualsIgnoreCase(spec.member, spec.name)) spec.member = "m_" + spec.name;
  if (EqualsIgnoreCase(spec.argument, spec.name)) spec.argument = "New" + spec.name;
}

PropertyDialog::PropertyDialog(DeclarationTarget target, settings::NamingRules rules,
                               settings::TypePrefixTable prefixes,
                               const settings::ValueTable& values, std::string type)
    : target_(std::move(target)),
      rules_(std::move(rules)),
      prefixes_(std::move(prefixes)),
      trap_(std::string(TrimBlanks(values.Text(settings::Item::kAddErrorHandlingProperty)))),
      procedure_constant_(values.Text(settings::Item::kProcedureNameConstant)),
      module_constant_(values.Text(settings::Item::kModuleNameConstant)) {
  using settings::Item;
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  Field types = MakeField("type", FieldKind::kCombo, "&Type:");
  types.items = TypeChoices(target_);
  types.text = type.empty() ? "String" : type;
  fields_.push_back(std::move(types));
  Field access = MakeField("access", FieldKind::kChoice, "&Access:");
  access.items = {std::string(kReadWrite), std::string(kReadOnly), std::string(kWriteOnly)};
  access.selected = 0;
  access.text = access.items[0];
  fields_.push_back(std::move(access));
  fields_.push_back(Check("error_trap", "&Error trap", !trap_.empty()));
  fields_.push_back(Check("procedure_constant", "&Procedure name constant",
                          values.YesNo(Item::kAddPropertyConstant)));
  fields_.push_back(Check("module_constant", "&Module name constant",
                          values.YesNo(Item::kAddModuleConstantProperty)));
  fields_.push_back(MakeField("member", FieldKind::kLabel, "Member variable:"));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 14;
  Refresh();
}

const Field& PropertyDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

PropertySpec PropertyDialog::Spec() const {
  PropertySpec spec;
  spec.name = std::string(TrimBlanks(F("name").text));
  const Field& type = F("type");
  spec.type = std::string(TrimBlanks(type.text));
  spec.is_object = IsClassType(target_, spec.type) || EqualsIgnoreCase(spec.type, "Object");
  const Field& access = F("access");
  spec.access = access.selected == 1   ? PropertyAccess::kReadOnly
                : access.selected == 2 ? PropertyAccess::kWriteOnly
                                       : PropertyAccess::kReadWrite;
  NameMemberAndArgument(spec, rules_, prefixes_);
  if (F("error_trap").checked) spec.error_trap = trap_.empty() ? "On Error GoTo ExitLabel" : trap_;
  if (F("procedure_constant").checked) spec.procedure_constant = procedure_constant_;
  spec.indent = target_.indent;
  return spec;
}

std::string PropertyDialog::ModuleConstant() const {
  if (!F("module_constant").checked || TrimBlanks(module_constant_).empty()) return "";
  const bool declared = std::any_of(
      target_.module.declarations.begin(), target_.module.declarations.end(),
      [&](const scan::Declaration& d) { return EqualsIgnoreCase(d.name, module_constant_); });
  if (declared) return "";
  return "Private Const " + module_constant_ + " = \"" + target_.module_name + "\"";
}

Insertion PropertyDialog::MemberPlace() const {
  std::string text = MemberDeclaration(Spec());
  if (const std::string constant = ModuleConstant(); !constant.empty())
    text += "\r\n" + constant;
  return PlaceDeclaration(target_, scan::DeclScope::kModule, text);
}

void PropertyDialog::Refresh() {
  const PropertySpec spec = Spec();
  // Without a name there is nothing sensible to show yet.
  const bool named = !spec.name.empty();
  FindField(fields_, "member")->text = named ? spec.member : "";
  FindField(fields_, "preview")->text =
      named ? MemberPlace().text + "\r\n\r\n" + PropertyCode(spec) : "";
}

void PropertyDialog::Changed(std::string_view) { Refresh(); }

std::optional<Refusal> PropertyDialog::Accept() {
  if (target_.standard_module) return Refusal{std::string(kPropertyInStandardModule), "name"};
  if (auto problem = NameProblem(F("name").text)) return Refusal{*problem, "name"};
  const PropertySpec spec = Spec();
  if (auto problem = TypeProblem(spec.type)) return Refusal{*problem, "type"};
  for (const std::string& name : {spec.name, spec.member})
    if (auto clash = NameClash(target_, name, scan::DeclScope::kModule))
      return Refusal{*clash, "name"};
  return std::nullopt;
}

}  // namespace tavrin::builders
