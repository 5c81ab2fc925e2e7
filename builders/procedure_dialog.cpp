#include "builders/procedure_dialog.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "builders/name_check.h"

namespace tavrin::builders {
namespace {

using codegen::clsArgument;
using settings::Item;

constexpr std::array<std::string_view, 5> kKinds = {"Sub", "Function", "Property Get",
                                                    "Property Let", "Property Set"};

Field Check(std::string id, std::string caption, bool on, std::string group = "") {
  Field field = MakeField(std::move(id), FieldKind::kCheck, std::move(caption));
  field.checked = on;
  field.group = std::move(group);
  return field;
}

Field Choice(std::string id, FieldKind kind, std::string caption, std::vector<std::string> items,
             int selected) {
  Field field = MakeField(std::move(id), kind, std::move(caption));
  field.items = std::move(items);
  field.selected = selected;
  if (selected >= 0) field.text = field.items[selected];
  return field;
}

std::string Picked(const Field& field) {
  if (field.selected >= 0 && field.selected < static_cast<int>(field.items.size()))
    return field.items[field.selected];
  return field.text;
}

}  // namespace

const std::vector<std::string>& SimpleTypes() {
  static const std::vector<std::string> types = {"Boolean", "Byte",    "Currency", "Date",
                                                 "Double",  "Integer", "Long",     "Object",
                                                 "Single",  "String",  "Variant"};
  return types;
}

// The argument dialog.

ArgumentDialog::ArgumentDialog(std::vector<std::string> types, clsArgument argument)
    : argument_(std::move(argument)) {
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  fields_.back().text = argument_.Name;
  fields_.push_back(Choice("type", FieldKind::kCombo, "&Type:", std::move(types), -1));
  fields_.back().text = argument_.Type_;
  fields_.push_back(Check("byval", "By&Val", argument_.IsByVal));
  fields_.push_back(Check("optional", "&Optional", argument_.IsOptional));
  fields_.push_back(MakeField("default", FieldKind::kText, "&Default:"));
  fields_.back().text = argument_.DefaultValue;
  fields_.push_back(Check("paramarray", "&ParamArray", argument_.IsParamArray));
  fields_.push_back(Check("array", "&Array", argument_.IsArray));
  Enable();
}

void ArgumentDialog::Enable() {
  const bool param_array = FindField(fields_, "paramarray")->checked;
  for (const char* id : {"type", "byval", "optional", "array"})
    FindField(fields_, id)->enabled = !param_array;
  FindField(fields_, "default")->enabled = !param_array && FindField(fields_, "optional")->checked;
}

void ArgumentDialog::Changed(std::string_view) { Enable(); }

clsArgument ArgumentDialog::Argument() {
  clsArgument argument = argument_;
  argument.Name = std::string(TrimBlanks(FindField(fields_, "name")->text));
  const Field& type = *FindField(fields_, "type");
  argument.Type_ = std::string(TrimBlanks(Picked(type)));
  argument.IsParamArray = FindField(fields_, "paramarray")->checked;
  argument.IsByVal = !argument.IsParamArray && FindField(fields_, "byval")->checked;
  argument.IsOptional = !argument.IsParamArray && FindField(fields_, "optional")->checked;
  argument.IsArray = !argument.IsParamArray && FindField(fields_, "array")->checked;
  argument.DefaultValue =
      argument.IsOptional ? std::string(TrimBlanks(FindField(fields_, "default")->text)) : "";
  return argument;
}

std::optional<Refusal> ArgumentDialog::Accept() {
  if (auto problem = NameProblem(FindField(fields_, "name")->text))
    return Refusal{*problem, "name"};
  return std::nullopt;
}

// The procedure dialog.

ProcedureDialog::ProcedureDialog(ProcedureTarget target, const settings::ValueTable& values,
                                 codegen::TemplateEnvironment environment)
    : target_(std::move(target)), environment_(std::move(environment)) {
  const bool standard = target_.standard_module;
  const auto yes = [&](Item procedure, Item method) {
    return values.YesNo(standard ? procedure : method);
  };
  std::vector<std::string> types = SimpleTypes();
  types.insert(types.end(), target_.classes.begin(), target_.classes.end());

  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  fields_.push_back(
      Choice("kind", FieldKind::kChoice, "&Kind:", {kKinds.begin(), kKinds.end()}, 0));
  fields_.push_back(
      Choice("access", FieldKind::kChoice, "&Access:", {"Public", "Private", "Friend"}, 0));
  fields_.push_back(Check("static", "&Static", false));
  fields_.push_back(Choice("returns", FieldKind::kCombo, "&Return type:", std::move(types), -1));
  fields_.push_back(MakeField("arguments", FieldKind::kList, "Ar&guments:"));
  fields_.back().rows = 6;
  const std::pair<const char*, const char*> buttons[] = {{"add", "A&dd..."},
                                                         {"edit", "&Edit..."},
                                                         {"remove", "Re&move"},
                                                         {"up", "Move &Up"},
                                                         {"down", "Move Do&wn"}};
  for (const auto& [id, caption] : buttons)
    fields_.push_back(MakeField(id, FieldKind::kButton, caption));
  fields_.push_back(MakeField("description", FieldKind::kText, "&Description:"));
  fields_.back().group = "Options";
  fields_.push_back(Check("header", "&Header",
                          yes(Item::kAddHeaderProcedure, Item::kAddHeaderMethod), "Options"));
  fields_.push_back(Check("name_constant", "Name &constant",
                          yes(Item::kAddProcedureConstant, Item::kAddMethodConstant), "Options"));
  const std::string handling =
      values.Text(standard ? Item::kAddErrorHandlingProcedure : Item::kAddErrorHandlingMethod);
  fields_.push_back(
      Check("error_handler", "Error &handler", !TrimBlanks(handling).empty(), "Options"));
  fields_.push_back(
      Check("return_line", "Re&turn line", values.YesNo(Item::kAddReturnStatement), "Options"));
  fields_.push_back(Check("hourglass", "Hour&glass",
                          yes(Item::kAddHourglassProcedure, Item::kAddHourglassMethod), "Options"));
  fields_.push_back(Check("separate_lines", "Arguments on separate &lines",
                          values.YesNo(Item::kArgumentsOnSeparateLines), "Options"));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 12;
  Refresh();
}

const Field& ProcedureDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

codegen::clsProcedure ProcedureDialog::Procedure() const {
  codegen::clsProcedure procedure(environment_);
  procedure.Name = std::string(TrimBlanks(F("name").text));
  const std::string kind = Picked(F("kind"));
  if (kind.starts_with("Property ")) {
    procedure.ProcType = "Property";
    procedure.PropertyType = kind.substr(9);
  } else {
    procedure.ProcType = kind;
  }
  procedure.Accessibility = Picked(F("access"));
  procedure.IsStatic = F("static").checked;
  if (F("returns").enabled) procedure.ReturnType = std::string(TrimBlanks(Picked(F("returns"))));
  for (std::size_t i = 0; i < arguments_.size(); ++i) {
    clsArgument argument = arguments_[i];
    argument.Position = static_cast<std::int32_t>(i + 1);
    procedure.Arguments.Add(std::move(argument));
  }
  procedure.ArgumentsOnSeparateLines = F("separate_lines").checked;
  procedure.AddHeader = F("header").checked;
  if (procedure.AddHeader && environment_.read_code_file)
    procedure.HeaderTemplate =
        environment_.read_code_file(environment_.settings.procedure_header_file).value_or("");
  procedure.AddProcNameConst = F("name_constant").checked;
  procedure.WithErrorHandler = F("error_handler").checked;
  procedure.WithReturnLine = F("return_line").checked && F("return_line").enabled;
  procedure.WithHourglass = F("hourglass").checked;
  procedure.Description = F("description").text;
  procedure.ModuleName = target_.module_name;
  return procedure;
}

std::string ProcedureDialog::Code() const { return Procedure().GenerateCode(); }

void ProcedureDialog::Refresh() {
  const std::string kind = Picked(F("kind"));
  const bool returns = kind == "Function" || kind == "Property Get";
  F("returns").enabled = returns;
  F("return_line").enabled = returns;
  Field& list = F("arguments");
  list.items.clear();
  for (const clsArgument& argument : arguments_) list.items.push_back(argument.ArgumentString());
  if (list.selected >= static_cast<int>(list.items.size()))
    list.selected = static_cast<int>(list.items.size()) - 1;
  const bool picked = list.selected >= 0;
  F("edit").enabled = picked;
  F("remove").enabled = picked;
  F("up").enabled = picked && list.selected > 0;
  F("down").enabled = picked && list.selected + 1 < static_cast<int>(list.items.size());
  F("preview").text = Code();
}

void ProcedureDialog::Changed(std::string_view) { Refresh(); }

void ProcedureDialog::Pressed(std::string_view id, DialogHost& host) {
  Field& list = F("arguments");
  const int at = list.selected;
  const bool picked = at >= 0 && at < static_cast<int>(arguments_.size());
  std::vector<std::string> types = F("returns").items;
  if (id == "add" || (id == "edit" && picked)) {
    ArgumentDialog dialog(std::move(types), id == "edit" ? arguments_[at] : clsArgument{});
    if (host.Show(dialog)) {
      if (id == "edit") {
        arguments_[at] = dialog.Argument();
      } else {
        arguments_.push_back(dialog.Argument());
        list.selected = static_cast<int>(arguments_.size()) - 1;
      }
    }
  } else if (id == "remove" && picked) {
    arguments_.erase(arguments_.begin() + at);
  } else if (id == "up" && picked && at > 0) {
    std::swap(arguments_[at], arguments_[at - 1]);
    list.selected = at - 1;
  } else if (id == "down" && picked && at + 1 < static_cast<int>(arguments_.size())) {
    std::swap(arguments_[at], arguments_[at + 1]);
    list.selected = at + 1;
  }
  Refresh();
}

std::optional<Refusal> ProcedureDialog::Accept() {
  if (auto problem = NameProblem(F("name").text)) return Refusal{*problem, "name"};
  for (std::size_t i = 0; i < arguments_.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (EqualsIgnoreCase(arguments_[i].Name, arguments_[j].Name))
        return Refusal{"The argument name '" + arguments_[i].Name + "' is used twice.",
                       "arguments"};
  const codegen::clsProcedure procedure = Procedure();
  if (const auto order = procedure.ArgumentsOrderIsBad(); order != codegen::kOrderValid)
    return Refusal{codegen::ArgumentOrderMessage(order), "arguments"};
  return std::nullopt;
}

}  // namespace tavrin::builders
