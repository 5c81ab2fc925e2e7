// The settings value table: one value per catalogue item, with typed reads.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "settings/catalogue.h"

namespace tavrin::settings {

class ValueTable {
 public:
  // Every item at its default.
  ValueTable();

  const SettingValue& Value(Item item) const;
  void Set(Item item, SettingValue value);
  // The value as text, as the INI file holds it.
  std::string Text(Item item) const;
  // Yes/no: a boolean as it is, text converted ("" and unconvertible
  // text are No).
  bool YesNo(Item item) const;
  // Whole number: text read like Val (the auto-prefix mode is a text item).
  int WholeNumber(Item item) const;

 private:
  std::array<SettingValue, kItemCount> values_;
};

// The run-time's string-to-boolean conversion: "True"/"False" in any case,
// or a number (not 0 is True); nullopt when it would fail.
std::optional<bool> TextToYesNo(std::string_view text);
// A whole number (32-bit), rounded half to even; nullopt when it would fail.
std::optional<int> TextToWholeNumber(std::string_view text);

}  // namespace tavrin::settings
