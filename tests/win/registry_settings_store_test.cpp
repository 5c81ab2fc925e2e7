#include "win/registry_settings_store.h"

#include <string>

#include <gtest/gtest.h>

#include "win/registry.h"

namespace tavrin::win {
namespace {

// Works in an application name of its own and removes it afterwards.
class RegistrySettingsStoreTest : public ::testing::Test {
 protected:
  void SetUp() override {
    app_ = "TavrinTest" + std::to_string(::GetCurrentProcessId());
    DeleteApp();
  }
  void TearDown() override { DeleteApp(); }

  std::wstring AppPath() const {
    return L"Software\\VB and VBA Program Settings\\" + Utf8ToWide(app_);
  }
  void DeleteApp() const { ::RegDeleteTreeW(HKEY_CURRENT_USER, AppPath().c_str()); }

  std::string app_;
  RegistrySettingsStore store_;
};

TEST_F(RegistrySettingsStoreTest, MissingValueGivesDefault) {
  EXPECT_EQ(store_.GetSetting(app_, "Tavrin", "ToolbarPos", "1"), "1");
}

TEST_F(RegistrySettingsStoreTest, SavedValueReadsBack) {
  ASSERT_TRUE(store_.SaveSetting(app_, "Tavrin", "ToolbarPos", "4"));
  EXPECT_EQ(store_.GetSetting(app_, "Tavrin", "ToolbarPos", "1"), "4");
  ASSERT_TRUE(store_.SaveSetting(app_, "Tavrin", "ToolbarPos", ""));
  EXPECT_EQ(store_.GetSetting(app_, "Tavrin", "ToolbarPos", "1"), "");
}

TEST_F(RegistrySettingsStoreTest, NonAsciiTextSurvives) {
  const std::string text = "Caf\xC3\xA9 \xE2\x80\xA6";
  ASSERT_TRUE(store_.SaveSetting(app_, "Tavrin", "Name", text));
  EXPECT_EQ(store_.GetSetting(app_, "Tavrin", "Name", ""), text);
}

// Visual Basic's GetSetting reads the same key and value type.
TEST_F(RegistrySettingsStoreTest, StoresRegSzWhereTheRuntimeLooks) {
  ASSERT_TRUE(store_.SaveSetting(app_, "Tavrin", "ToolbarTop", "120"));
  const UniqueHkey key = OpenUserKey(AppPath() + L"\\Tavrin", KEY_QUERY_VALUE);
  ASSERT_TRUE(key);
  EXPECT_EQ(ValueType(key.get(), L"ToolbarTop"), DWORD{REG_SZ});
  EXPECT_EQ(ReadStringValue(key.get(), L"ToolbarTop"), L"120");
}

TEST_F(RegistrySettingsStoreTest, DeleteSettingRemovesTheValue) {
  ASSERT_TRUE(store_.SaveSetting(app_, "Tavrin", "ToolbarLeft", "5"));
  ASSERT_TRUE(store_.SaveSetting(app_, "Tavrin", "ToolbarTop", "6"));
  store_.DeleteSetting(app_, "Tavrin", "ToolbarLeft");
  EXPECT_EQ(store_.GetSetting(app_, "Tavrin", "ToolbarLeft", "gone"), "gone");
  EXPECT_EQ(store_.GetSetting(app_, "Tavrin", "ToolbarTop", ""), "6");
  store_.DeleteSetting(app_, "Tavrin", "ToolbarLeft");  // already gone: harmless
  store_.DeleteSetting(app_, "NoSection", "NoKey");
}

TEST_F(RegistrySettingsStoreTest, SectionWithBackslashNestsKeys) {
  ASSERT_TRUE(store_.SaveSetting(app_, "Outer\\Inner", "Key", "v"));
  EXPECT_TRUE(OpenUserKey(AppPath() + L"\\Outer\\Inner", KEY_QUERY_VALUE));
  EXPECT_EQ(store_.GetSetting(app_, "Outer\\Inner", "Key", ""), "v");
}

TEST_F(RegistrySettingsStoreTest, EmptyAppOrSectionIsRefused) {
  EXPECT_FALSE(store_.SaveSetting("", "Tavrin", "Key", "v"));
  EXPECT_FALSE(store_.SaveSetting(app_, "", "Key", "v"));
  EXPECT_EQ(store_.GetSetting("", "Tavrin", "Key", "d"), "d");
}

}  // namespace
}  // namespace tavrin::win
