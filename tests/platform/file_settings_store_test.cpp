#include "platform/file_settings_store.h"

#include <gtest/gtest.h>

#include "platform/std_file_system.h"
#include "tests/support/temp_folder.h"

namespace tavrin::platform {
namespace {

class FileSettingsStoreTest : public ::testing::Test {
 protected:
  testing::TempFolder folder_;
  StdFileSystem files_;
  FileSettingsStore store_{files_, folder_.File("settings.ini")};
};

TEST_F(FileSettingsStoreTest, MissingValuesGiveTheDefault) {
  EXPECT_EQ(store_.GetSetting("Tavrin", "Tavrin", "ToolbarPos", "1"), "1");
}

TEST_F(FileSettingsStoreTest, SavedValuesComeBackByApplicationSectionAndKey) {
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "ToolbarPos", "4"));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "ToolbarTop", "120"));
  ASSERT_TRUE(store_.SaveSetting("Other", "Tavrin", "ToolbarPos", "2"));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "ToolbarPos", "0"));

  FileSettingsStore reopened(files_, folder_.File("settings.ini"));
  EXPECT_EQ(reopened.GetSetting("Tavrin", "Tavrin", "ToolbarPos", ""), "0");
  EXPECT_EQ(reopened.GetSetting("tavrin", "TAVRIN", "toolbartop", ""), "120");
  EXPECT_EQ(reopened.GetSetting("Other", "Tavrin", "ToolbarPos", ""), "2");
}

TEST_F(FileSettingsStoreTest, ValuesKeepLineBreaksEqualsSignsAndBackslashes) {
  const std::string value = "a=b\r\nC:\\path\\n";
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "Odd", value));
  EXPECT_EQ(store_.GetSetting("Tavrin", "Tavrin", "Odd", ""), value);
}

TEST_F(FileSettingsStoreTest, DeleteRemovesOnlyThatKey) {
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "A", "1"));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "B", "2"));
  store_.DeleteSetting("Tavrin", "Tavrin", "A");
  EXPECT_EQ(store_.GetSetting("Tavrin", "Tavrin", "A", "gone"), "gone");
  EXPECT_EQ(store_.GetSetting("Tavrin", "Tavrin", "B", ""), "2");
}

TEST_F(FileSettingsStoreTest, AFileThatCannotBeWrittenReportsFailure) {
  FileSettingsStore unusable(files_, folder_.File("no/such/folder/settings.ini"));
  EXPECT_FALSE(unusable.SaveSetting("Tavrin", "Tavrin", "A", "1"));
  EXPECT_EQ(unusable.GetSetting("Tavrin", "Tavrin", "A", "d"), "d");
}

}  // namespace
}  // namespace tavrin::platform
