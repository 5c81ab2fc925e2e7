#include "addin/code_pane.h"

#include "ide/memory/memory_window.h"
#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

TEST_F(CodePaneTest, ReadyOnlyWithAProjectAndACodeWindowActive) {
  EXPECT_FALSE(IsCodePaneReady(context_)) << "no project open";
  Open({"x = 1"});
  EXPECT_TRUE(IsCodePaneReady(context_));
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  EXPECT_FALSE(IsCodePaneReady(context_)) << "immediate window";
  vbe_->ActivateWindow(vbe_->MainWindow());
  EXPECT_FALSE(IsCodePaneReady(context_)) << "main window";
  vbe_->ActivateWindow(nullptr);
  EXPECT_FALSE(IsCodePaneReady(context_)) << "no window";
}

TEST_F(CodePaneTest, NotReadyWhileAFormDesignerIsActive) {
  project_ = vbe_->AddProject("Project1");
  auto form = project_->AddComponent(ide::ComponentType::kVBForm, "Form1", "");
  ASSERT_NE(form->DesignerWindow(), nullptr);
  vbe_->ActivateWindow(form->DesignerWindow());
  EXPECT_FALSE(IsCodePaneReady(context_));
}

TEST_F(CodePaneTest, IndentUnitFollowsTheTabWidth) {
  platform::FixedIdeOptions two(2), none;
  EXPECT_EQ(IndentString(two), "  ");
  EXPECT_EQ(IndentString(none), "    ");
}

TEST_F(CodePaneTest, CaretMarginFollowsTheCaretLine) {
  const struct {
    std::string name;
    Lines code;
    int line;
    int column;
    std::optional<int> tab_width;
    int expected;
  } cases[] = {
      {"blank line, caret column 9, line above indented 4", {"    x = 1", ""}, 2, 9, {}, 8},
      {"blank line, caret left of the line above's indent", {"    x = 1", ""}, 2, 3, {}, 4},
      {"unindented line under an unindented line", {"x = 1", "y = 2"}, 2, 1, {}, 4},
      {"unindented first line, tab width 2", {"x = 1"}, 1, 3, 2, 2},
      {"line indented 8, caret at column 1", {"        x = 1"}, 1, 1, {}, 8},
      {"line indented 8, caret inside the text", {"        x = 1"}, 1, 12, {}, 8},
      {"line indented 8, caret past its end", {"        x = 1"}, 1, 30, {}, 8},
      {"unindented line under an indented one", {"        x = 1", "y = 2"}, 2, 1, {}, 8},
      {"blank line of blanks takes the caret column", {"x", "            "}, 2, 7, {}, 6},
      {"caret on the line after the last", {"    x = 1"}, 2, 1, {}, 4},
      {"empty module", {}, 1, 1, {}, 4},
      {"tabs are not counted as blanks", {"\tx = 1"}, 1, 1, {}, 4},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    options_ = platform::FixedIdeOptions(c.tab_width);
    Open(c.code, c.line, c.column);
    EXPECT_EQ(CaretMargin(context_), c.expected);
  }
}

TEST_F(CodePaneTest, InsertBlockReplacesAnEmptyCaretLineOrGoesBelowText) {
  const struct {
    std::string name;
    Lines code;
    ide::TextRange caret;
    std::string block;
    int caret_column;
    int first_line;
    Lines expected;
    ide::TextRange selection;
  } cases[] = {
      {"empty caret line replaced", {"Sub A()", "", "End Sub"}, {2, 5, 2, 5},
       "    x = 1\r\n    y = 2", 7, 2, {"Sub A()", "    x = 1", "    y = 2", "End Sub"},
       {2, 7, 2, 7}},
      {"line with text kept", {"Sub A()", "    x = 1", "End Sub"}, {2, 3, 2, 3}, "    y = 2", 5,
       3, {"Sub A()", "    x = 1", "    y = 2", "End Sub"}, {3, 5, 3, 5}},
      {"caret column 0 leaves the caret", {"x = 1"}, {1, 2, 1, 2}, "y = 2", 0, 2,
       {"x = 1", "y = 2"}, {1, 2, 1, 2}},
      {"empty module", {}, {1, 1, 1, 1}, "a\r\nb", 2, 1, {"a", "b"}, {1, 2, 1, 2}},
      {"the line after the last", {"x = 1"}, {2, 1, 2, 1}, "y = 2", 1, 2, {"x = 1", "y = 2"},
       {2, 1, 2, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Open(c.code, c.caret.start_line, c.caret.start_column);
    EXPECT_EQ(InsertBlock(context_, c.block, c.caret_column), c.first_line);
    EXPECT_EQ(Code(), c.expected);
    EXPECT_EQ(Selection(), c.selection);
  }
}

TEST_F(CodePaneTest, CursorMarkersAreRemovedAndTheCaretGoesToTheLast) {
  const struct {
    std::string name;
    Lines code;
    int start_line;
    bool remove_only;
    Lines expected;
    ide::TextRange caret;
  } cases[] = {
      {"one marker", {"Sub A()", "    x = 1<cursor>", "End Sub"}, 1, false,
       {"Sub A()", "    x = 1", "End Sub"}, {2, 10, 2, 10}},
      {"every marker in any case", {"<cursor>a", "b<CURSOR>c<Cursor>", "d", "  <cursor>"}, 1,
       false, {"a", "bc", "d", "  "}, {4, 3, 4, 3}},
      {"markers above the start line stay", {"<cursor>a", "b<cursor>"}, 2, false,
       {"<cursor>a", "b"}, {2, 2, 2, 2}},
      {"remove only leaves the caret", {"a", "b<cursor>"}, 1, true, {"a", "b"}, {1, 1, 1, 1}},
      {"no marker changes nothing", {"a", "b"}, 1, false, {"a", "b"}, {1, 1, 1, 1}},
      {"columns count characters", {"s = \"Café\" <cursor>"}, 1, false,
       {"s = \"Café\" "}, {1, 12, 1, 12}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Open(c.code);
    PlaceCursorMarker(context_, c.start_line, c.remove_only);
    EXPECT_EQ(Code(), c.expected);
    EXPECT_EQ(Selection(), c.caret);
  }
}

TEST_F(CodePaneTest, MarkerWorksOnAGivenPaneWithoutAnActiveOne) {
  Open({"a<cursor>"}, 1, 1);
  vbe_->ActivateWindow(nullptr);
  PlaceCursorMarker(context_, 1, false, pane_);
  EXPECT_EQ(Code(), (Lines{"a"}));
  EXPECT_EQ(Selection(), CaretAt(1, 2));
}

TEST_F(CodePaneTest, NoActivePaneMeansNothingHappens) {
  PlaceCursorMarker(context_, 1, false);  // no project, no pane: returns quietly
  EXPECT_EQ(CaretMargin(context_), 4);
  EXPECT_EQ(InsertBlock(context_, "x", 1), 0);
}

}  // namespace
}  // namespace tavrin::addin
