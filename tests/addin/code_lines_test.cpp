#include "addin/code_lines.h"

#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

class CodeLinesTest : public CodePaneTest {};

TEST_F(CodeLinesTest, IfThenElseIfElseOnAnEmptyLineBelowIndentedCode) {
  Open({"Sub A()", "    x = 1", "", "End Sub"}, 3, 9);
  ui_.input_answers = {"1"};
  ASSERT_TRUE(InsertCodeLines(context_, "If Then ElseIf Else"));
  EXPECT_EQ(Code(), (Lines{"Sub A()", "    x = 1", "        If  Then", "            ",
                           "        ElseIf Then", "            ", "        Else",
                           "            ", "        End If", "End Sub"}));
  EXPECT_EQ(Selection(), CaretAt(3, 12));
  ASSERT_EQ(ui_.inputs_asked.size(), 1u);
  EXPECT_EQ(ui_.inputs_asked[0].text, "Number of 'ElseIf'");
  EXPECT_EQ(ui_.inputs_asked[0].title, "If Then ElseIf Else");
}

TEST_F(CodeLinesTest, IfBlockGoesBelowALineWithTextIndentedByEight) {
  Open({"        x = 1"}, 1, 3);
  ASSERT_TRUE(InsertCodeLines(context_, "If Then"));
  EXPECT_EQ(Code(), (Lines{"        x = 1", "        If  Then", "            ", "        End If"}));
  // The block's caret column 11 is right after "If"; the typed blank moves it on.
  EXPECT_EQ(Selection(), CaretAt(2, 12));
}

TEST_F(CodeLinesTest, ElseIfCountAnswers) {
  const struct {
    std::string command;
    std::string answer;
    int expected_lines;
  } cases[] = {
      {"If Then Else If", "0", 3},     {"If Then Else If", "abc", 3},
      {"If Then Else If", "2", 7},     {"If Then Else If", " 2.6", 9},
      {"If Then ElseIf Else", "0", 5}, {"If Then ElseIf Else", "-3", 5},
      {"If Then ElseIf Else", "x", 5},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command + " / " + c.answer);
    Open({""}, 1, 1);
    ui_.input_answers = {c.answer};
    InsertCodeLines(context_, c.command);
    EXPECT_EQ(static_cast<int>(Code().size()), c.expected_lines);
  }
}

TEST_F(CodeLinesTest, CancellingTheElseIfCountInsertsNothing) {
  Open({"x = 1", ""}, 2, 1);
  ui_.input_answers = {std::nullopt};
  InsertCodeLines(context_, "If Then Else If");
  EXPECT_EQ(Code(), (Lines{"x = 1", ""}));
  EXPECT_EQ(Selection(), CaretAt(2, 1));
}

TEST_F(CodeLinesTest, AnAbsurdElseIfCountIsRefusedWithAMessage) {
  Open({""}, 1, 1);
  ui_.input_answers = {"100000000"};
  InsertCodeLines(context_, "If Then ElseIf Else");
  EXPECT_EQ(Code(), (Lines{""}));
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text, "Number of 'ElseIf' must be between 0 and 999.");
}

TEST_F(CodeLinesTest, TabWidthTwoIndentsTheBodyByTwo) {
  options_ = platform::FixedIdeOptions(2);
  Open({"    x = 1", ""}, 2, 1);
  InsertCodeLines(context_, "If Then Else");
  EXPECT_EQ(Code(), (Lines{"    x = 1", "    If  Then", "      ", "    Else", "      ",
                           "    End If"}));
}

TEST_F(CodeLinesTest, LoopBlocksLeaveTheCaretWhereTheUserTypesNext) {
  const struct {
    std::string command;
    std::string first_line;
    std::string last_line;
    int caret_column;
  } cases[] = {
      {"IfDoLoopWhile", "    Do While ", "    Loop", 14},
      {"IfDoLoopUntil", "    Do Until ", "    Loop", 14},
      {"ForEachNext", "    For Each  In", "    Next", 14},
      {"ForNext", "    For  To", "    Next", 9},
      {"While", "    While ", "    Wend", 11},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    Open({"Sub A()", "", "End Sub"}, 2, 1);
    ASSERT_TRUE(InsertCodeLines(context_, c.command));
    EXPECT_EQ(Code(), (Lines{"Sub A()", c.first_line, "        ", c.last_line, "End Sub"}));
    EXPECT_EQ(Selection(), CaretAt(2, c.caret_column));
  }
}

TEST_F(CodeLinesTest, WithBlockLeavesTheCaretWhereTheObjectOrTheBodyIsTyped) {
  const struct {
    std::string name;
    Lines code;
    int line;
    std::string object;
    Lines expected;  // empty: nothing inserted
    ide::TextRange caret;
  } cases[] = {
      {"replacing a blank line: in the body", {"Sub A()", "    x = 1", "", "End Sub"}, 3,
       "rs.Fields",
       {"Sub A()", "    x = 1", "    With rs.Fields", "        ", "    End With", "End Sub"},
       {4, 9, 4, 9}},
      {"below a line with text: on the With line", {"Sub A()", "    x = 1", "End Sub"}, 2, "Me",
       {"Sub A()", "    x = 1", "    With Me", "        ", "    End With", "End Sub"},
       {3, 12, 3, 12}},
      {"past the last line", {"x = 1"}, 2, "Me",
       {"x = 1", "    With Me", "        ", "    End With"}, {3, 9, 3, 9}},
      {"no object", {"x = 1"}, 1, "", {}, {1, 1, 1, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Open(c.code, c.line, 1);
    EXPECT_EQ(InsertWithBlock(context_, c.object), !c.expected.empty());
    EXPECT_EQ(Code(), c.expected.empty() ? c.code : c.expected);
    EXPECT_EQ(Selection(), c.caret);
  }
}

TEST_F(CodeLinesTest, WithCommandAsksForTheObject) {
  Open({""}, 1, 1);
  ui_.input_answers = {"txtName"};
  ASSERT_TRUE(InsertCodeLines(context_, "With"));
  EXPECT_EQ(Code(), (Lines{"    With txtName", "        ", "    End With"}));
}

TEST_F(CodeLinesTest, NothingHappensUnlessACodePaneIsReady) {
  Open({"x = 1"}, 1, 1);
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  EXPECT_TRUE(InsertCodeLines(context_, "If Then ElseIf Else"));
  EXPECT_EQ(Code(), (Lines{"x = 1"}));
  EXPECT_TRUE(ui_.inputs_asked.empty());
}

TEST_F(CodeLinesTest, UnknownCommandsAreReportedAndChangeNothing) {
  Open({"x = 1"}, 1, 1);
  EXPECT_FALSE(InsertCodeLines(context_, "If Then Elsewhere"));
  EXPECT_EQ(Code(), (Lines{"x = 1"}));
}

}  // namespace
}  // namespace tavrin::addin
