#include "codegen/procedure_generator.h"

#include <algorithm>

#include "base/text.h"
#include "codegen/template_merge.h"
#include "codegen/templates.h"

namespace tavrin::codegen {
namespace {

bool IsPlainType(std::string_view type) {
  static constexpr std::string_view kPlainTypes[] = {
      "Byte", "Boolean", "Integer", "Long", "Single", "Double", "Currency", "Date", "String",
      "Variant"};
  return type.empty() || std::any_of(std::begin(kPlainTypes), std::end(kPlainTypes),
                                     [&](std::string_view each) {
                                       return EqualsIgnoreCase(each, type);
                                     });
}

}  // namespace

std::string clsArgument::ArgumentString() const {
  if (IsParamArray) return "ParamArray " + Name + "()";
  std::string text;
  if (IsOptional) text += "Optional ";
  if (IsByVal) text += "ByVal ";
  text += Name;
  if (IsArray) text += "()";
  if (!Type_.empty()) text += " As " + Type_;
  if (IsOptional && !DefaultValue.empty()) text += " = " + DefaultValue;
  return text;
}

bool colArguments::RemoveAtPosition(std::int32_t position) {
  const auto it = std::find_if(items_.begin(), items_.end(), [&](const clsArgument& each) {
    return each.Position == position;
  });
  if (it == items_.end()) return false;
  items_.erase(it);
  return true;
}

std::string ArgumentOrderMessage(std::int32_t order) {
  const std::string_view reorder = "\r\nPlease reorder the arguments list.";
  switch (order) {
    case kRequiredAfterOptional:
      return "After the optional argument all subsequent arguments must also be optional." +
             std::string(reorder);
    case kArgumentAfterParamArray:
      return "ParamArray argument is used only as the last argument." + std::string(reorder);
    default:
      return {};
  }
}

HourglassLines HourglassFor(std::string_view host) {
  if (host == "Access" || host == "VBRUN")
    return {"Screen.MousePointer = 11", "Screen.MousePointer = 0"};
  // No blanks around "=" for these two: users' templates match them as written.
  if (host == "Excel") return {"Application.Cursor=xlWait", "Application.Cursor=xlDefault"};
  if (host == "Word") return {"System.Cursor=wdCursorWait", "System.Cursor=wdCursorNormal"};
  return {};
}

std::vector<const clsArgument*> clsProcedure::ArgumentsByPosition() const {
  const auto& items = Arguments.Items();
  std::vector<const clsArgument*> by_position(items.size(), nullptr);
  for (const clsArgument& argument : items) {
    if (argument.Position >= 1 && argument.Position <= static_cast<int>(items.size()))
      by_position[argument.Position - 1] = &argument;
  }
  return by_position;
}

std::string clsProcedure::GetArgString(std::int32_t indent) const {
  if (Arguments.Count() == 0) return {};
  std::string text;
  bool first = true;
  for (const clsArgument* argument : ArgumentsByPosition()) {
    if (!first && indent > 0 && ArgumentsOnSeparateLines)
      text.append("_").append(kCrLf).append(Blanks(indent));
    first = false;
    if (argument) text += argument->ArgumentString();
    text += ", ";
  }
  text.resize(text.size() - 2);
  return text;
}

std::string clsProcedure::GenerateCode() {
  if (!ProcContent.empty()) return ProcContent;
  std::string declaration;
  if (!Accessibility.empty()) declaration += Accessibility + " ";
  if (IsStatic) declaration += "Static ";
  declaration += ProcType + " ";
  if (ProcType == "Property") declaration += PropertyType + " ";
  declaration += Name + "(";
  // Continuation lines line up under the first argument.
  const auto indent = static_cast<std::int32_t>(declaration.size());
  if (Arguments.Count() > 0) declaration += GetArgString(indent);
  declaration += ")";
  if (!ReturnType.empty()) declaration += " As " + ReturnType;
  DeclarationLine = declaration;

  std::string code = declaration + std::string(kCrLf);
  if (AddHeader && !HeaderTemplate.empty())
    code += ExpandHeaderText(environment_, HeaderTemplate, HeaderKind::kProcedure, Name,
                             Description);
  if (AddProcNameConst) {
    code += environment_.indent_unit + "Const " +
            environment_.settings.procedure_name_constant + " = \"" + Name + "\"" +
            std::string(kCrLf);
  }
  code.append(kCrLf).append("End " + ProcType).append(kCrLf);
  if (WithErrorHandler) AddErrorHandler(code);
  if (WithReturnLine) AddReturnLine(code);
  if (WithHourglass) AddHourglass(code);
  return code;
}

void clsProcedure::AddErrorHandler(std::string& code) const {
  std::string handler = ErrorHandlerTemplate(environment_);
  ExpandProcedureTemplate(environment_, handler, ModuleName, Name, ProcType);
  code = MergeTemplate(code, handler, environment_.settings.exit_label);
}

bool clsProcedure::ReturnsAValue() const {
  return ProcType == "Function" || (ProcType == "Property" && PropertyType == "Get");
}

void clsProcedure::AddReturnLine(std::string& code) const {
  // A Sub, Property Let or Property Set has nothing to return.
  if (!ReturnsAValue()) return;
  std::string line(kBeforeHandleExitLabel);
  line += environment_.indent_unit;
  line += IsPlainType(ReturnType) ? Name + " = Empty" : "Set " + Name + " = Nothing";
  line += kCrLf;
  code = MergeTemplate(code, line, environment_.settings.exit_label);
}

void clsProcedure::AddHourglass(std::string& code) const {
  const HourglassLines lines = HourglassFor(environment_.host);
  const auto statement = [&](std::string_view text) {
    return text.empty() ? std::string(kCrLf)
                        : environment_.indent_unit + std::string(text) + std::string(kCrLf);
  };
  const std::string hourglass = statement(lines.on) + std::string(kEndOfTop) +
                                std::string(kBeginOfBottom) + statement(lines.off);
  code = MergeTemplate(code, hourglass, environment_.settings.exit_label);
}

void clsProcedure::ArgumentsRenumber(std::int32_t removed_position) {
  for (clsArgument& argument : Arguments.Items())
    if (argument.Position > removed_position) --argument.Position;
}

std::int32_t clsProcedure::ArgumentsOrderIsBad() const {
  const auto by_position = ArgumentsByPosition();
  bool seen_optional = false;
  for (const clsArgument* argument : by_position) {
    if (!argument) continue;
    if (argument->IsOptional) seen_optional = true;
    else if (seen_optional) return kRequiredAfterOptional;
  }
  bool seen_param_array = false;
  for (const clsArgument* argument : by_position) {
    if (!argument) continue;
    if (!argument->IsParamArray && seen_param_array) return kArgumentAfterParamArray;
    if (argument->IsParamArray) seen_param_array = true;
  }
  return kOrderValid;
}

}  // namespace tavrin::codegen
