#include "settings/setting_checks.h"

#include <gtest/gtest.h>

namespace tavrin::settings {
namespace {

TEST(SettingChecksTest, RefusesTextTheTypeCannotHold) {
  struct Row {
    IniItemType type;
    std::string text;
    std::string message;  // empty: accepted
  };
  const Row rows[] = {
      {IniItemType::kWholeNumber, "12", ""},
      {IniItemType::kWholeNumber, "", ""},
      {IniItemType::kWholeNumber, "12a", "'Key' takes a whole number, not '12a'"},
      {IniItemType::kWholeNumber, "99999999999", "'Key' takes a whole number, not '99999999999'"},
      {IniItemType::kYesNo, "-1", ""},
      {IniItemType::kYesNo, "perhaps", "'Key' takes True or False, not 'perhaps'"},
      {IniItemType::kDate, "2026-11-23", ""},
      {IniItemType::kDate, "23.11.2026", ""},
      {IniItemType::kDate, "soon", "'Key' takes a date such as 2026-11-23, not 'soon'"},
      {IniItemType::kDate, "2026-11", "'Key' takes a date such as 2026-11-23, not '2026-11'"},
      {IniItemType::kText, "anything", ""},
      {IniItemType::kFolderPath, "\\x\\", ""},
  };
  for (const Row& row : rows)
    EXPECT_EQ(TextProblem("Key", row.type, row.text).value_or(""), row.message) << row.text;
  EXPECT_EQ(SettingTextProblem(Item::kAutoPrefixVariableName, "1"), std::nullopt);
  EXPECT_EQ(SettingTextProblem(Item::kAutoPrefixVariableName, "7").value_or(""),
            "'Auto Prefix Variable Name' takes 0, 1 or 2 (No Auto Prefix, Always Auto Prefix, "
            "Auto Prefix before capital char), not '7'");
  EXPECT_EQ(SettingTextProblem(Item::kAddHeaderProcedure, "yes").value_or(""),
            "'Add Header Procedure' takes True or False, not 'yes'");
}

}  // namespace
}  // namespace tavrin::settings
