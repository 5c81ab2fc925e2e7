#include "builders/class_code.h"

#include <algorithm>

#include "base/text.h"
#include "codegen/templates.h"
#include "ide/memory/component_kind.h"
#include "ide/memory/source_file.h"

namespace tavrin::builders {
namespace {

bool IsOptionExplicit(std::string_view line) {
  return EqualsIgnoreCase(TrimBlanks(line), "Option Explicit");
}

// The index of the first code line: past VERSION, the BEGIN ... END block
// and the Attribute lines of the file header.
std::size_t FirstCodeLine(const std::vector<std::string>& lines) {
  std::size_t i = 0;
  if (i < lines.size() && StartsWithIgnoreCase(lines[i], "VERSION ")) ++i;
  if (i < lines.size() && EqualsIgnoreCase(TrimBlanks(lines[i]), "BEGIN")) {
    while (i < lines.size() && !EqualsIgnoreCase(TrimBlanks(lines[i]), "END")) ++i;
    if (i < lines.size()) ++i;
  }
  while (i < lines.size() && StartsWithIgnoreCase(lines[i], "Attribute ")) ++i;
  return i;
}

// The lines of a text; a final line break ends the last line, and an
// empty text has none.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  if (text.empty()) return lines;
  if (text.ends_with("\r\n")) text.remove_suffix(2);
  else if (text.ends_with("\n") || text.ends_with("\r")) text.remove_suffix(1);
  for (std::string_view line : SplitAnyLineBreak(text)) lines.emplace_back(line);
  return lines;
}

}  // namespace

std::string PlainClassCode(const ClassSpec& spec) {
  std::vector<std::string> parts;
  std::vector<std::string> top = Lines(spec.header);
  if (spec.option_explicit) top.push_back("Option Explicit");
  if (!top.empty()) parts.push_back(JoinCrLf(top));
  std::string members;
  for (const PropertySpec& property : spec.properties)
    members += (members.empty() ? "" : "\r\n") + MemberDeclaration(property);
  if (!members.empty()) parts.push_back(members);
  for (const PropertySpec& property : spec.properties) parts.push_back(PropertyCode(property));
  std::string code;
  for (const std::string& part : parts) code += (code.empty() ? "" : "\r\n\r\n") + part;
  return code;
}

std::string FillCollectionTemplate(const codegen::TemplateEnvironment& environment,
                                   std::string_view template_text, const ClassSpec& spec,
                                   std::string_view item_class, std::string_view project_name) {
  std::string text(template_text);
  text = codegen::ReplacePlaceholder(text, "{PROJECTNAME}", project_name);
  text = codegen::ReplacePlaceholder(text, kItemClassPlaceholder, item_class);
  codegen::ExpandProcedureTemplate(environment, text, spec.name, spec.name, "Class");

  // A line holding only {MODULEHEADER} becomes the header's lines, none
  // when there is no header; without such a line the header goes above the
  // first code line.
  const std::vector<std::string> header_lines = Lines(spec.header);
  bool header_placed = false;
  std::vector<std::string> lines;
  for (std::string& line : Lines(text)) {
    if (EqualsIgnoreCase(TrimBlanks(line), "{MODULEHEADER}")) {
      lines.insert(lines.end(), header_lines.begin(), header_lines.end());
      header_placed = true;
    } else {
      lines.push_back(std::move(line));
    }
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  std::size_t code = FirstCodeLine(lines);
  if (code == 0) {
    std::vector<std::string> file = ide::memory::NewComponentHeader(
        ide::ComponentType::kClassModule, spec.name);
    code = file.size();
    lines.insert(lines.begin(), file.begin(), file.end());
  }
  for (std::size_t i = 0; i < code; ++i)
    if (StartsWithIgnoreCase(lines[i], "Attribute VB_Name"))
      lines[i] = "Attribute VB_Name = \"" + spec.name + "\"";
  if (!header_placed) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(code), header_lines.begin(),
                 header_lines.end());
  }
  const bool has_option = std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(code),
                                      lines.end(), IsOptionExplicit);
  if (spec.option_explicit && !has_option) {
    std::size_t after_header = code;
    while (after_header < lines.size() && TrimBlanks(lines[after_header]).starts_with("'"))
      ++after_header;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(after_header), "Option Explicit");
  }
  return JoinCrLf(lines) + "\r\n";
}

std::string ClassFileText(std::string_view name, std::string_view code) {
  std::vector<std::string> lines =
      ide::memory::NewComponentHeader(ide::ComponentType::kClassModule, name);
  std::string text = JoinCrLf(lines) + "\r\n";
  if (!code.empty()) text += std::string(code) + "\r\n";
  return text;
}

std::string CodePaneText(std::string_view file_text) {
  auto source = ide::memory::SourceFile::Parse(file_text, "Class.cls");
  if (!source) return std::string(file_text);
  std::vector<std::string> lines;
  for (const ide::memory::CodeLine& line : source->code()) lines.push_back(line.text);
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return JoinCrLf(lines);
}

}  // namespace tavrin::builders
