#include "codegen/template_merge.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace tavrin::codegen {
namespace {

std::string Join(const std::vector<std::string>& lines) { return JoinCrLf(lines) + "\r\n"; }

TEST(TemplateMergeTest, Table) {
  const struct {
    std::string name;
    std::vector<std::string> code;
    std::string template_text;
    std::vector<std::string> expected;
  } cases[] = {
      {"top after the opening lines, bottom before the End line",
       {"Sub A(x, _", "      y)", "    ' note", "    Const c = 1", "    Dim i", "    i = 1",
        "End Sub"},
       "    T\r\n<end_of_top><begin_of_bottom>    B\r\n",
       {"Sub A(x, _", "      y)", "    ' note", "    Const c = 1", "    Dim i", "    T",
        "    i = 1", "    B", "End Sub"}},
      {"bottom right after the exit label",
       {"Sub A()", "    On Error GoTo HandleError", "", "handleexit :", "    Exit Sub", "End Sub"},
       "    T\r\n<begin_of_bottom>    B\r\n",
       {"Sub A()", "    On Error GoTo HandleError", "    T", "", "handleexit :", "    B",
        "    Exit Sub", "End Sub"}},
      {"a template with the exit-label marker goes ahead of the label as a whole",
       {"Function F()", "", "HandleExit:", "    Exit Function", "End Function"},
       "    X\r\n<BeforeHandleExitLabel>    F = Empty\r\n",
       {"Function F()", "", "    X", "    F = Empty", "HandleExit:", "    Exit Function",
        "End Function"}},
      {"without an exit label the marker divides top from bottom",
       {"Function F()", "", "End Function"},
       "    On Error GoTo E\r\n<begin_of_bottom><BeforeHandleExitLabel>HandleExit:\r\n    Exit "
       "Function\r\n",
       {"Function F()", "    On Error GoTo E", "", "HandleExit:", "    Exit Function",
        "End Function"}},
      {"the first of several exit labels; mentions of the label do not count",
       {"Sub A()", "    Resume HandleExit", "HandleExitNow:", "HandleExit:", "HandleExit:",
        "End Sub"},
       "<begin_of_bottom>    B\r\n",
       {"Sub A()", "    Resume HandleExit", "HandleExitNow:", "HandleExit:", "    B",
        "HandleExit:", "End Sub"}},
      {"no End line: the bottom goes last",
       {"Sub A()", "    x = 1"},
       "    T\r\n<begin_of_bottom>    B",
       {"Sub A()", "    T", "    x = 1", "    B"}},
      {"a template without markers is all top",
       {"Sub A()", "End Sub"},
       "    T1\r\n    T2\r\n",
       {"Sub A()", "    T1", "    T2", "End Sub"}},
      {"an empty template changes nothing", {"Sub A()", "End Sub"}, "", {"Sub A()", "End Sub"}},
      {"stray markers never reach the code",
       {"Sub A()", "End Sub"},
       "<end_of_top>    T<end_of_top>\r\n<begin_of_bottom>    B<begin_of_bottom>\r\n",
       {"Sub A()", "    T", "    B", "End Sub"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string code = c.code.empty() ? "" : Join(c.code);
    EXPECT_EQ(MergeTemplate(code, c.template_text, "HandleExit"),
              c.expected.empty() ? "" : Join(c.expected));
  }
}

TEST(TemplateMergeTest, AFinalLineBreakIsKeptOrNotAsItWas) {
  EXPECT_EQ(MergeTemplate("Sub A()\r\nEnd Sub", "    T", "HandleExit"),
            "Sub A()\r\n    T\r\nEnd Sub");
  EXPECT_EQ(MergeTemplate("Sub A()\r\nEnd Sub\r\n", "    T", "HandleExit"),
            "Sub A()\r\n    T\r\nEnd Sub\r\n");
}

TEST(TemplateMergeTest, AnEmptyProcedureText) {
  EXPECT_EQ(MergeTemplate("", "    T\r\n<begin_of_bottom>    B\r\n", "HandleExit"),
            "    T\r\n    B");
}

TEST(TemplateMergeTest, AnEmptyExitLabelIsNeverFound) {
  EXPECT_EQ(MergeTemplate("Sub A()\r\n:\r\nEnd Sub", "<begin_of_bottom>B", ""),
            "Sub A()\r\n:\r\nB\r\nEnd Sub");
}

TEST(HasLabelLineTest, OnlyTheBodysLabelLines) {
  EXPECT_TRUE(HasLabelLine("Sub A()\r\nhandleExit :\r\nEnd Sub", "HandleExit"));
  EXPECT_FALSE(HasLabelLine("Sub A()\r\n    Resume HandleExit\r\nEnd Sub", "HandleExit"));
  EXPECT_FALSE(HasLabelLine("HandleExit:", "HandleExit"));
  EXPECT_FALSE(HasLabelLine("", "HandleExit"));
}

TEST(RemoveMergeMarkersTest, RemovesAllThree) {
  EXPECT_EQ(RemoveMergeMarkers("a<end_of_top>b<begin_of_bottom>c<BeforeHandleExitLabel>d"),
            "abcd");
  // Exact case only.
  EXPECT_EQ(RemoveMergeMarkers("<END_OF_TOP>"), "<END_OF_TOP>");
}

}  // namespace
}  // namespace tavrin::codegen
