#include "transform/comment_lines.h"

#include <gtest/gtest.h>

#include "tests/addin/code_pane_fixture.h"
#include "transform/pane_transforms.h"

namespace tavrin::transform {
namespace {

using addin::Lines;

class CommentLinesTest : public addin::CodePaneTest {
 protected:
  void Select(const ide::TextRange& range) { pane_->SetSelection(range); }
};

TEST_F(CommentLinesTest, ADragToColumnOneLeavesTheLastLineOut) {
  Open({"l1", "l2", "l3", "l4", "l5", "l6", "l7", "l8", "l9"});
  Select({5, 1, 8, 1});
  AddCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"l1", "l2", "l3", "l4", "'l5", "'l6", "'l7", "l8", "l9"}));
  EXPECT_EQ(Selection(), (ide::TextRange{5, 1, 8, 1}));
  RemoveCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"l1", "l2", "l3", "l4", "l5", "l6", "l7", "l8", "l9"}));
  EXPECT_EQ(Selection(), (ide::TextRange{5, 1, 8, 1}));
}

TEST_F(CommentLinesTest, MarksGoAtColumnOneAndComeOffAfterTheIndentation) {
  const struct {
    std::string line, added, removed;
  } cases[] = {
      {"    x = 1", "'    x = 1", "    x = 1"},
      {"    ' note", "'    ' note", "     note"},
      {"x = 1 ' note", "'x = 1 ' note", "x = 1 ' note"},
      {"''x", "'''x", "'x"},
      {"", "'", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(AddedCommentMarks({c.line}), Lines{c.added}) << c.line;
    EXPECT_EQ(RemovedCommentMarks({c.line}).lines, Lines{c.removed}) << c.line;
  }
}

TEST_F(CommentLinesTest, SelectionsComeBackAfterAddingAndRemoving) {
  const Lines code = {"Sub A()", "    x = 1", "    y = 2", "End Sub"};
  const struct {
    ide::TextRange selection, after_add;
  } cases[] = {
      {{2, 5, 2, 5}, {2, 5, 2, 5}},     // a caret does not move
      {{2, 5, 3, 7}, {2, 5, 3, 8}},     // the end moves past the mark
      {{2, 1, 4, 1}, {2, 1, 4, 1}},     // dragged to column 1
      {{1, 1, 4, 8}, {1, 1, 4, 9}},     // whole lines
      {{3, 4, 2, 2}, {2, 2, 3, 5}},     // given end first
  };
  for (const auto& c : cases) {
    Open(code);
    Select(c.selection);
    AddCommentMarks(*pane_);
    EXPECT_EQ(Selection(), c.after_add);
    RemoveCommentMarks(*pane_);
    EXPECT_EQ(Code(), code);
    const ide::TextRange normal = ReadCommentSelection(c.selection).range;
    const bool dragged = c.selection.end_column == 1 && c.selection.end_line > c.selection.start_line;
    EXPECT_EQ(Selection(), dragged ? c.selection : normal) << c.selection.start_line;
  }
}

TEST_F(CommentLinesTest, RemovingWithoutCommentLinesRewritesNothing) {
  Open({"x = 1 ' note", "y = 2"});
  Select({1, 1, 2, 6});
  RemoveCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"x = 1 ' note", "y = 2"}));
  EXPECT_EQ(Selection(), (ide::TextRange{1, 1, 2, 6})) << "no mark lost, no column moved";
}

TEST_F(CommentLinesTest, RemovingMovesTheEndOnlyWhenTheLastLineLostAMark) {
  Open({"'a", "b"});
  Select({1, 1, 2, 2});
  RemoveCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"a", "b"}));
  EXPECT_EQ(Selection(), (ide::TextRange{1, 1, 2, 2}));
}

TEST_F(CommentLinesTest, TheCaretAfterTheLastLineGetsALineOfItsOwn) {
  Open({"x = 1"}, 2, 1);
  AddCommentMarks(*pane_);
  EXPECT_EQ(Code(), (Lines{"x = 1", "'"}));
  EXPECT_EQ(Selection(), CaretAt(2, 1));
}

TEST_F(CommentLinesTest, TheWindowGetsTheFocus) {
  Open({"x = 1"});
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  AddCommentMarks(*pane_);
  EXPECT_EQ(vbe_->ActiveWindow(), pane_->Window());
}

}  // namespace
}  // namespace tavrin::transform
