#include "builders/class_dialog.h"

#include <algorithm>

#include "base/text.h"
#include "builders/block_dialogs.h"
#include "builders/name_check.h"
#include "builders/property_dialog.h"
#include "codegen/templates.h"

namespace tavrin::builders {
namespace {

bool IsUpperAscii(char c) { return c >= 'A' && c <= 'Z'; }

// The name without a class prefix the user typed already ("clsOrder").
std::string_view WithoutPrefix(std::string_view typed, const std::vector<std::string>& prefixes) {
  for (const std::string& prefix : prefixes)
    if (!prefix.empty() && typed.size() > prefix.size() && typed.starts_with(prefix) &&
        IsUpperAscii(typed[prefix.size()]))
      return typed.substr(prefix.size());
  return typed;
}

// "Name As String" → name and type; a property without a type is a Variant.
std::pair<std::string, std::string> NameAndType(std::string_view typed) {
  const std::size_t as = FindIgnoreCase(typed, " As ");
  if (as == std::string_view::npos) return {std::string(TrimBlanks(typed)), "Variant"};
  return {std::string(TrimBlanks(typed.substr(0, as))),
          std::string(TrimBlanks(typed.substr(as + 4)))};
}

}  // namespace

std::string MissingTemplateMessage(std::string_view path) {
  return "The collection class template was not found:\r\n" + std::string(path) +
         "\r\nSet its file under File Locations (Collection Class Template) in the settings.";
}

ClassDialog::ClassDialog(ClassTarget target, settings::NamingRules rules,
                         settings::TypePrefixTable prefixes,
                         codegen::TemplateEnvironment environment)
    : target_(std::move(target)),
      rules_(std::move(rules)),
      prefixes_(std::move(prefixes)),
      environment_(std::move(environment)) {
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  Field kind = MakeField("kind", FieldKind::kChoice, "&Kind:");
  kind.items = {std::string(kPlainClass), std::string(kCollectionClass)};
  kind.selected = 0;
  kind.text = kind.items[0];
  fields_.push_back(std::move(kind));
  Field item = MakeField("item", FieldKind::kCombo, "&Item class:");
  item.items = target_.class_modules;
  if (!item.items.empty()) {
    item.selected = 0;
    item.text = item.items[0];
  }
  fields_.push_back(std::move(item));
  fields_.push_back(
      MakeField("properties", FieldKind::kText, "&Properties (Name As String, Total As Long):"));
  fields_.back().rows = 5;
  fields_.push_back(MakeField("description", FieldKind::kText, "&Description:"));
  Field header = MakeField("header", FieldKind::kCheck, "Module &header");
  header.checked = !codegen::ExpandHeader(environment_, codegen::HeaderKind::kModule, "", "").empty();
  header.enabled = header.checked;  // without a header file there is nothing to write
  header.group = "Options";
  fields_.push_back(std::move(header));
  Field option = MakeField("option_explicit", FieldKind::kCheck, "Option &Explicit");
  option.checked = true;
  option.remember = true;
  option.group = "Options";
  fields_.push_back(std::move(option));
  fields_.push_back(MakeField("declared", FieldKind::kLabel, "Class name:"));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 18;
  Refresh();
}

const Field& ClassDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

bool ClassDialog::IsCollection() const { return F("kind").selected == 1; }

std::string ClassDialog::DeclaredName() const {
  const std::string_view typed = TrimBlanks(F("name").text);
  const std::string class_tag = prefixes_.Tag("Class", settings::TagUse::kVariable);
  const std::string collection_tag = prefixes_.Tag("Collection", settings::TagUse::kVariable);
  const std::string prefix = IsCollection() ? (collection_tag.empty() ? "col" : collection_tag)
                                            : (class_tag.empty() ? "cls" : class_tag);
  if (typed.empty() || rules_.mode == settings::AutoPrefixMode::kNoAutoPrefix)
    return std::string(typed);
  const std::string_view base =
      WithoutPrefix(typed, {prefix, class_tag, collection_tag, "cls", "col"});
  if (rules_.mode == settings::AutoPrefixMode::kBeforeCapitalChar && !IsUpperAscii(base.front()))
    return std::string(typed);
  return prefix + std::string(base);
}

std::vector<PropertySpec> ClassDialog::Properties() const {
  std::vector<PropertySpec> properties;
  if (IsCollection()) return properties;
  for (const std::string& typed : SplitMembers(F("properties").text)) {
    PropertySpec spec;
    std::tie(spec.name, spec.type) = NameAndType(typed);
    spec.is_object =
        IsClassType(target_.declarations, spec.type) || EqualsIgnoreCase(spec.type, "Object");
    spec.indent = target_.declarations.indent;
    NameMemberAndArgument(spec, rules_, prefixes_);
    properties.push_back(std::move(spec));
  }
  return properties;
}

ClassSpec ClassDialog::Spec() const {
  ClassSpec spec;
  spec.name = DeclaredName();
  if (F("header").checked)
    spec.header = codegen::ExpandHeader(environment_, codegen::HeaderKind::kModule, spec.name,
                                        TrimBlanks(F("description").text));
  spec.option_explicit = F("option_explicit").checked;
  spec.properties = Properties();
  return spec;
}

std::string ClassDialog::FileText() const {
  const ClassSpec spec = Spec();
  if (!IsCollection()) return ClassFileText(spec.name, PlainClassCode(spec));
  if (!target_.collection_template) return "";
  return FillCollectionTemplate(environment_, *target_.collection_template, spec,
                                TrimBlanks(F("item").text), target_.project_name);
}

std::string ClassDialog::Code() const {
  if (!IsCollection()) return PlainClassCode(Spec());
  return CodePaneText(FileText());
}

void ClassDialog::Refresh() {
  const bool collection = IsCollection();
  FindField(fields_, "item")->enabled = collection;
  FindField(fields_, "properties")->enabled = !collection;
  const std::string name = DeclaredName();
  FindField(fields_, "declared")->text = name;
  Field& preview = *FindField(fields_, "preview");
  if (name.empty()) {
    preview.text = "";
  } else if (collection && !target_.collection_template) {
    preview.text = MissingTemplateMessage(target_.template_path);
  } else {
    preview.text = Code();
  }
}

void ClassDialog::GuessItemClass() {
  if (item_picked_) return;
  const std::string_view typed = TrimBlanks(F("name").text);
  const std::vector<std::string> prefixes = {"col", "cls"};
  const std::string_view plural = WithoutPrefix(typed, prefixes);
  Field& item = *FindField(fields_, "item");
  for (std::size_t i = 0; i < item.items.size(); ++i) {
    const std::string_view singular = WithoutPrefix(item.items[i], prefixes);
    if (EqualsIgnoreCase(std::string(singular) + "s", plural) ||
        EqualsIgnoreCase(std::string(singular) + "es", plural)) {
      item.selected = static_cast<int>(i);
      item.text = item.items[i];
      return;
    }
  }
}

void ClassDialog::Changed(std::string_view id) {
  if (id == "item") item_picked_ = true;
  if (id == "name" || id == "kind") GuessItemClass();
  Refresh();
}

std::optional<Refusal> ClassDialog::Accept() {
  if (auto problem = NameProblem(F("name").text)) return Refusal{*problem, "name"};
  const std::string name = DeclaredName();
  for (const std::string& existing : target_.component_names)
    if (EqualsIgnoreCase(existing, name))
      return Refusal{"The project " + target_.project_name + " has a module named " + existing +
                         " already.",
                     "name"};
  if (IsCollection()) {
    if (!target_.collection_template)
      return Refusal{MissingTemplateMessage(target_.template_path), "kind"};
    const std::string_view item = TrimBlanks(F("item").text);
    if (item.empty()) return Refusal{"Choose the class of the collection's items.", "item"};
    if (auto problem = TypeProblem(item)) return Refusal{*problem, "item"};
    return std::nullopt;
  }
  std::vector<std::string> seen;
  for (const PropertySpec& property : Properties()) {
    if (auto problem = NameProblem(property.name))
      return Refusal{*problem + " (" + property.name + ")", "properties"};
    if (auto problem = TypeProblem(property.type)) return Refusal{*problem, "properties"};
    if (std::any_of(seen.begin(), seen.end(),
                    [&](const std::string& s) { return EqualsIgnoreCase(s, property.name); }))
      return Refusal{"The property " + property.name + " is listed twice.", "properties"};
    seen.push_back(property.name);
  }
  return std::nullopt;
}

}  // namespace tavrin::builders
