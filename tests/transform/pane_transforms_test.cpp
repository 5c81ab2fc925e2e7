#include "transform/pane_transforms.h"

#include <gtest/gtest.h>

#include "tests/addin/code_pane_fixture.h"
#include "tests/support/counting_pane.h"

namespace tavrin::transform {
namespace {

using addin::Lines;
using testing::CountingPane;

class PaneTransformsTest : public addin::CodePaneTest {
 protected:
  void Select(int start_line, int start_column, int end_line, int end_column) {
    pane_->SetSelection({start_line, start_column, end_line, end_column});
  }
  void Number() {
    long long start = 0;
    AddLineNumbers(*pane_, start);
  }
};

TEST_F(PaneTransformsTest, NumbersTheSelectionAndLeavesItAsItWas) {
  Open({"Sub A()", "x = 1", "", "", "", "", "", "", "", "", "", "x = 1", "    y = 2", "Dim z",
        "End Sub"});
  Select(12, 3, 14, 2);
  long long start = 0;
  AddLineNumbers(*pane_, start);
  EXPECT_EQ(start, 12) << "the caller sees the start number";
  EXPECT_EQ(Code()[11], "240 x = 1");
  EXPECT_EQ(Code()[12], "250     y = 2");
  EXPECT_EQ(Code()[13], "Dim z");
  EXPECT_EQ(Selection(), (ide::TextRange{12, 3, 14, 2}));
}

TEST_F(PaneTransformsTest, ACaretNumbersAndUnnumbersOnlyItsLine) {
  Open({"a = 1", "b = 2", "c = 3"}, 2, 3);
  Number();
  EXPECT_EQ(Code(), (Lines{"a = 1", "40 b = 2", "c = 3"}));
  RemoveLineNumbers(*pane_);
  EXPECT_EQ(Code(), (Lines{"a = 1", "b = 2", "c = 3"}));
  EXPECT_EQ(Selection(), CaretAt(2, 3));
}

TEST_F(PaneTransformsTest, TheLineAfterTheSelectionDecidesForItsLastLine) {
  Open({"x = 1", "y = 2", "Public Sub A()", "End Sub"});
  Select(1, 1, 2, 1);
  Number();
  EXPECT_EQ(Code(), (Lines{"20 x = 1", "y = 2", "Public Sub A()", "End Sub"}));
}

TEST_F(PaneTransformsTest, OneReadAndOnlyChangedLinesAreReplaced) {
  Open({"Sub A()", "    x = 1", "    Dim y", "", "    y = 2", "End Sub"});
  Select(1, 1, 6, 8);
  auto counting = std::make_shared<CountingPane>(pane_);
  long long start = 0;
  AddLineNumbers(*counting, start);
  EXPECT_EQ(counting->counts().reads, 1);
  EXPECT_EQ(counting->counts().replaces, 3) << "two numbers and the empty line's blank";
  const Lines once = Code();
  start = 0;
  AddLineNumbers(*counting, start);
  EXPECT_EQ(Code(), once);
  EXPECT_EQ(counting->counts().replaces, 3) << "numbering again changes nothing";
  RemoveLineNumbers(*counting);
  EXPECT_EQ(counting->counts().reads, 3);
  EXPECT_EQ(Code(), (Lines{"Sub A()", "    x = 1", "    Dim y", " ", "    y = 2", "End Sub"}));
}

TEST_F(PaneTransformsTest, ASelectionPastTheEndRewritesTheLinesThatExist) {
  Open({"x = 1", "y = 2"});
  Select(1, 1, 40, 1);
  Number();
  EXPECT_EQ(Code(), (Lines{"20 x = 1", "30 y = 2"}));
  EXPECT_EQ(Selection(), (ide::TextRange{1, 1, 40, 1}));
  RemoveLineNumbers(*pane_);
  Select(30, 1, 40, 1);
  Number();
  RemoveLineNumbers(*pane_);
  AddCommentMarks(*pane_);
  RemoveCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"x = 1", "y = 2"}));
}

TEST_F(PaneTransformsTest, AHugeLineAndAnOpenLiteralSurviveEveryRewrite) {
  const std::string huge = "s = \"" + std::string(1 << 20, 'a') + " ' not a comment";
  Open({huge, "t = \"open"});
  Select(1, 1, 2, 10);
  Number();
  EXPECT_EQ(Code(), (Lines{"20 " + huge, "30 t = \"open"}));
  RemoveLineNumbers(*pane_);
  AddCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"'" + huge, "'t = \"open"}));
  RemoveCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{huge, "t = \"open"}));
}

}  // namespace
}  // namespace tavrin::transform
