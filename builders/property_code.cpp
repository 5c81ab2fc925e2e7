#include "builders/property_code.h"

#include <vector>

#include "base/text.h"

namespace tavrin::builders {
namespace {

bool IsVariant(const PropertySpec& spec) { return EqualsIgnoreCase(spec.type, "Variant"); }

// The label a trap line jumps to; "" for none (Resume Next, GoTo 0).
std::string TrapLabel(std::string_view trap) {
  std::string_view text = TrimBlanks(trap);
  const std::size_t go_to = FindIgnoreCase(text, "GoTo ");
  if (go_to == std::string_view::npos) return "";
  const std::string_view label = TrimBlanks(text.substr(go_to + 5));
  return label == "0" || label.empty() ? "" : std::string(label);
}

std::string Procedure(const PropertySpec& spec, std::string_view kind, std::string_view arguments,
                      std::string_view returns, const std::vector<std::string>& body) {
  const std::string& in = spec.indent;
  std::string code = "Public Property " + std::string(kind) + " " + spec.name + "(" +
                     std::string(arguments) + ")" + std::string(returns) + "\r\n";
  if (!spec.procedure_constant.empty())
    code += in + "Const " + spec.procedure_constant + " = \"" + spec.name + "\"\r\n";
  const std::string label = TrapLabel(spec.error_trap);
  if (!TrimBlanks(spec.error_trap).empty())
    code += in + std::string(TrimBlanks(spec.error_trap)) + "\r\n";
  for (const std::string& line : body) code += in + line + "\r\n";
  if (!label.empty() && !TrimBlanks(spec.error_trap).empty()) code += label + ":\r\n";
  return code + "End Property";
}

}  // namespace

std::string MemberDeclaration(const PropertySpec& spec) {
  return "Private " + spec.member + " As " + spec.type;
}

std::string PropertyCode(const PropertySpec& spec) {
  std::vector<std::string> procedures;
  const std::string as = " As " + spec.type;
  const std::string argument = "ByVal " + spec.argument + as;
  const bool variant = IsVariant(spec);
  if (spec.access != PropertyAccess::kWriteOnly) {
    std::vector<std::string> body;
    if (variant) {
      body = {"If IsObject(" + spec.member + ") Then",
              spec.indent + "Set " + spec.name + " = " + spec.member, "Else",
              spec.indent + spec.name + " = " + spec.member, "End If"};
    } else {
      body = {(spec.is_object ? "Set " : "") + spec.name + " = " + spec.member};
    }
    procedures.push_back(Procedure(spec, "Get", "", as, body));
  }
  if (spec.access != PropertyAccess::kReadOnly) {
    if (!spec.is_object || variant)
      procedures.push_back(
          Procedure(spec, "Let", argument, "", {spec.member + " = " + spec.argument}));
    if (spec.is_object || variant)
      procedures.push_back(
          Procedure(spec, "Set", argument, "", {"Set " + spec.member + " = " + spec.argument}));
  }
  std::string code;
  for (const std::string& procedure : procedures)
    code += (code.empty() ? "" : "\r\n\r\n") + procedure;
  return code;
}

}  // namespace tavrin::builders
