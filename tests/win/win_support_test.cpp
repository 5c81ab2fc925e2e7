#include "win/win_support.h"

#include <gtest/gtest.h>

namespace tavrin::win {
namespace {

TEST(WinSupportTest, Utf8AndUtf16RoundTrip) {
  const std::string kTexts[] = {
      "",
      "Option Explicit",
      "caf\xC3\xA9",                  // é, two bytes
      "Search\xE2\x80\xA6",           // …, three bytes
      "\xF0\x9F\x98\x80 smile",       // outside the BMP: a surrogate pair
      std::string("nul\0inside", 10), // embedded null kept
  };
  for (const auto& text : kTexts) {
    EXPECT_EQ(WideToUtf8(Utf8ToWide(text)), text);
  }
  EXPECT_EQ(Utf8ToWide("Search\xE2\x80\xA6"), L"Search\u2026");
  EXPECT_EQ(Utf8ToWide("\xF0\x9F\x98\x80").size(), 2u);
}

TEST(WinSupportTest, InvalidUtf8BecomesReplacementCharacter) {
  EXPECT_EQ(Utf8ToWide("a\xFF" "b"), L"a\uFFFDb");
}

TEST(WinSupportTest, ErrorTextNamesTheCode) {
  const std::string text = ErrorText(ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(text.rfind("error 2", 0), 0u) << text;
}

// Counts closes, so the owner's moves and resets can be checked without
// system handles.
int g_closed = 0;
struct FakeTraits {
  using Handle = int;
  static constexpr int kEmpty = 0;
  static void Close(int) { ++g_closed; }
};
using FakeOwner = UniqueHandle<FakeTraits>;

TEST(WinSupportTest, OwnerClosesExactlyOnce) {
  g_closed = 0;
  {
    FakeOwner first(7);
    FakeOwner second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(second.get(), 7);
    FakeOwner third;
    third = std::move(second);
    EXPECT_EQ(g_closed, 0);
  }
  EXPECT_EQ(g_closed, 1);
}

TEST(WinSupportTest, PutClosesTheOldHandleFirst) {
  g_closed = 0;
  FakeOwner owner(3);
  *owner.put() = 4;
  EXPECT_EQ(g_closed, 1);
  EXPECT_EQ(owner.release(), 4);
  EXPECT_FALSE(owner);
  owner.reset();
  EXPECT_EQ(g_closed, 1);
}

}  // namespace
}  // namespace tavrin::win
