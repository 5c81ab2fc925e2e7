#include "codegen/call_line.h"

#include <array>

#include "base/text.h"
#include "base/utf8.h"

namespace tavrin::codegen {
namespace {

constexpr std::string_view kCursor = "<cursor>";

// A named argument drops the type-declaration character of its name.
std::string_view BareName(std::string_view name) {
  while (!name.empty() && std::string_view("%&!#@$").find(name.back()) != std::string_view::npos)
    name.remove_suffix(1);
  return name;
}

std::vector<std::string> ArgumentParts(const Callable& callable,
                                       const std::vector<std::string>& values,
                                       bool explicit_arguments) {
  const auto& arguments = callable.arguments;
  int last = -1;
  bool param_array_given = false;
  for (std::size_t i = 0; i < values.size() && i < arguments.size(); ++i) {
    if (TrimBlanks(values[i]).empty()) continue;
    last = static_cast<int>(i);
    param_array_given = param_array_given || arguments[i].IsParamArray;
  }
  // The values of a ParamArray cannot be named, and a call cannot name some
  // arguments and then give others by place: such a call goes by place.
  const bool named = explicit_arguments && !param_array_given;
  std::vector<std::string> parts;
  for (int i = 0; i <= last; ++i) {
    const std::string value(TrimBlanks(values[i]));
    if (!named)
      parts.push_back(value);
    else if (!value.empty())
      parts.push_back(std::string(BareName(arguments[i].Name)) + ":=" + value);
  }
  return parts;
}

}  // namespace

bool IsObjectTypeName(std::string_view type) {
  static constexpr std::array<std::string_view, 14> kSimple = {
      "Byte",   "Boolean", "Integer", "Long",   "LongLong", "LongPtr", "Currency",
      "Single", "Double",  "Date",    "String", "Variant",  "Decimal", "Any"};
  const std::string_view trimmed = TrimBlanks(type);
  if (trimmed.empty() || trimmed.starts_with("String *")) return false;
  for (std::string_view simple : kSimple)
    if (EqualsIgnoreCase(trimmed, simple)) return false;
  return true;
}

std::string ArgumentCaption(const scan::C4_ProcArgument& argument) {
  std::string caption;
  if (argument.IsParamArray) caption = "ParamArray ";
  if (argument.IsOptional) caption = "Optional ";
  caption += argument.Name;
  if (argument.IsArray) caption += "()";
  caption += " As " + argument.Type_;
  if (!argument.DefaultValue.empty()) caption += " = " + argument.DefaultValue;
  return caption;
}

std::optional<std::string> CallLineProblem(const Callable& callable,
                                           const std::vector<std::string>& values, int* index) {
  if (values.size() > callable.arguments.size())
    return callable.name + " takes " + std::to_string(callable.arguments.size()) +
           " argument(s), not " + std::to_string(values.size()) + ".";
  for (std::size_t i = 0; i < callable.arguments.size(); ++i) {
    const auto& argument = callable.arguments[i];
    if (argument.IsOptional || argument.IsParamArray) continue;
    if (i < values.size() && !TrimBlanks(values[i]).empty()) continue;
    if (index) *index = static_cast<int>(i);
    return "The argument " + argument.Name + " of " + callable.name +
           " is not optional: give it a value.";
  }
  return std::nullopt;
}

std::string CallLineText(const Callable& callable, const std::vector<std::string>& values,
                         std::string_view result, const CallOptions& options,
                         std::string_view margin) {
  std::string text;
  if (options.comment) {
    text.append(margin).append("' ").append(callable.module.empty() ? "" : callable.module + ".");
    text.append(callable.name);
    if (!TrimBlanks(callable.description).empty())
      text.append(": ").append(TrimBlanks(callable.description));
    text.append(kCrLf);
  }
  const std::vector<std::string> parts =
      ArgumentParts(callable, values, options.explicit_arguments);
  std::string head(margin);  // the call up to its first argument, without the marker
  std::string line(margin);
  bool cursor_placed = false;
  if (callable.is_function) {
    const std::string_view variable = TrimBlanks(result);
    const std::string_view set = IsObjectTypeName(callable.return_type) ? "Set " : "";
    head.append(set);
    line.append(set);
    if (variable.empty() || variable == kNewVariable) {
      line.append(kCursor);
      cursor_placed = true;
    } else {
      head.append(variable);
      line.append(variable);
    }
    head.append(" = ");
    line.append(" = ");
  }
  head.append(callable.name);
  line.append(callable.name);
  if (!parts.empty()) {
    const std::string_view open = callable.is_function ? "(" : " ";
    head.append(open);
    line.append(open);
    const std::string indent = Blanks(static_cast<int>(utf8::CharCount(head)));
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (i > 0) line.append(options.each_on_new_line ? ", _" + std::string(kCrLf) + indent : ", ");
      line.append(parts[i]);
    }
    if (callable.is_function) line.append(")");
  }
  if (!cursor_placed) line.append(kCursor);
  return text + line;
}

}  // namespace tavrin::codegen
