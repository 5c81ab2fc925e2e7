#include "ide/memory/procedure_index.h"

#include <algorithm>

#include "base/text.h"

namespace tavrin::ide::memory {
namespace {

bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
// Non-ASCII bytes count as letters: names may hold accented characters.
bool IsNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::string_view SkipBlanks(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsBlankOrTab(text[i])) ++i;
  return text.substr(i);
}

// Takes a word and the blanks after it off the front of `text`.
std::string_view TakeWord(std::string_view& text) {
  std::size_t end = 0;
  while (end < text.size() && IsNameChar(text[end])) ++end;
  const std::string_view word = text.substr(0, end);
  text = SkipBlanks(text.substr(end));
  return word;
}

// The statement after a leading line number or line label.
std::string_view StatementOf(std::string_view line) {
  std::string_view rest = SkipBlanks(line);
  if (!rest.empty() && IsDigit(rest.front())) {
    std::size_t end = 0;
    while (end < rest.size() && IsDigit(rest[end])) ++end;
    if (end < rest.size() && rest[end] == ':') ++end;
    return SkipBlanks(rest.substr(end));
  }
  std::size_t end = 0;
  while (end < rest.size() && IsNameChar(rest[end])) ++end;
  if (end > 0 && end < rest.size() && rest[end] == ':' &&
      (end + 1 == rest.size() || rest[end + 1] != '=')) {
    return SkipBlanks(rest.substr(end + 1));
  }
  return rest;
}

std::string Key(std::string_view name, ProcKind kind) {
  std::string key = ToUpperAscii(name);
  key += '\x01';
  key += static_cast<char>('0' + static_cast<int>(kind));
  return key;
}

}  // namespace

std::optional<ProcDeclaration> ParseProcDeclaration(std::string_view statement) {
  std::string_view rest = StatementOf(statement);
  std::string_view word = TakeWord(rest);
  if (EqualsIgnoreCase(word, "Public") || EqualsIgnoreCase(word, "Private") ||
      EqualsIgnoreCase(word, "Friend")) {
    word = TakeWord(rest);
  }
  if (EqualsIgnoreCase(word, "Static")) word = TakeWord(rest);
  ProcKind kind = ProcKind::kProc;
  if (EqualsIgnoreCase(word, "Property")) {
    const std::string_view accessor = TakeWord(rest);
    if (EqualsIgnoreCase(accessor, "Get")) kind = ProcKind::kGet;
    else if (EqualsIgnoreCase(accessor, "Let")) kind = ProcKind::kLet;
    else if (EqualsIgnoreCase(accessor, "Set")) kind = ProcKind::kSet;
    else return std::nullopt;
  } else if (!EqualsIgnoreCase(word, "Sub") && !EqualsIgnoreCase(word, "Function")) {
    return std::nullopt;
  }
  const std::string_view name = TakeWord(rest);
  if (name.empty()) return std::nullopt;
  return ProcDeclaration{std::string(name), kind};
}

bool IsProcEnd(std::string_view line) {
  std::string_view rest = StatementOf(line);
  if (!EqualsIgnoreCase(TakeWord(rest), "End")) return false;
  std::size_t end = 0;
  while (end < rest.size() && IsNameChar(rest[end])) ++end;
  const std::string_view word = rest.substr(0, end);
  if (!EqualsIgnoreCase(word, "Sub") && !EqualsIgnoreCase(word, "Function") &&
      !EqualsIgnoreCase(word, "Property")) {
    return false;
  }
  return end == rest.size() || IsBlankOrTab(rest[end]) || rest[end] == ':' ||
         rest[end] == '\'';
}

bool IsBlankOrComment(std::string_view line) {
  const std::string_view rest = SkipBlanks(line);
  if (rest.empty() || rest.front() == '\'') return true;
  return StartsWithIgnoreCase(rest, "Rem") && (rest.size() == 3 || IsBlankOrTab(rest[3]));
}

bool EndsWithContinuation(std::string_view line) {
  std::size_t end = line.size();
  while (end > 0 && IsBlankOrTab(line[end - 1])) --end;
  return end > 0 && line[end - 1] == '_' && (end == 1 || IsBlankOrTab(line[end - 2]));
}

ProcedureIndex ProcedureIndex::Build(const std::vector<std::string_view>& lines) {
  ProcedureIndex index;
  const int count = static_cast<int>(lines.size());
  int last_statement = 0;  // last statement line before the first procedure
  bool in_procedure = false;
  int previous_end = 0;  // last line of the previous procedure or declarations
  std::string joined;
  for (int first = 0; first < count;) {
    int last = first;
    while (last + 1 < count && EndsWithContinuation(lines[last])) ++last;
    std::string_view logical = lines[first];
    if (last > first) {
      joined.clear();
      for (int i = first; i <= last; ++i) {
        std::string_view piece = lines[i];
        if (i < last) piece = piece.substr(0, piece.rfind('_'));
        joined += piece;
      }
      logical = joined;
    }
    if (in_procedure && IsProcEnd(lines[first])) {
      index.procedures_.back().last_line = last + 1;
      previous_end = last + 1;
      in_procedure = false;
    } else if (auto declaration = ParseProcDeclaration(logical)) {
      if (index.procedures_.empty()) {
        index.declaration_lines_ = last_statement;
        previous_end = last_statement;
      } else if (in_procedure) {
        // A procedure without its End line stops where the next one starts.
        previous_end = first;
        index.procedures_.back().last_line = first;
      }
      index.procedures_.push_back(
          {std::move(declaration->name), declaration->kind, previous_end + 1, first + 1, 0});
      in_procedure = true;
    } else if (index.procedures_.empty() && !IsBlankOrComment(lines[first])) {
      last_statement = last + 1;
    }
    first = last + 1;
  }
  if (index.procedures_.empty()) {
    index.declaration_lines_ = last_statement;
  } else {
    index.procedures_.back().last_line = count;
  }
  for (std::size_t i = 0; i < index.procedures_.size(); ++i)
    index.by_key_.try_emplace(Key(index.procedures_[i].name, index.procedures_[i].kind), i);
  return index;
}

const ProcedureSpan* ProcedureIndex::Find(std::string_view name, ProcKind kind) const {
  const auto it = by_key_.find(Key(name, kind));
  return it == by_key_.end() ? nullptr : &procedures_[it->second];
}

ProcRef ProcedureIndex::ProcOfLine(int line) const {
  if (line <= declaration_lines_) return {};
  const auto after = std::upper_bound(
      procedures_.begin(), procedures_.end(), line,
      [](int value, const ProcedureSpan& span) { return value < span.start_line; });
  if (after == procedures_.begin()) return {};
  const ProcedureSpan& span = *(after - 1);
  return {span.name, span.kind};
}

}  // namespace tavrin::ide::memory
