#include "base/text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

namespace tavrin {

std::string_view TrimLeftBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view TrimRightBlanks(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view TrimBlanks(std::string_view text) {
  return TrimRightBlanks(TrimLeftBlanks(text));
}

bool IsBlankOrEmpty(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

int CountLeadingBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return static_cast<int>(first == std::string_view::npos ? text.size() : first);
}

std::string Blanks(int count) { return std::string(std::max(count, 0), ' '); }


std::string ToUpperAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToUpperAscii(c);
  return result;
}

std::string ToLowerAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToLowerAscii(c);
  return result;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(),
                    [](char x, char y) { return ToUpperAscii(x) == ToUpperAscii(y); });
}

bool StartsWithIgnoreCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() &&
         EqualsIgnoreCase(text.substr(0, prefix.size()), prefix);
}

std::size_t FindIgnoreCase(std::string_view text, std::string_view needle,
                           std::size_t from) {
  if (needle.empty()) return from <= text.size() ? from : std::string_view::npos;
  const auto it = std::search(
      text.begin() + std::min(from, text.size()), text.end(), needle.begin(),
      needle.end(), [](char x, char y) { return ToUpperAscii(x) == ToUpperAscii(y); });
  return it == text.end() ? std::string_view::npos
                          : static_cast<std::size_t>(it - text.begin());
}

std::vector<std::string_view> SplitCrLf(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (auto at = text.find(kCrLf); at != std::string_view::npos;
       at = text.find(kCrLf, start)) {
    pieces.push_back(text.substr(start, at - start));
    start = at + kCrLf.size();
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

std::vector<std::string_view> SplitAnyLineBreak(std::string_view text) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    pieces.push_back(text.substr(start, i - start));
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    start = i + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

std::string JoinCrLf(const std::vector<std::string>& lines) {
  std::string joined;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) joined += kCrLf;
    joined += lines[i];
  }
  return joined;
}

std::string ReplaceAll(std::string_view text, std::string_view from,
                       std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string result;
  std::size_t start = 0;
  for (auto at = text.find(from); at != std::string_view::npos;
       at = text.find(from, start)) {
    result.append(text.substr(start, at - start)).append(to);
    start = at + from.size();
  }
  result.append(text.substr(start));
  return result;
}

long long LeadingNumber(std::string_view text) {
  text = TrimLeftBlanks(text);
  std::size_t end = 0;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  const std::size_t digits_start = end;
  while (end < text.size() && (std::isdigit(static_cast<unsigned char>(text[end])) || text[end] == '.')) ++end;
  if (end == digits_start) return 0;
  const std::string number(text.substr(0, end));
  const double value = std::strtod(number.c_str(), nullptr);
  if (!std::isfinite(value) || std::fabs(value) > 1e15) return 0;
  return static_cast<long long>(std::nearbyint(value));  // banker's rounding, as CLng
}

}  // namespace tavrin
