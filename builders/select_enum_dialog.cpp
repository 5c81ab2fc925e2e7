#include "builders/select_enum_dialog.h"

#include <algorithm>

#include "base/text.h"
#include "codegen/snippets.h"
#include "resources/string_table.h"

namespace tavrin::builders {
namespace {

using resources::LoadResString;
using scan::DeclKind;

constexpr std::string_view kCursor = "<cursor>";

void AppendLine(std::string& text, std::string_view margin, std::string_view line) {
  text.append(margin).append(line).append("\r\n");
}

// The enums of the symbols that pass `visible`, with their members, added
// to `choices` unless an enum of that name is there already.
template <class Visible>
void AddEnums(const std::vector<scan::ProjectSymbol>& symbols, Visible visible,
              std::vector<EnumChoice>& choices) {
  for (const scan::ProjectSymbol& symbol : symbols) {
    const scan::Declaration& declaration = symbol.declaration;
    if (declaration.kind != DeclKind::kEnum || !visible(symbol)) continue;
    const bool known = std::any_of(choices.begin(), choices.end(), [&](const EnumChoice& choice) {
      return EqualsIgnoreCase(choice.name, declaration.name);
    });
    if (known) continue;
    EnumChoice choice{declaration.name, symbol.module, {}};
    for (const scan::ProjectSymbol& member : symbols) {
      if (member.declaration.kind == DeclKind::kEnumMember && member.module == symbol.module &&
          member.project == symbol.project &&
          EqualsIgnoreCase(member.declaration.parent, declaration.name))
        choice.members.push_back(member.declaration.name);
    }
    choices.push_back(std::move(choice));
  }
}

}  // namespace

std::string NoEnumMessage() {
  return "No enum is visible here: declare one in the project, or reference a library that "
         "has one.";
}

std::vector<EnumChoice> EnumChoices(const DeclarationTarget& target) {
  std::vector<EnumChoice> choices;
  const auto in_module = [&](const scan::ProjectSymbol& symbol) {
    return EqualsIgnoreCase(symbol.module, target.module_name);
  };
  const auto is_public = [](const scan::ProjectSymbol& symbol) {
    return symbol.declaration.scope == scan::DeclScope::kGlobal;
  };
  AddEnums(target.project, in_module, choices);
  AddEnums(target.project, is_public, choices);
  AddEnums(target.libraries, is_public, choices);
  return choices;
}

SelectEnumDialog::SelectEnumDialog(DeclarationTarget target, SelectEnumDefaults defaults,
                                   std::string margin)
    : target_(std::move(target)), margin_(std::move(margin)), enums_(EnumChoices(target_)) {
  Field list = MakeField("enum", FieldKind::kList, "&Enum:");
  for (const EnumChoice& choice : enums_) list.items.push_back(choice.Entry());
  list.rows = 8;
  if (!list.items.empty()) {
    list.selected = 0;
    list.text = list.items[0];
  }
  fields_.push_back(std::move(list));
  Field expression = MakeField("expression", FieldKind::kText, "E&xpression:");
  expression.text = std::string(TrimBlanks(target_.selected_text));
  fields_.push_back(std::move(expression));
  Field case_else = MakeField("case_else", FieldKind::kCheck, "Add Case E&lse");
  case_else.checked = defaults.add_case_else;
  fields_.push_back(std::move(case_else));
  Field code = MakeField("code_case_else", FieldKind::kText, "&Code in Case Else:");
  code.text = defaults.code_case_else;
  fields_.push_back(std::move(code));
  Field returns = MakeField("return_values", FieldKind::kCheck, "Insert &Return Values");
  returns.checked = defaults.insert_return_values;
  fields_.push_back(std::move(returns));
  Field preview = MakeField("preview", FieldKind::kPreview, "Preview:");
  preview.rows = 14;
  fields_.push_back(std::move(preview));
  Changed("");
}

const Field& SelectEnumDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

const EnumChoice* SelectEnumDialog::Chosen() const {
  const int selected = F("enum").selected;
  if (selected < 0 || selected >= static_cast<int>(enums_.size())) return nullptr;
  return &enums_[static_cast<std::size_t>(selected)];
}

bool SelectEnumDialog::SelectEnum(std::string_view name) {
  for (std::size_t i = 0; i < enums_.size(); ++i) {
    if (!EqualsIgnoreCase(enums_[i].name, TrimBlanks(name))) continue;
    Field& list = *FindField(fields_, "enum");
    list.selected = static_cast<int>(i);
    list.text = list.items[i];
    Changed("enum");
    return true;
  }
  return false;
}

std::string SelectEnumDialog::ReturnTarget() const {
  const scan::ScannedProc* procedure = target_.Procedure();
  if (!procedure) return {};
  const bool returns = procedure->kind == ide::ProcKind::kGet ||
                       (procedure->kind == ide::ProcKind::kProc && procedure->is_function);
  return returns ? procedure->name : std::string();
}

std::string SelectEnumDialog::Code() const {
  const EnumChoice* chosen = Chosen();
  const std::string expression(TrimBlanks(F("expression").text));
  const std::string& unit = target_.indent;
  const std::string case_margin = margin_ + unit;
  const std::string body_margin = case_margin + unit;
  std::string_view cursor = expression.empty() ? std::string_view() : kCursor;
  // In a Function every Case assigns the return value, typed after "= ".
  std::string body;
  const std::string returns = F("return_values").checked ? ReturnTarget() : std::string();
  if (!returns.empty()) {
    const scan::ScannedProc* procedure = target_.Procedure();
    const bool text = EqualsIgnoreCase(procedure->return_type, "String");
    body = returns + " = " + (text ? "\"\"" : "");
  }
  std::string code;
  AppendLine(code, margin_,
             std::string(LoadResString(codegen::kSelectCase)) + " " + expression +
                 std::string(expression.empty() ? kCursor : std::string_view()));
  const std::string case_word(LoadResString(codegen::kCase));
  for (const std::string& member : chosen ? chosen->members : std::vector<std::string>()) {
    AppendLine(code, case_margin, case_word + " " + member);
    std::string line = body;
    if (!cursor.empty()) {
      // The caret stands where the first value is typed: between the
      // quotes of a text, else at the end of the line.
      const std::size_t at = line.ends_with("\"\"") ? line.size() - 1 : line.size();
      line.insert(at, cursor);
      cursor = {};
    }
    AppendLine(code, body_margin, line);
  }
  if (F("case_else").checked) {
    AppendLine(code, case_margin, LoadResString(codegen::kCaseElse));
    AppendLine(code, body_margin, TrimBlanks(F("code_case_else").text));
  }
  code.append(margin_).append(LoadResString(codegen::kEndSelect));
  return code;
}

void SelectEnumDialog::Changed(std::string_view) {
  FindField(fields_, "code_case_else")->enabled = F("case_else").checked;
  FindField(fields_, "return_values")->enabled = !ReturnTarget().empty();
  std::string preview = Code();
  for (std::size_t at = preview.find(kCursor); at != std::string::npos;
       at = preview.find(kCursor))
    preview.erase(at, kCursor.size());
  FindField(fields_, "preview")->text = preview;
}

std::optional<Refusal> SelectEnumDialog::Accept() {
  const EnumChoice* chosen = Chosen();
  if (!chosen) return Refusal{"Choose the enum whose members the Cases test.", "enum"};
  if (chosen->members.empty())
    return Refusal{"The enum " + chosen->name + " has no members to test.", "enum"};
  return std::nullopt;
}

}  // namespace tavrin::builders
