#include "transform/line_numbering.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace tavrin::transform {
namespace {

using Lines = std::vector<std::string>;

TEST(LineNumberingTest, StripLineNumberRemovesDigitsThenOneColonThenOneBlank) {
  const struct {
    std::string line, stripped;
  } cases[] = {
      {"100: x = 1", "x = 1"}, {"100  x = 1", " x = 1"}, {"100", ""},
      {"100:", ""},            {"12 ' note", "' note"},  {"  100 x = 1", "  100 x = 1"},
      {"x = 100", "x = 100"},  {"", ""},                 {"7:: x", ": x"},
  };
  for (const auto& c : cases) EXPECT_EQ(StripLineNumber(c.line), c.stripped) << c.line;
}

TEST(LineNumberingTest, RemovalLeavesOneBlankWhereALineBecomesEmpty) {
  EXPECT_EQ(RemovedLineNumbers({"100: x = 1", "100  x = 1", "100", "", "   "}),
            (Lines{"x = 1", " x = 1", " ", " ", "   "}));
}

TEST(LineNumberingTest, LabelsStandAloneAtColumnOne) {
  EXPECT_TRUE(IsLabelLine("ErrHandler:"));
  EXPECT_FALSE(IsLabelLine("  ErrHandler:"));
  EXPECT_FALSE(IsLabelLine("ErrHandler: x = 1"));
  EXPECT_FALSE(IsLabelLine("ErrHandler"));
  EXPECT_FALSE(IsLabelLine(""));
}

TEST(LineNumberingTest, ProcedureDeclarationsArePrefixTests) {
  const struct {
    std::string line;
    bool declaration;
  } cases[] = {
      {"Public Sub Main()", true},      {"private function F() As Long", true},
      {"    Sub Main()", true},         {"Global Function G()", true},
      {"Property Get Name() As String", true},
      {"SubTotal = 1", true},           {"Functions(2) = x", true},
      {"Friend Sub F()", false},        {"Static Sub S()", false},
      {"Public Count As Long", false},  {"Dim s As Sub", false},
      {"' Sub Main", false},            {"", false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsProcedureDeclaration(c.line), c.declaration) << c.line;
}

TEST(LineNumberingTest, FindifisfunctionorvariableTellsScopeWordFromDeclaration) {
  EXPECT_EQ(Findifisfunctionorvariable("Public Sub Main()", 3), 0);
  EXPECT_EQ(Findifisfunctionorvariable("Public Count As Long", 3), 1);
  EXPECT_EQ(Findifisfunctionorvariable("Dim Count As Long", 3), 2);
  EXPECT_EQ(Findifisfunctionorvariable("x = 1", 0), 2);
  EXPECT_EQ(Findifisfunctionorvariable("Private Sub A()", 4), 0);
  EXPECT_THROW(Findifisfunctionorvariable("Sub A()", 5), std::invalid_argument);
  EXPECT_THROW(Findifisfunctionorvariable("Sub A()", -1), std::invalid_argument);
  EXPECT_EQ(ProcedureKindWord(2), "Function");
  EXPECT_EQ(ProcedureKindWord(0), "");
}

TEST(LineNumberingTest, CommentStartSkipsApostrophesInLiterals) {
  const struct {
    std::string line;
    int start;
  } cases[] = {
      {"x = 1 ' note", 7}, {"s = \"it's\"", 0}, {"' whole line", 1},
      {"s = \"a\" ' it's", 9}, {"s = \"unterminated '", 0}, {"\xC3\xA9 = 1 'x", 7},
      {"Rem note", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(FindCommentStart(c.line), c.start) << c.line;
}

TEST(LineNumberingTest, NumbersFollowTheSelectionStartAndModulePositions) {
  EXPECT_EQ(AddedLineNumbers({"x = 1", "    y = 2", "Dim z"}, "", 12, 12),
            (Lines{"240 x = 1", "250     y = 2", "Dim z"}));
  // A blank line leaves a gap of ten and comes back as one blank.
  EXPECT_EQ(AddedLineNumbers({"a = 1", "", "b = 2"}, "", 1, 1),
            (Lines{"20 a = 1", " ", "40 b = 2"}));
}

TEST(LineNumberingTest, StatementsThatNeverGetANumber) {
  const Lines kept = {"Case Else", "End Sub", "Exit Function", "Next i", "Resume Next",
                      "DoEvents", "With Me", "End If", "ElseIf x Then", "Endless = 1",
                      "WithEvents w As Form", "Dim a", "Const C = 1", "Static s",
                      "GoTo Done", "Return", "Wend", "   ' whole-line comment", "ErrHandler:",
                      "Public Sub Main()"};
  EXPECT_EQ(AddedLineNumbers(kept, "", 1, 1), kept);
}

TEST(LineNumberingTest, CommentsAfterCodeAndApostrophesInLiteralsAreNumbered) {
  EXPECT_EQ(AddedLineNumbers({"x = 1 ' note", "s = \"it's\"", "  ErrHandler:"}, "", 1, 1),
            (Lines{"20 x = 1 ' note", "30 s = \"it's\"", "40   ErrHandler:"}));
}

TEST(LineNumberingTest, ContinuationLinesKeepTheirTextAndOnlyTheFirstIsNumbered) {
  EXPECT_EQ(AddedLineNumbers({"x = a + _", "    b + _", "", "    c", "y = 2"}, "", 1, 1),
            (Lines{"20 x = a + _", "    b + _", " ", "    c", "60 y = 2"}));
  // The first selected line is never taken for a continuation.
  EXPECT_EQ(AddedLineNumbers({"    b", "y = 2_"}, "z = 3", 5, 5),
            (Lines{"100     b", "110 y = 2_"}));
}

TEST(LineNumberingTest, TheLineBeforeADeclarationStaysUnnumbered) {
  EXPECT_EQ(AddedLineNumbers({"x = 1", "y = 2", "Private Sub A()", "z = 3"}, "Sub B()", 1, 1),
            (Lines{"20 x = 1", "y = 2", "Private Sub A()", "z = 3"}));
}

TEST(LineNumberingTest, NumberingTwiceEqualsNumberingOnce) {
  const Lines module = {"Option Explicit", "", "Public Sub Main()", "    Dim i As Long",
                        "    For i = 1 To 10", "        x = x + i ' sum", "    Next i",
                        "    s = \"it's\" & _", "        \"done\"", "ErrHandler:",
                        "    MsgBox s", "End Sub", "123 y = 1"};
  for (int first : {1, 4, 12}) {
    const Lines once = AddedLineNumbers(module, "", first, first);
    EXPECT_EQ(AddedLineNumbers(once, "", first, first), once) << first;
    const Lines removed = RemovedLineNumbers(once);
    EXPECT_EQ(AddedLineNumbers(removed, "", first, first), once) << first;
  }
}

TEST(LineNumberingTest, HostileLinesNeverBreakTheRules) {
  const std::string long_line(1 << 20, 'x');
  const Lines hostile = {"s = \"unterminated", long_line, "_", "\"", "'", ":",
                         "9999999999999999999999 x",
                         std::string("\0\xFF\xFE", 3)};
  const Lines numbered = AddedLineNumbers(hostile, "", 2147483000, 2147483000);
  ASSERT_EQ(numbered.size(), hostile.size());
  EXPECT_EQ(numbered[1].size(), long_line.size() + 12);
  EXPECT_EQ(RemovedLineNumbers(numbered).size(), hostile.size());
}

}  // namespace
}  // namespace tavrin::transform
