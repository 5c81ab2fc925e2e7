#include "settings/setting_checks.h"

#include <cctype>

#include "base/text.h"
#include "settings/value_table.h"

namespace tavrin::settings {
namespace {

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

// Year, month and day as three numbers: 2026-11-23, 23.11.2026, 11/23/2026.
bool LooksLikeDate(std::string_view text) {
  int parts = 0;
  bool in_digits = false;
  for (char c : TrimBlanks(text)) {
    if (std::isdigit(static_cast<unsigned char>(c))) {
      if (!in_digits) ++parts;
      in_digits = true;
    } else if (c == '-' || c == '/' || c == '.') {
      if (!in_digits) return false;
      in_digits = false;
    } else {
      return false;
    }
  }
  return parts == 3 && in_digits;
}

}  // namespace

std::optional<std::string> TextProblem(std::string_view key, IniItemType type,
                                       std::string_view text) {
  if (text.empty()) return std::nullopt;
  switch (type) {
    case IniItemType::kYesNo:
      if (TextToYesNo(text)) return std::nullopt;
      return Quoted(key) + " takes True or False, not " + Quoted(text);
    case IniItemType::kWholeNumber:
      if (TextToWholeNumber(text)) return std::nullopt;
      return Quoted(key) + " takes a whole number, not " + Quoted(text);
    case IniItemType::kDate:
      if (LooksLikeDate(text)) return std::nullopt;
      return Quoted(key) + " takes a date such as 2026-11-23, not " + Quoted(text);
    default:
      return std::nullopt;
  }
}

std::optional<std::string> SettingTextProblem(Item item, std::string_view text) {
  platform::SilentUi ui;
  const std::string key = Item2Name(item, ui);
  if (item == Item::kAutoPrefixVariableName) {
    const std::string_view trimmed = TrimBlanks(text);
    if (trimmed == "0" || trimmed == "1" || trimmed == "2") return std::nullopt;
    return Quoted(key) + " takes 0, 1 or 2 (" +
           AutoPrefixModeName(AutoPrefixMode::kNoAutoPrefix) + ", " +
           AutoPrefixModeName(AutoPrefixMode::kAlwaysAutoPrefix) + ", " +
           AutoPrefixModeName(AutoPrefixMode::kBeforeCapitalChar) + "), not " + Quoted(text);
  }
  return TextProblem(key, Item2IniItemType(item, ui).value_or(IniItemType::kText), text);
}

SettingValue SettingValueOf(Item item, std::string_view text) {
  if (text.empty()) return std::string();
  const SettingValue default_value = ItemDefault(item);
  if (std::holds_alternative<bool>(default_value)) {
    if (const auto flag = TextToYesNo(text)) return *flag;
  }
  if (std::holds_alternative<int>(default_value) || item == Item::kAutoPrefixVariableName) {
    if (const auto number = TextToWholeNumber(text)) return *number;
  }
  return std::string(text);
}

std::optional<std::string> CheckFolderSetting(std::string_view key, const std::string& folder,
                                              platform::FileSystem& files, platform::Ui& ui) {
  if (folder.empty() || files.FolderExists(folder)) return std::nullopt;
  const std::string missing = "The folder " + Quoted(folder) + " of " + Quoted(key) +
                              " does not exist";
  const platform::Answer answer =
      ui.MessageBox(missing + ".\r\n\r\nCreate it?", platform::Buttons::kYesNo,
                    platform::Icon::kQuestion, platform::kAppTitle);
  if (answer != platform::Answer::kYes) return missing;
  if (const Status created = files.CreateFolders(folder); !created)
    return "The folder " + Quoted(folder) + " could not be created: " + created.error();
  return std::nullopt;
}

}  // namespace tavrin::settings
