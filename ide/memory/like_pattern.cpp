#include "ide/memory/like_pattern.h"

namespace tavrin::ide::memory {
namespace {

char32_t FoldAscii(char32_t c) { return (c >= 'a' && c <= 'z') ? c - 'a' + 'A' : c; }

}  // namespace

char32_t NextChar(std::string_view text, std::size_t& offset) {
  const auto lead = static_cast<unsigned char>(text[offset]);
  std::size_t length = lead < 0x80 ? 1 : (lead & 0xE0) == 0xC0 ? 2 : (lead & 0xF0) == 0xE0 ? 3
                     : (lead & 0xF8) == 0xF0 ? 4 : 1;
  if (offset + length > text.size()) length = 1;
  for (std::size_t k = 1; k < length; ++k) {
    if ((static_cast<unsigned char>(text[offset + k]) & 0xC0) != 0x80) length = 1;
  }
  char32_t c = length == 1 ? lead : lead & (0xFF >> (length + 1));
  for (std::size_t k = 1; k < length; ++k)
    c = (c << 6) | (static_cast<unsigned char>(text[offset + k]) & 0x3F);
  offset += length;
  return c;
}

std::optional<LikePattern> LikePattern::Compile(std::string_view pattern, bool match_case) {
  LikePattern result;
  result.match_case_ = match_case;
  for (std::size_t i = 0; i < pattern.size();) {
    Token token;
    const char c = pattern[i];
    if (c == '*') {
      ++i;
      token.kind = Kind::kStar;
    } else if (c == '?') {
      ++i;
      token.kind = Kind::kAny;
    } else if (c == '#') {
      ++i;
      token.kind = Kind::kDigit;
    } else if (c == '[') {
      ++i;
      token.kind = Kind::kList;
      if (i < pattern.size() && pattern[i] == '!') {
        token.negated = true;
        ++i;
      }
      bool closed = false;
      while (i < pattern.size()) {
        if (pattern[i] == ']') {
          closed = true;
          ++i;
          break;
        }
        const char32_t low = NextChar(pattern, i);
        char32_t high = low;
        if (i + 1 < pattern.size() && pattern[i] == '-' && pattern[i + 1] != ']') {
          ++i;
          high = NextChar(pattern, i);
        }
        token.ranges.push_back({low, high});
      }
      if (!closed) return std::nullopt;
    } else {
      token.kind = Kind::kChar;
      token.c = NextChar(pattern, i);
    }
    result.tokens_.push_back(std::move(token));
  }
  return result;
}

bool LikePattern::Accepts(const Token& token, char32_t c) const {
  switch (token.kind) {
    case Kind::kChar:
      return match_case_ ? c == token.c : FoldAscii(c) == FoldAscii(token.c);
    case Kind::kAny:
      return true;
    case Kind::kDigit:
      return c >= '0' && c <= '9';
    case Kind::kList: {
      bool found = false;
      for (const Range& range : token.ranges) {
        const bool in = (c >= range.low && c <= range.high) ||
                        (!match_case_ && FoldAscii(c) >= FoldAscii(range.low) &&
                         FoldAscii(c) <= FoldAscii(range.high));
        if (in) found = true;
      }
      return found != token.negated;
    }
    case Kind::kStar:
      return false;
  }
  return false;
}

void LikePattern::AddState(std::vector<bool>& states, std::size_t state) const {
  while (state < tokens_.size() && !states[state]) {
    states[state] = true;
    if (tokens_[state].kind != Kind::kStar) return;
    ++state;
  }
  if (state == tokens_.size()) states[state] = true;
}

std::optional<std::size_t> LikePattern::MatchAt(std::string_view text, std::size_t start,
                                                std::size_t limit) const {
  if (limit > text.size()) limit = text.size();
  const std::size_t accept = tokens_.size();
  std::vector<bool> states(accept + 1, false);
  AddState(states, 0);
  for (std::size_t offset = start; offset < limit;) {
    const char32_t c = NextChar(text, offset);
    if (offset > limit) break;
    std::vector<bool> next(accept + 1, false);
    bool any = false;
    for (std::size_t s = 0; s < accept; ++s) {
      if (!states[s]) continue;
      if (tokens_[s].kind == Kind::kStar) {
        AddState(next, s);  // the star takes this character and stays
        any = true;
      } else if (Accepts(tokens_[s], c)) {
        AddState(next, s + 1);
        any = true;
      }
    }
    if (!any) return std::nullopt;
    if (next[accept]) return offset;
    states = std::move(next);
  }
  return std::nullopt;
}

}  // namespace tavrin::ide::memory
