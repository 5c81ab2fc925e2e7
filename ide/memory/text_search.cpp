#include "ide/memory/text_search.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "base/utf8.h"
#include "ide/memory/like_pattern.h"

namespace tavrin::ide::memory {
namespace {

// Letters, digits and underscores make words; non-ASCII characters are taken
// as letters (accented names).
bool IsWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsWholeWord(std::string_view line, std::size_t begin, std::size_t end) {
  return (begin == 0 || !IsWordByte(line[begin - 1])) &&
         (end >= line.size() || !IsWordByte(line[end]));
}

bool SameText(std::string_view a, std::string_view b, bool match_case) {
  return match_case ? a == b : EqualsIgnoreCase(a, b);
}

struct Match {
  std::size_t begin;
  std::size_t end;
};

// The leftmost match in line[from, to).
std::optional<Match> FindInLine(std::string_view line, std::size_t from, std::size_t to,
                                std::string_view target, const FindOptions& options,
                                const LikePattern* pattern) {
  for (std::size_t begin = from; begin < to;) {
    std::optional<std::size_t> end;
    if (pattern != nullptr) {
      end = pattern->MatchAt(line, begin, to);
    } else if (begin + target.size() <= to &&
               SameText(line.substr(begin, target.size()), target, options.match_case)) {
      end = begin + target.size();
    }
    if (end && (!options.whole_word || IsWholeWord(line, begin, *end)))
      return Match{begin, *end};
    NextChar(line, begin);
  }
  return std::nullopt;
}

}  // namespace

bool FindInLines(const std::vector<std::string_view>& lines, std::string_view target,
                 TextRange& range, const FindOptions& options) {
  if (target.empty() || lines.empty()) return false;
  std::optional<LikePattern> pattern;
  if (options.pattern_search) {
    pattern = LikePattern::Compile(target, options.match_case);
    if (!pattern) return false;
  }
  const int count = static_cast<int>(lines.size());
  const int first_line = std::max(range.start_line, 1);
  const bool to_module_end = range.end_line < 0 || range.end_line > count;
  const int last_line = to_module_end ? count : range.end_line;
  for (int line = first_line; line <= last_line; ++line) {
    const std::string_view text = lines[line - 1];
    const std::size_t from =
        line == first_line ? utf8::OffsetOfColumn(text, std::max(range.start_column, 1)) : 0;
    std::size_t to = text.size();
    if (line == last_line && !to_module_end && range.end_column >= 1)
      to = std::min(to, utf8::OffsetOfColumn(text, range.end_column));
    if (from >= to) continue;
    if (auto match = FindInLine(text, from, to, target, options,
                                pattern ? &*pattern : nullptr)) {
      range = {line, utf8::ColumnOfOffset(text, match->begin), line,
               utf8::ColumnOfOffset(text, match->end)};
      return true;
    }
  }
  return false;
}

}  // namespace tavrin::ide::memory
