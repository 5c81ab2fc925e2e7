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

TEST_F(FileSettingsStoreTest, SavedValuesComeBackByApplicationSectionAndKey) {
  EXPECT_EQ(store_.GetSetting("Tavrin", "Tavrin", "ToolbarPos", "1"), "1");
  const std::string odd = "a=b\r\nC:\\path\\n";
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "ToolbarPos", "4"));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "ToolbarTop", "120"));
  ASSERT_TRUE(store_.SaveSetting("Other", "Tavrin", "ToolbarPos", "2"));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "ToolbarPos", "0"));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "Odd", odd));
  ASSERT_TRUE(store_.SaveSetting("Tavrin", "Tavrin", "Gone", "x"));
  store_.DeleteSetting("Tavrin", "Tavrin", "Gone");

  FileSettingsStore reopened(files_, folder_.File("settings.ini"));
  EXPECT_EQ(reopened.GetSetting("Tavrin", "Tavrin", "ToolbarPos", ""), "0");
  EXPECT_EQ(reopened.GetSetting("tavrin", "TAVRIN", "toolbartop", ""), "120");
  EXPECT_EQ(reopened.GetSetting("Other", "Tavrin", "ToolbarPos", ""), "2");
  EXPECT_EQ(reopened.GetSetting("Tavrin", "Tavrin", "Odd", ""), odd);
  EXPECT_EQ(reopened.GetSetting("Tavrin", "Tavrin", "Gone", "default"), "default");
}

TEST_F(FileSettingsStoreTest, AFileThatCannotBeWrittenReportsFailure) {
  FileSettingsStore unusable(files_, folder_.File("no/such/folder/settings.ini"));
  EXPECT_FALSE(unusable.SaveSetting("Tavrin", "Tavrin", "A", "1"));
  EXPECT_EQ(unusable.GetSetting("Tavrin", "Tavrin", "A", "d"), "d");
}

}  // namespace
}  // namespace tavrin::platform
