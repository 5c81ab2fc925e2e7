#include "win/registry_ide_options.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "win/registry.h"

namespace tavrin::win {
namespace {

// Changes the IDE's real TabWidth value and puts back what was there.
class RegistryIdeOptionsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    key_ = CreateUserKey(kVisualBasicEditorKey);
    ASSERT_TRUE(key_);
    DWORD size = 0;
    if (::RegQueryValueExW(key_.get(), L"TabWidth", nullptr, &saved_type_, nullptr,
                           &size) == ERROR_SUCCESS) {
      saved_.resize(size);
      ::RegQueryValueExW(key_.get(), L"TabWidth", nullptr, &saved_type_, saved_.data(),
                         &size);
      had_value_ = true;
    }
  }
  void TearDown() override {
    if (had_value_) {
      ::RegSetValueExW(key_.get(), L"TabWidth", 0, saved_type_, saved_.data(),
                       static_cast<DWORD>(saved_.size()));
    } else {
      ::RegDeleteValueW(key_.get(), L"TabWidth");
    }
  }

  UniqueHkey key_;
  bool had_value_ = false;
  DWORD saved_type_ = 0;
  std::vector<BYTE> saved_;
};

TEST_F(RegistryIdeOptionsTest, DwordValues) {
  const struct {
    DWORD stored;
    std::optional<int> expected;
  } kCases[] = {{2, 2}, {4, 4}, {1, 1}, {32, 32}, {0, std::nullopt}, {33, std::nullopt}};
  for (const auto& [stored, expected] : kCases) {
    ASSERT_TRUE(WriteDwordValue(key_.get(), L"TabWidth", stored));
    EXPECT_EQ(RegistryIdeOptions().TabWidth(), expected) << "stored " << stored;
  }
}

TEST_F(RegistryIdeOptionsTest, TextValues) {
  const struct {
    const wchar_t* stored;
    std::optional<int> expected;
  } kCases[] = {
      {L"8", 8},           {L" 3 ", 3},           {L"2 blanks", 2},
      {L"", std::nullopt}, {L"   ", std::nullopt}, {L"wide", std::nullopt},
      {L"40", std::nullopt},
  };
  for (const auto& [stored, expected] : kCases) {
    ASSERT_TRUE(WriteStringValue(key_.get(), L"TabWidth", stored));
    EXPECT_EQ(RegistryIdeOptions().TabWidth(), expected) << "stored \"" << WideToUtf8(stored) << "\"";
  }
}

TEST_F(RegistryIdeOptionsTest, MissingValueOrKeyGivesNothing) {
  ::RegDeleteValueW(key_.get(), L"TabWidth");
  EXPECT_EQ(RegistryIdeOptions().TabWidth(), std::nullopt);
  EXPECT_EQ(RegistryIdeOptions(L"Software\\TavrinTest\\NoSuchKey").TabWidth(),
            std::nullopt);
}

}  // namespace
}  // namespace tavrin::win
