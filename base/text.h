// Text helpers over Visual Basic source held as UTF-8.
//
// Visual Basic's Trim removes blanks only (not tabs), and its keyword
// comparisons are either exact or case-insensitive over ASCII letters; these
// helpers keep those meanings so the algorithms built on them match the IDE.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

inline constexpr std::string_view kCrLf = "\r\n";

std::string_view TrimBlanks(std::string_view text);
std::string_view TrimLeftBlanks(std::string_view text);
std::string_view TrimRightBlanks(std::string_view text);
bool IsBlankOrEmpty(std::string_view text);
int CountLeadingBlanks(std::string_view text);
std::string Blanks(int count);

// Inline: every case-insensitive comparison calls these per character.
inline char ToUpperAscii(char c) { return (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c; }
inline char ToLowerAscii(char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; }
std::string ToUpperAscii(std::string_view text);
std::string ToLowerAscii(std::string_view text);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);
bool StartsWithIgnoreCase(std::string_view text, std::string_view prefix);
std::size_t FindIgnoreCase(std::string_view text, std::string_view needle,
                           std::size_t from = 0);

// Splits at every CR LF pair, keeping empty pieces ("a\r\n" gives "a", "").
std::vector<std::string_view> SplitCrLf(std::string_view text);
// Splits at CR LF, lone LF and lone CR alike, as the IDE does for text it
// inserts; keeps empty pieces.
std::vector<std::string_view> SplitAnyLineBreak(std::string_view text);
std::string JoinCrLf(const std::vector<std::string>& lines);

std::string ReplaceAll(std::string_view text, std::string_view from,
                       std::string_view to);

// The number at the start of a text, as Visual Basic's Val reads it, rounded
// to the nearest integer (half to even); text that does not start with a
// number gives 0. Leading blanks are skipped.
long long LeadingNumber(std::string_view text);

}  // namespace tavrin
