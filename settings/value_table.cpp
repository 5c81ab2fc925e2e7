#include "settings/value_table.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/text.h"

namespace tavrin::settings {
namespace {

std::optional<double> TextToNumber(std::string_view text) {
  const std::string trimmed(TrimBlanks(text));
  if (trimmed.empty()) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const double number = std::strtod(trimmed.c_str(), &end);
  if (end != trimmed.c_str() + trimmed.size() || errno == ERANGE || !std::isfinite(number))
    return std::nullopt;
  // strtod also takes hexadecimal, infinities and NaN; the run-time does not.
  for (char c : trimmed)
    if (!((c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E'))
      return std::nullopt;
  return number;
}

}  // namespace

std::optional<bool> TextToYesNo(std::string_view text) {
  const std::string_view trimmed = TrimBlanks(text);
  if (EqualsIgnoreCase(trimmed, "True")) return true;
  if (EqualsIgnoreCase(trimmed, "False")) return false;
  if (const auto number = TextToNumber(trimmed)) return *number != 0;
  return std::nullopt;
}

std::optional<int> TextToWholeNumber(std::string_view text) {
  const auto number = TextToNumber(text);
  if (!number) return std::nullopt;
  const double rounded = std::nearbyint(*number);  // half to even by default
  if (rounded < std::numeric_limits<int>::min() || rounded > std::numeric_limits<int>::max())
    return std::nullopt;
  return static_cast<int>(rounded);
}

ValueTable::ValueTable() {
  for (int i = 0; i < kItemCount; ++i) values_[i] = ItemDefault(static_cast<Item>(i));
}

const SettingValue& ValueTable::Value(Item item) const {
  return values_[static_cast<std::size_t>(item)];
}

void ValueTable::Set(Item item, SettingValue value) {
  values_[static_cast<std::size_t>(item)] = std::move(value);
}

std::string ValueTable::Text(Item item) const { return ValueAsText(Value(item)); }

bool ValueTable::YesNo(Item item) const {
  const SettingValue& value = Value(item);
  if (const bool* flag = std::get_if<bool>(&value)) return *flag;
  if (const int* number = std::get_if<int>(&value)) return *number != 0;
  return TextToYesNo(std::get<std::string>(value)).value_or(false);
}

int ValueTable::WholeNumber(Item item) const {
  const SettingValue& value = Value(item);
  if (const int* number = std::get_if<int>(&value)) return *number;
  if (const bool* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
  return static_cast<int>(LeadingNumber(std::get<std::string>(value)));
}

}  // namespace tavrin::settings
