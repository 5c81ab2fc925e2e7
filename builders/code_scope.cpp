#include "builders/code_scope.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace tavrin::builders {
namespace {

bool IsNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsObjectType(std::string_view type) {
  static constexpr std::array<std::string_view, 14> kSimple = {
      "Byte",   "Boolean", "Integer", "Long",   "LongLong", "LongPtr", "Currency",
      "Single", "Double",  "Date",    "String", "Variant",  "Decimal", "Any"};
  if (type.empty()) return false;
  return std::none_of(kSimple.begin(), kSimple.end(),
                      [&](std::string_view simple) { return EqualsIgnoreCase(type, simple); });
}

// The lines of a code text with continued lines joined into one.
std::vector<std::string> LogicalLines(std::string_view text) {
  std::vector<std::string> lines;
  bool continued = false;
  for (std::string_view line : SplitAnyLineBreak(text)) {
    std::string_view trimmed = TrimRightBlanks(line);
    const bool continues = trimmed.ends_with(" _");
    if (continues) trimmed.remove_suffix(1);
    if (continued)
      lines.back() += std::string(trimmed);
    else
      lines.emplace_back(trimmed);
    continued = continues;
  }
  return lines;
}

// The text up to an apostrophe outside quotes.
std::string_view WithoutComment(std::string_view line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') quoted = !quoted;
    if (line[i] == '\'' && !quoted) return line.substr(0, i);
  }
  return line;
}

// "a As T, b(1 To 2) As New U": the parts between commas outside brackets.
std::vector<std::string_view> SplitDeclarators(std::string_view text) {
  std::vector<std::string_view> parts;
  int depth = 0;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || (text[i] == ',' && depth == 0)) {
      parts.push_back(TrimBlanks(text.substr(start, i - start)));
      start = i + 1;
    } else if (text[i] == '(') {
      ++depth;
    } else if (text[i] == ')') {
      --depth;
    }
  }
  return parts;
}

// Adds the variables (or only those of an object type) that a declaration
// line declares, when it is one.
void AddDeclared(std::string_view line, bool objects_only, std::vector<std::string>& names) {
  std::string_view text = TrimBlanks(WithoutComment(line));
  bool declares = false;
  for (std::string_view keyword : {"Dim ", "Static ", "Private ", "Public ", "Global "}) {
    if (StartsWithIgnoreCase(text, keyword)) {
      text = TrimLeftBlanks(text.substr(keyword.size()));
      declares = true;
      break;
    }
  }
  if (!declares) return;
  // "Private Function F() As Object" and the like declare no variable.
  for (std::string_view keyword :
       {"Sub ", "Function ", "Property ", "Declare ", "Const ", "Type ", "Enum ", "Event "}) {
    if (StartsWithIgnoreCase(text, keyword)) return;
  }
  if (StartsWithIgnoreCase(text, "WithEvents ")) text = TrimLeftBlanks(text.substr(11));
  for (std::string_view part : SplitDeclarators(text)) {
    std::size_t end = 0;
    while (end < part.size() && IsNameChar(part[end])) ++end;
    const std::string_view name = part.substr(0, end);
    const std::size_t as = ToLowerAscii(part).find(" as ");
    if (name.empty()) continue;
    if (!objects_only) {
      names.emplace_back(name);
      continue;
    }
    if (as == std::string_view::npos) continue;
    std::string_view type = TrimBlanks(part.substr(as + 4));
    if (StartsWithIgnoreCase(type, "New ")) type = TrimLeftBlanks(type.substr(4));
    if (IsObjectType(type)) names.emplace_back(name);
  }
}

void AddUnique(std::vector<std::string>& to, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (std::none_of(to.begin(), to.end(),
                     [&](const std::string& known) { return EqualsIgnoreCase(known, name); }))
      to.push_back(name);
  }
}

}  // namespace

std::vector<std::string> LabelsOf(std::string_view procedure_code) {
  std::vector<std::string> labels;
  const auto lines = LogicalLines(procedure_code);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::string_view text = TrimLeftBlanks(lines[i]);
    std::size_t end = 0;
    while (end < text.size() && IsNameChar(text[end])) ++end;
    if (end == 0 || (text[0] >= '0' && text[0] <= '9')) continue;
    const std::string_view rest = text.substr(end);
    if (rest.starts_with(":") && !rest.starts_with(":=")) labels.emplace_back(text.substr(0, end));
  }
  return labels;
}

namespace {

std::vector<std::string> VariablesIn(std::string_view declarations,
                                     std::string_view procedure_code,
                                     const scan::C4_ProcArguments& arguments, bool objects_only) {
  std::vector<std::string> names;
  std::vector<std::string> found;
  for (const scan::C4_ProcArgument& argument : arguments.Items())
    if (!objects_only || IsObjectType(argument.Type_)) found.push_back(argument.Name);
  AddUnique(names, found);
  found.clear();
  const auto body = LogicalLines(procedure_code);
  for (std::size_t i = 1; i < body.size(); ++i) AddDeclared(body[i], objects_only, found);
  AddUnique(names, found);
  found.clear();
  for (const std::string& line : LogicalLines(declarations))
    AddDeclared(line, objects_only, found);
  AddUnique(names, found);
  return names;
}

}  // namespace

std::vector<std::string> ObjectVariablesOf(std::string_view declarations,
                                           std::string_view procedure_code,
                                           const scan::C4_ProcArguments& arguments) {
  return VariablesIn(declarations, procedure_code, arguments, true);
}

std::vector<std::string> VariablesOf(std::string_view declarations,
                                     std::string_view procedure_code,
                                     const scan::C4_ProcArguments& arguments) {
  return VariablesIn(declarations, procedure_code, arguments, false);
}

}  // namespace tavrin::builders
