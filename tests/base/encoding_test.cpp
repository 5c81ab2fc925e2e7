#include "base/encoding.h"

#include <gtest/gtest.h>

#include "base/utf8.h"

namespace tavrin {
namespace {

TEST(EncodingTest, EveryWindows1252ByteSurvivesARoundTrip) {
  std::string all_bytes;
  for (int b = 1; b < 256; ++b) all_bytes += static_cast<char>(b);
  const std::string utf8 = Windows1252ToUtf8(all_bytes);
  EXPECT_TRUE(utf8::IsValid(utf8));
  EXPECT_EQ(Utf8ToWindows1252(utf8), all_bytes);
}

TEST(EncodingTest, DecodesWindows1252Characters) {
  EXPECT_EQ(Windows1252ToUtf8("Caf\xE9 \x80 \x85"), "Café € …");
  EXPECT_EQ(Utf8ToWindows1252("Café € …"), "Caf\xE9 \x80 \x85");
}

TEST(EncodingTest, CharactersOutsideWindows1252BecomeQuestionMarks) {
  EXPECT_EQ(Utf8ToWindows1252("a中b"), "a?b");
}

TEST(EncodingTest, DetectsTheEncodingOfASourceFile) {
  const struct {
    std::string_view bytes;
    Encoding encoding;
  } cases[] = {
      {"Dim x\r\n", Encoding::kWindows1252},
      {"' Caf\xE9\r\n", Encoding::kWindows1252},
      {"' Café\r\n", Encoding::kUtf8},
      {"\xEF\xBB\xBF' x\r\n", Encoding::kUtf8WithBom},
      {"\xEF\xBB\xBF' Caf\xE9", Encoding::kUtf8WithBom},
      {"' \xC3\x28 broken UTF-8", Encoding::kWindows1252},
  };
  for (const auto& c : cases) {
    const DecodedText decoded = DecodeSource(c.bytes);
    EXPECT_EQ(decoded.encoding, c.encoding) << c.bytes;
    EXPECT_EQ(EncodeSource(decoded.text, decoded.encoding), c.bytes) << c.bytes;
  }
}

TEST(Utf8Test, ColumnsCountCharactersNotBytes) {
  const std::string_view line = "s = \"Café\" ' x";
  EXPECT_EQ(utf8::CharCount(line), 14);
  EXPECT_EQ(utf8::OffsetOfColumn(line, 1), 0u);
  EXPECT_EQ(utf8::OffsetOfColumn(line, 10), 10u);  // the closing quote, after é
  EXPECT_EQ(utf8::ColumnOfOffset(line, 10), 10);
  EXPECT_EQ(utf8::OffsetOfColumn(line, 99), line.size());
  EXPECT_EQ(utf8::CharCount("\xFF\xFE"), 2);  // stray bytes count one each
}

}  // namespace
}  // namespace tavrin
