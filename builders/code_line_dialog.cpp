#include "builders/code_line_dialog.h"

#include <algorithm>

#include "base/text.h"

namespace tavrin::builders {
namespace {

using settings::Item;

Field Check(std::string id, std::string caption, bool on) {
  Field field = MakeField(std::move(id), FieldKind::kCheck, std::move(caption));
  field.checked = on;
  field.group = "Options";
  return field;
}

int IndexOf(const Field& field) {
  return field.selected >= 0 && field.selected < static_cast<int>(field.items.size())
             ? field.selected
             : -1;
}

// "Function Name(a As Long) As String", on one line.
std::string Declaration(const codegen::Callable& callable) {
  std::string text = (callable.is_function ? "Function " : "Sub ") + callable.name + "(";
  for (std::size_t i = 0; i < callable.arguments.size(); ++i)
    text += (i ? ", " : "") + codegen::ArgumentCaption(callable.arguments[i]);
  text += ")";
  if (callable.is_function && !callable.return_type.empty())
    text += " As " + callable.return_type;
  return text;
}

}  // namespace

codegen::CallOptions CallOptionsFrom(const settings::ValueTable& values) {
  return {values.YesNo(Item::kExplicitArguments), values.YesNo(Item::kEachArgumentOnANewLine),
          values.YesNo(Item::kIncludeComment)};
}

std::string ArgumentFieldId(int index) { return "arg" + std::to_string(index + 1); }

CodeLineDialog::CodeLineDialog(std::vector<CallableModule> modules,
                               std::string_view current_module, codegen::CallOptions options,
                               std::string margin, std::vector<std::string> variables)
    : modules_(std::move(modules)), margin_(std::move(margin)) {
  Field module = MakeField("module", FieldKind::kChoice, "&Module:");
  for (const CallableModule& each : modules_) module.items.push_back(each.name);
  const auto current = std::find(module.items.begin(), module.items.end(), current_module);
  module.selected = module.items.empty()              ? -1
                    : current != module.items.end() ? static_cast<int>(current - module.items.begin())
                                                    : 0;
  if (module.selected >= 0) module.text = module.items[module.selected];
  fields_.push_back(std::move(module));
  fields_.push_back(MakeField("procedure", FieldKind::kList, "&Procedure:"));
  fields_.back().rows = 8;
  fields_.push_back(MakeField("declaration", FieldKind::kLabel));
  for (int i = 0; i < kArgumentFields; ++i) {
    fields_.push_back(MakeField(ArgumentFieldId(i), FieldKind::kText));
    fields_.back().group = "Arguments";
  }
  Field result = MakeField("result", FieldKind::kCombo, "&Result:");
  result.items.push_back(std::string(codegen::kNewVariable));
  result.items.insert(result.items.end(), variables.begin(), variables.end());
  result.selected = 0;
  result.text = result.items[0];
  fields_.push_back(std::move(result));
  fields_.push_back(Check("explicit", "E&xplicit arguments", options.explicit_arguments));
  fields_.push_back(
      Check("each_line", "Each argument on a new &line", options.each_on_new_line));
  fields_.push_back(Check("comment", "Include &comment", options.comment));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 6;
  FillProcedures();
}

const Field& CodeLineDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

const codegen::Callable* CodeLineDialog::Picked() const {
  const int module = IndexOf(F("module"));
  const int procedure = IndexOf(F("procedure"));
  if (module < 0 || procedure < 0) return nullptr;
  const auto& procedures = modules_[module].procedures;
  return procedure < static_cast<int>(procedures.size()) ? &procedures[procedure] : nullptr;
}

void CodeLineDialog::FillProcedures() {
  Field& list = F("procedure");
  list.items.clear();
  if (const int module = IndexOf(F("module")); module >= 0)
    for (const codegen::Callable& callable : modules_[module].procedures)
      list.items.push_back(callable.name);
  list.selected = list.items.empty() ? -1 : 0;
  list.text = list.items.empty() ? "" : list.items[0];
  ShowArguments();
}

void CodeLineDialog::ShowArguments() {
  const codegen::Callable* callable = Picked();
  const int count = callable ? static_cast<int>(callable->arguments.size()) : 0;
  for (int i = 0; i < kArgumentFields; ++i) {
    Field& field = F(ArgumentFieldId(i));
    field.visible = i < count;
    field.text.clear();
    field.caption = i < count ? "&" + std::to_string((i + 1) % 10) + " " +
                                    codegen::ArgumentCaption(callable->arguments[i]) + ":"
                              : "";
  }
  F("declaration").caption = callable ? Declaration(*callable) : "No procedure to call.";
  F("result").enabled = callable && callable->is_function;
  Refresh();
}

std::vector<std::string> CodeLineDialog::Values() const {
  std::vector<std::string> values;
  const codegen::Callable* callable = Picked();
  const int count = callable ? static_cast<int>(callable->arguments.size()) : 0;
  for (int i = 0; i < count; ++i)
    values.push_back(i < kArgumentFields ? F(ArgumentFieldId(i)).text : "");
  return values;
}

codegen::CallOptions CodeLineDialog::Options() const {
  return {F("explicit").checked, F("each_line").checked, F("comment").checked};
}

std::string CodeLineDialog::Code() const {
  const codegen::Callable* callable = Picked();
  if (!callable) return "";
  return codegen::CallLineText(*callable, Values(), F("result").text, Options(), margin_);
}

void CodeLineDialog::Refresh() {
  // The preview shows the placeholder where the caret will stand.
  const codegen::Callable* callable = Picked();
  const std::string code = Code();
  const bool placeholder = callable && callable->is_function &&
                           (TrimBlanks(F("result").text).empty() ||
                            TrimBlanks(F("result").text) == codegen::kNewVariable);
  F("preview").text =
      ReplaceAll(code, "<cursor>", placeholder ? codegen::kNewVariable : std::string_view());
}

void CodeLineDialog::Changed(std::string_view id) {
  if (id == "module")
    FillProcedures();
  else if (id == "procedure")
    ShowArguments();
  else
    Refresh();
}

std::optional<Refusal> CodeLineDialog::Accept() {
  const codegen::Callable* callable = Picked();
  if (!callable)
    return Refusal{modules_.empty() ? "There is no procedure to call." : "Pick a procedure to call.",
                   "procedure"};
  int at = -1;
  if (auto problem = codegen::CallLineProblem(*callable, Values(), &at))
    return Refusal{*problem, at >= 0 && at < kArgumentFields ? ArgumentFieldId(at) : "procedure"};
  return std::nullopt;
}

}  // namespace tavrin::builders
