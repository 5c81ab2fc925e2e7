// The Like operator's wildcards, for pattern searches in a code module:
// `*` any run of characters, `?` one character, `#` one digit, `[list]` and
// `[!list]` one character in (or not in) a list of characters and ranges.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrin::ide::memory {

class LikePattern {
 public:
  // nullopt for a pattern with an unclosed `[`.
  static std::optional<LikePattern> Compile(std::string_view pattern, bool match_case);

  // The end (byte offset) of the shortest non-empty match that starts at
  // `start` and ends at or before `limit`, if there is one.
  std::optional<std::size_t> MatchAt(std::string_view text, std::size_t start,
                                     std::size_t limit) const;

 private:
  enum class Kind { kChar, kAny, kDigit, kList, kStar };
  struct Range {
    char32_t low;
    char32_t high;
  };
  struct Token {
    Kind kind = Kind::kChar;
    char32_t c = 0;
    bool negated = false;
    std::vector<Range> ranges;
  };

  bool Accepts(const Token& token, char32_t c) const;
  // Adds `state` and every state reachable from it through `*` tokens.
  void AddState(std::vector<bool>& states, std::size_t state) const;

  std::vector<Token> tokens_;
  bool match_case_ = false;
};

// Decodes one character of UTF-8 at `offset` (a stray byte is one character)
// and advances `offset` past it.
char32_t NextChar(std::string_view text, std::size_t& offset);

}  // namespace tavrin::ide::memory
