#include <gtest/gtest.h>

#include "addin/command_table.h"
#include "resources/string_table.h"
#include "resources/toolbar_pictures.h"

namespace tavrin::addin {
namespace {

TEST(CommandTableTest, EveryRowHasItsCaptionAndEveryPictureItsBitmapAndMask) {
  for (const CommandRow& row : CommandTable()) {
    SCOPED_TRACE(row.caption_id);
    EXPECT_FALSE(resources::LoadResString(row.caption_id).empty());
    if (row.picture) {
      EXPECT_TRUE(resources::LoadResPicture(std::to_string(row.caption_id)).has_value());
      EXPECT_TRUE(resources::LoadResPicture(std::to_string(row.caption_id) + "m").has_value());
    }
  }
}

TEST(CommandTableTest, TheTreeIsWellFormed) {
  int previous_depth = -1;
  bool previous_popup = false;
  for (const CommandRow& row : CommandTable()) {
    SCOPED_TRACE(row.handler.empty() ? std::to_string(row.caption_id) : std::string(row.handler));
    // One level deeper only right after a pop-up.
    EXPECT_LE(row.depth, previous_depth + 1);
    if (row.depth == previous_depth + 1) {
      EXPECT_TRUE(row.depth == 0 || previous_popup);
    }
    EXPECT_EQ(row.IsPopup(), row.handler.empty());
    if (row.IsPopup()) {
      EXPECT_EQ(row.run, nullptr);
      EXPECT_FALSE(row.picture);
    }
    if (!row.handler.empty()) {
      EXPECT_TRUE(row.handler.starts_with("mnuh"));
      EXPECT_TRUE(row.handler.ends_with("_Click"));
    }
    previous_depth = row.depth;
    previous_popup = row.IsPopup();
  }
}

TEST(CommandTableTest, ToolbarButtonsHaveThePlainNameAndTheirPictures) {
  int buttons = 0;
  for (const CommandRow& row : CommandTable()) {
    if (row.bar != CommandBarRoot::kToolbar || row.depth != 0 || row.IsPopup()) continue;
    ++buttons;
    EXPECT_TRUE(row.picture) << row.handler;
    EXPECT_FALSE(row.handler.starts_with("mnuhTVR")) << row.handler;
  }
  EXPECT_EQ(buttons, 11);
}

TEST(CommandTableTest, TheOddOnesOut) {
  std::vector<int> dropdowns;
  std::vector<int> testing_only;
  for (const CommandRow& row : CommandTable()) {
    if (row.type == ide::ControlType::kDropdown) dropdowns.push_back(row.caption_id);
    if (row.testing_only) testing_only.push_back(row.caption_id);
  }
  EXPECT_EQ(dropdowns, std::vector<int>{167});
  EXPECT_EQ(testing_only, std::vector<int>{183});
}

TEST(CommandTableTest, ReservedCaptionsAreShownByNoControl) {
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(row.caption_id < 172 || row.caption_id > 176) << row.caption_id;
    EXPECT_NE(row.caption_id, 165);
  }
}

TEST(CommandTableTest, FindCommandFindsTheFirstRowOfAHandler) {
  const CommandRow* row = FindCommand("mnuhIfThenElse_Click");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->caption_id, 155);
  EXPECT_EQ(row->argument, "If Then Else");
  EXPECT_EQ(FindCommand("mnuhTVRCodeLines_Click")->bar, CommandBarRoot::kToolbar);
  EXPECT_EQ(FindCommand("mnuhNoSuchThing_Click"), nullptr);
  EXPECT_EQ(FindCommand(""), nullptr);
}

}  // namespace
}  // namespace tavrin::addin
