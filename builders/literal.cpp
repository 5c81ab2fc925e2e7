#include "builders/literal.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "base/text.h"

namespace tavrin::builders {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}

// A quoted literal whose inner quotes are all doubled.
bool IsStringLiteral(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return false;
  const std::string_view inner = text.substr(1, text.size() - 2);
  for (std::size_t i = 0; i < inner.size(); ++i) {
    if (inner[i] != '"') continue;
    if (i + 1 >= inner.size() || inner[i + 1] != '"') return false;
    ++i;
  }
  return true;
}

bool IsDateLiteral(std::string_view text) {
  return text.size() > 2 && text.front() == '#' && text.back() == '#';
}

// Digits, separators and AM/PM: what a date or time literal holds.
bool LooksLikeDate(std::string_view inner) {
  bool digit = false;
  for (const char c : inner) {
    if (IsDigit(c)) {
      digit = true;
    } else if (c != '/' && c != '-' && c != ':' && c != ' ' && c != '.' &&
               std::string_view("AaPpMm").find(c) == std::string_view::npos) {
      return false;
    }
  }
  return digit;
}

// A whole number: decimal with a sign, or &H / &O.
std::optional<long long> WholeNumber(std::string_view text) {
  int base = 10;
  if (StartsWithIgnoreCase(text, "&H")) base = 16;
  if (StartsWithIgnoreCase(text, "&O")) base = 8;
  std::string digits(base == 10 ? text : text.substr(2));
  if (digits.empty() || digits.size() > 20) return std::nullopt;
  const std::size_t first = digits[0] == '-' || digits[0] == '+' ? 1 : 0;
  if (first == digits.size() || (base != 10 && first != 0)) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const long long value = std::strtoll(digits.c_str(), &end, base);
  if (errno != 0 || *end != '\0') return std::nullopt;
  // &HFFFF is -1 for an Integer as the language reads it; &H8000 and up
  // are negative Integers, &H80000000 and up negative Longs.
  if (base != 10 && digits.size() <= 4 && value >= 0x8000) return value - 0x10000;
  if (base != 10 && digits.size() <= 8 && value >= 0x80000000LL) return value - 0x100000000LL;
  return value;
}

// A decimal number: sign, digits, a point, an exponent when allowed.
std::optional<double> DecimalNumber(std::string_view text, bool exponent) {
  bool digits = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      digits = true;
    } else if ((c == '-' || c == '+') &&
               (i == 0 || (exponent && (text[i - 1] == 'E' || text[i - 1] == 'e')))) {
    } else if (c == '.' || (exponent && (c == 'E' || c == 'e') && digits)) {
    } else {
      return std::nullopt;
    }
  }
  if (!digits) return std::nullopt;
  const std::string copy(text);
  char* end = nullptr;
  const double value = std::strtod(copy.c_str(), &end);
  if (*end != '\0' || !std::isfinite(value)) return std::nullopt;
  return value;
}

Literal Refused(std::string_view value, std::string_view type, std::string why = "") {
  if (why.empty())
    why = "The value " + std::string(value) + " does not fit the type " + std::string(type) + ".";
  return {"", why};
}

}  // namespace

Literal LiteralFor(std::string_view value, std::string_view type) {
  const std::string_view text = TrimBlanks(value);
  if (EqualsIgnoreCase(type, "String")) {
    if (IsStringLiteral(text)) return {std::string(text), ""};
    return {"\"" + ReplaceAll(value, "\"", "\"\"") + "\"", ""};
  }
  if (text.empty()) return Refused(text, type, "Type the value of the constant.");
  if (EqualsIgnoreCase(type, "Date")) {
    const std::string_view inner = IsDateLiteral(text) ? text.substr(1, text.size() - 2) : text;
    if (!LooksLikeDate(inner))
      return Refused(text, type,
                     "The value " + std::string(text) + " is not a date; type it as #12/31/2026#.");
    return {"#" + std::string(TrimBlanks(inner)) + "#", ""};
  }
  if (EqualsIgnoreCase(type, "Boolean")) {
    if (EqualsIgnoreCase(text, "True")) return {"True", ""};
    if (EqualsIgnoreCase(text, "False")) return {"False", ""};
    return Refused(text, type);
  }
  struct Range {
    std::string_view type;
    long long low, high;
  };
  static constexpr Range kWhole[] = {{"Byte", 0, 255},
                                     {"Integer", -32768, 32767},
                                     {"Long", -2147483648LL, 2147483647LL}};
  for (const Range& range : kWhole) {
    if (!EqualsIgnoreCase(type, range.type)) continue;
    const auto number = WholeNumber(text);
    if (!number || *number < range.low || *number > range.high) return Refused(text, type);
    return {std::string(text), ""};
  }
  const bool currency = EqualsIgnoreCase(type, "Currency");
  const auto number = DecimalNumber(text, !currency);
  const double limit = currency                          ? 922337203685477.5807
                       : EqualsIgnoreCase(type, "Single") ? 3.402823e38
                                                          : 1.79769313486231e308;
  if (!number || std::fabs(*number) > limit) return Refused(text, type);
  return {std::string(text), ""};
}

std::string LiteralType(std::string_view literal) {
  const std::string_view text = TrimBlanks(literal);
  if (IsStringLiteral(text)) return "String";
  if (IsDateLiteral(text) && LooksLikeDate(text.substr(1, text.size() - 2))) return "Date";
  if (EqualsIgnoreCase(text, "True") || EqualsIgnoreCase(text, "False")) return "Boolean";
  if (const auto whole = WholeNumber(text))
    return *whole >= -2147483648LL && *whole <= 2147483647LL ? "Long" : "Double";
  if (DecimalNumber(text, true)) return "Double";
  return "";
}

std::string NameFromLiteral(std::string_view literal) {
  std::string_view text = TrimBlanks(literal);
  if (IsStringLiteral(text)) text = text.substr(1, text.size() - 2);
  std::string name;
  bool word_start = true;
  for (const char c : text) {
    if (IsLetter(c) || (IsDigit(c) && !name.empty())) {
      name += word_start ? ToUpperAscii(c) : c;
      word_start = false;
    } else {
      word_start = true;
    }
    if (name.size() >= 40) break;
  }
  return name;
}

}  // namespace tavrin::builders
