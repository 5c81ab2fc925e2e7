#include "transform/line_numbering.h"

#include <array>
#include <stdexcept>

#include "base/text.h"

namespace tavrin::transform {
namespace {

// Indexed by scope kind; kind 4 repeats kind 1 on purpose (no "FRIEND " or
// "STATIC " is recognised).
constexpr std::array<std::string_view, 5> kScopeWords = {"", "PRIVATE ", "GLOBAL ", "PUBLIC ",
                                                         "PRIVATE "};

// Procedure kinds in the order they are tried.
constexpr std::array<int, 3> kKindsTried = {2, 3, 1};

// The scope kinds in the order a declaration is looked for.
constexpr std::array<int, 5> kScopesTried = {4, 2, 1, 3, 0};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

const std::vector<std::string_view>& NonNumberedStatements() {
  static const std::vector<std::string_view> statements = [] {
    std::vector<std::string_view> list;
    std::size_t start = 0;
    for (std::size_t comma; (comma = kNonNumberedStatements.find(',', start)) !=
                            std::string_view::npos;
         start = comma + 1)
      list.push_back(kNonNumberedStatements.substr(start, comma - start));
    list.push_back(kNonNumberedStatements.substr(start));
    return list;
  }();
  return statements;
}

bool IsNonNumberedStatement(std::string_view trimmed) {
  // Most lines start with a letter no statement of the list starts with.
  static const std::array<bool, 256> first_letters = [] {
    std::array<bool, 256> letters{};
    for (std::string_view statement : NonNumberedStatements())
      letters[static_cast<unsigned char>(ToUpperAscii(statement.front()))] = true;
    return letters;
  }();
  if (trimmed.empty() || !first_letters[static_cast<unsigned char>(ToUpperAscii(trimmed[0]))])
    return false;
  for (std::string_view statement : NonNumberedStatements())
    if (StartsWithIgnoreCase(trimmed, statement)) return true;
  return false;
}

}  // namespace

std::string StripLineNumber(std::string_view line) {
  std::size_t at = 0;
  while (at < line.size() && IsDigit(line[at])) ++at;
  if (at > 0) {
    if (at < line.size() && line[at] == ':') ++at;
    if (at < line.size() && line[at] == ' ') ++at;
  }
  return std::string(line.substr(at));
}

bool IsLabelLine(std::string_view line) {
  return !line.empty() && line.back() == ':' && line.find(' ') == std::string_view::npos;
}

// The same answer as asking Findifisfunctionorvariable for every scope, with
// prefix tests only: every line of a numbered block is asked twice.
bool IsProcedureDeclaration(std::string_view line) {
  const std::string_view trimmed = TrimBlanks(line);
  for (int scope_kind : kScopesTried) {
    const std::string_view scope = kScopeWords[static_cast<std::size_t>(scope_kind)];
    if (!StartsWithIgnoreCase(trimmed, scope)) continue;
    const std::string_view rest = trimmed.substr(scope.size());
    for (int kind : kKindsTried)
      if (StartsWithIgnoreCase(rest, ProcedureKindWord(kind))) return true;
  }
  return false;
}

int Findifisfunctionorvariable(std::string_view line, int scope_kind) {
  if (scope_kind < 0 || scope_kind >= static_cast<int>(kScopeWords.size()))
    throw std::invalid_argument("Findifisfunctionorvariable: NEVER HERE !!");
  const std::string_view scope = kScopeWords[static_cast<std::size_t>(scope_kind)];
  const std::string_view trimmed = TrimBlanks(line);
  if (FindIgnoreCase(trimmed, scope) == std::string_view::npos) return 2;
  if (StartsWithIgnoreCase(trimmed, scope)) {
    const std::string_view rest = trimmed.substr(scope.size());
    for (int kind : kKindsTried)
      if (StartsWithIgnoreCase(rest, ProcedureKindWord(kind))) return 0;
  }
  return scope.empty() ? 2 : 1;
}

std::string_view ProcedureKindWord(int kind) {
  switch (kind) {
    case 1: return "Sub";
    case 2: return "Function";
    case 3: return "Property";
    default: return "";
  }
}

int FindCommentStart(std::string_view line) {
  bool in_literal = false;
  int column = 0;
  for (char c : line) {
    // Columns count characters: continuation bytes of UTF-8 start none.
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++column;
    if (c == '"') in_literal = !in_literal;
    else if (c == '\'' && !in_literal) return column;
  }
  return 0;
}

bool IsNotNumberable(std::string_view line) {
  if (IsProcedureDeclaration(line)) return true;
  const std::string_view trimmed = TrimBlanks(line);
  return trimmed.empty() || FindCommentStart(trimmed) == 1;
}

std::vector<std::string> RemovedLineNumbers(const std::vector<std::string>& lines) {
  std::vector<std::string> result;
  result.reserve(lines.size());
  for (const std::string& line : lines) {
    std::string stripped = StripLineNumber(line);
    result.push_back(stripped.empty() ? std::string(" ") : std::move(stripped));
  }
  return result;
}

std::vector<std::string> AddedLineNumbers(const std::vector<std::string>& lines,
                                          std::string_view line_after, int first_line,
                                          long long start_number) {
  std::vector<std::string> result = RemovedLineNumbers(lines);
  // The line before the block is never looked at: its first line is never a
  // continuation.
  bool continues = false;
  for (std::size_t i = 0; i < result.size(); ++i) {
    std::string& text = result[i];
    const std::string_view trimmed = TrimBlanks(text);
    if (trimmed.empty()) continue;
    const bool was_continued = continues;
    continues = trimmed.back() == '_';
    if (was_continued || IsNonNumberedStatement(trimmed) || IsLabelLine(text)) continue;
    const std::string_view next = i + 1 < result.size() ? std::string_view(result[i + 1])
                                                        : line_after;
    if (IsProcedureDeclaration(next) || IsNotNumberable(text)) continue;
    const long long module_line = first_line + static_cast<long long>(i);
    text = std::to_string(start_number + module_line) + "0 " + text;
  }
  return result;
}

}  // namespace tavrin::transform
