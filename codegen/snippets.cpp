#include "codegen/snippets.h"

#include <array>

#include "resources/string_table.h"

namespace tavrin::codegen {
namespace {

using resources::LoadResString;

constexpr std::array<LoopForm, 5> kLoopForms = {{
    // "Loop While" and "Loop Until" put the condition on the Do line.
    {"IfDoLoopWhile", kDoWhile, kLoop, 9},
    {"IfDoLoopUntil", kDoUntil, kLoop, 9},
    {"ForEachNext", kForEachIn, kNext, 9},
    {"ForNext", kForTo, kNext, 4},
    {"While", kWhile, kWend, 6},
}};

// A keyword line followed by an empty body line one unit deeper.
void AppendPart(std::string& text, std::string_view margin, std::string_view unit,
                std::string_view keyword) {
  text.append(margin).append(keyword).append("\r\n");
  text.append(margin).append(unit).append("\r\n");
}

}  // namespace

std::optional<IfForm> IfFormOf(std::string_view command_name) {
  if (command_name == "If Then") return IfForm::kIfThen;
  if (command_name == "If Then Else") return IfForm::kIfThenElse;
  if (command_name == "If Then Else If") return IfForm::kIfThenElseIf;
  if (command_name == "If Then ElseIf Else") return IfForm::kIfThenElseIfElse;
  return std::nullopt;
}

bool AsksElseIfCount(IfForm form) {
  return form == IfForm::kIfThenElseIf || form == IfForm::kIfThenElseIfElse;
}

std::string IfBlockText(IfForm form, std::string_view margin, std::string_view unit,
                        int else_if_count) {
  std::string text;
  AppendPart(text, margin, unit, LoadResString(kIfThen));
  for (int i = 0; i < else_if_count; ++i)
    AppendPart(text, margin, unit, LoadResString(kElseIfThen));
  if (form == IfForm::kIfThenElse || form == IfForm::kIfThenElseIfElse)
    AppendPart(text, margin, unit, LoadResString(kElse));
  text.append(margin).append(LoadResString(kEndIf));
  return text;
}

const LoopForm* LoopFormOf(std::string_view command_name) {
  for (const LoopForm& form : kLoopForms)
    if (form.command_name == command_name) return &form;
  return nullptr;
}

std::string LoopBlockText(const LoopForm& form, std::string_view margin,
                          std::string_view unit) {
  std::string text;
  AppendPart(text, margin, unit, LoadResString(form.first_keyword));
  text.append(margin).append(LoadResString(form.last_keyword));
  return text;
}

std::string WithBlockText(std::string_view object_text, std::string_view margin,
                          std::string_view unit) {
  std::string text;
  AppendPart(text, margin, unit, "With " + std::string(object_text));
  text.append(margin).append("End With");
  return text;
}

const std::vector<std::string_view>& SnippetCommandNames() {
  static const std::vector<std::string_view> names = {
      "If Then", "If Then Else", "If Then Else If", "If Then ElseIf Else",
      "IfDoLoopWhile", "IfDoLoopUntil", "ForEachNext", "ForNext", "While", "With",
      "Select Case", "Select Case Else", "Select Case UCase", "On Error GoTo",
      "On Error Resume Next", "On Error GoTo 0", "Resume", "ErrorHandling", "Exit", "GoTo",
      "Debug.Print "};
  return names;
}

}  // namespace tavrin::codegen
