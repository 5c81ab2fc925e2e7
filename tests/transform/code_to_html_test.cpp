#include "transform/code_to_html.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrin::transform {
namespace {

TEST(CodeToHtmlTest, ColoursKeywordsFunctionWordsAndComments) {
  const struct {
    std::string code, html;
  } cases[] = {
      {"Dim x As Long",
       "<font color=#000080>Dim</font>&nbsp;x&nbsp;<font color=#000080>As</font>&nbsp;"
       "<font color=#000080>Long</font>"},
      {"x = Len(s) ' size\r\n",
       "x&nbsp;=&nbsp;<font color=#000000>Len</font>(s)&nbsp;<font color=#008000>' size</font>"
       "<br>"},
      {"If a < b Then",
       "<font color=#000080>If</font>&nbsp;a&nbsp;&lt;&nbsp;b&nbsp;<font color=#000080>Then</font>"},
      {"s = \"Dim\"", "s&nbsp;=&nbsp;\"Dim\""},
      {"dim", "<font color=#000080>dim</font>"},
      {"Text1.Text",
       "<font color=#000000>Text</font>1.<font color=#000000>Text</font>"},
      {"", ""},
      {"#If Win32 Then", "<font color=#000080>#If</font>&nbsp;Win32&nbsp;"
                         "<font color=#000080>Then</font>"},
      {"a\r\nb", "a<br>b"},
      {"a & b > c\t", "a&nbsp;&&nbsp;b&nbsp;&gt;&nbsp;c\t"},
  };
  for (const auto& c : cases) EXPECT_EQ(ConvertCodeToHtml(c.code), c.html) << c.code;
}

TEST(CodeToHtmlTest, AWordBeforeALiteralOrACommentIsWrittenAfterIt) {
  EXPECT_EQ(ConvertCodeToHtml("Dim\"s\" x"),
            "\"s\"<font color=#000080>Dim</font>&nbsp;x");
  EXPECT_EQ(ConvertCodeToHtml("x'c\r\ny"), "<font color=#008000>'c</font><br>xy");
  EXPECT_EQ(ConvertCodeToHtml("Len'c"), "<font color=#008000>'c</font><br>"
                                        "<font color=#000000>Len</font>");
}

TEST(CodeToHtmlTest, RemCommentsStartBeforeTheRAndLoseTheirLastCharacter) {
  EXPECT_EQ(ConvertCodeToHtml("a = 1: Rem note\r\nb"),
            "a&nbsp;=&nbsp;1:&nbsp;<font color=#008000> Rem not</font>b");
  EXPECT_EQ(ConvertCodeToHtml("x\r\nREM a\r\n"), "x<br><font color=#008000>\nREM </font>");
  // At the very start of the text there is no character before the "R".
  EXPECT_EQ(ConvertCodeToHtml("Rem hello\r\nx"), "<font color=#008000>Rem hell</font>x");
  EXPECT_EQ(ConvertCodeToHtml(" Rem"), "&nbsp;<font color=#008000> Re</font>");
  EXPECT_EQ(ConvertCodeToHtml("\xC3\xA9Rem xy"), "\xC3\xA9<font color=#008000>\xC3\xA9Rem x</font>");
}

TEST(CodeToHtmlTest, HostileTextEndsCleanly) {
  EXPECT_EQ(ConvertCodeToHtml("s = \"open"), "s&nbsp;=&nbsp;\"open");
  EXPECT_EQ(ConvertCodeToHtml("\""), "\"");
  EXPECT_EQ(ConvertCodeToHtml("'"), "<font color=#008000>'</font><br>");
  EXPECT_EQ(ConvertCodeToHtml("\r"), "<br>");
  const std::string huge = "x = \"" + std::string(1 << 20, 'a');
  EXPECT_EQ(ConvertCodeToHtml(huge), "x&nbsp;=&nbsp;" + huge.substr(4));
  using namespace std::string_literals;
  EXPECT_EQ(ConvertCodeToHtml("\0Rem"s), "\0<font color=#008000>\0Re</font>"s);
}

}  // namespace
}  // namespace tavrin::transform
