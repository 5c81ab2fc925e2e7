#include "base/text.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

TEST(TextTest, TrimRemovesBlanksButNotTabs) {
  EXPECT_EQ(TrimBlanks("  x y  "), "x y");
  EXPECT_EQ(TrimBlanks("\tx\t"), "\tx\t");
  EXPECT_EQ(TrimBlanks("    "), "");
  EXPECT_TRUE(IsBlankOrEmpty(""));
  EXPECT_TRUE(IsBlankOrEmpty("   "));
  EXPECT_FALSE(IsBlankOrEmpty(" \t "));
}

TEST(TextTest, SplitCrLfKeepsEmptyPieces) {
  using Pieces = std::vector<std::string_view>;
  EXPECT_EQ(SplitCrLf(""), Pieces{""});
  EXPECT_EQ(SplitCrLf("a\r\n"), (Pieces{"a", ""}));
  EXPECT_EQ(SplitCrLf("a\r\n\r\nb"), (Pieces{"a", "", "b"}));
  EXPECT_EQ(SplitCrLf("a\nb\rc"), Pieces{"a\nb\rc"});
}

TEST(TextTest, SplitAnyLineBreakTakesEveryKindOfBreak) {
  using Pieces = std::vector<std::string_view>;
  EXPECT_EQ(SplitAnyLineBreak("a\r\nb\nc\rd"), (Pieces{"a", "b", "c", "d"}));
  EXPECT_EQ(SplitAnyLineBreak("a\n\r"), (Pieces{"a", "", ""}));
  EXPECT_EQ(SplitAnyLineBreak("\r\n"), (Pieces{"", ""}));
}

TEST(TextTest, CaseInsensitiveComparisonsFoldAsciiOnly) {
  EXPECT_TRUE(EqualsIgnoreCase("End If", "END IF"));
  EXPECT_FALSE(EqualsIgnoreCase("é", "É"));
  EXPECT_TRUE(StartsWithIgnoreCase("Endless = 1", "END"));
  EXPECT_EQ(FindIgnoreCase("x <CURSOR> y", "<cursor>"), 2u);
  EXPECT_EQ(FindIgnoreCase("abc", "x"), std::string_view::npos);
  EXPECT_EQ(FindIgnoreCase("aXa", "a", 1), 2u);
}

TEST(TextTest, LeadingNumberReadsLikeValThenRounds) {
  const struct {
    std::string_view text;
    long long expected;
  } cases[] = {
      {"1", 1},      {"  3 parts", 3}, {"2.5", 2},  {"3.5", 4},  {"2.6", 3},
      {"-2", -2},    {"x2", 0},        {"", 0},     {"007", 7},  {"12345678901234567890", 0},
      {"4abc", 4},   {"+5", 5},        {".", 0},    {"-", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(LeadingNumber(c.text), c.expected) << c.text;
}

TEST(TextTest, ReplaceAllReplacesEveryOccurrence) {
  EXPECT_EQ(ReplaceAll("a<b<c", "<", "&lt;"), "a&lt;b&lt;c");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
}

}  // namespace
}  // namespace tavrin
