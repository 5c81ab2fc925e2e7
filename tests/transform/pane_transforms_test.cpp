#include "transform/pane_transforms.h"

#include <gtest/gtest.h>

#include "tests/addin/code_pane_fixture.h"

namespace tavrin::transform {
namespace {

using addin::Lines;

// Counts the calls that cross into the IDE: a real pane pays for each.
class CountingModule : public ide::ICodeModule {
 public:
  explicit CountingModule(std::shared_ptr<ide::ICodeModule> inner) : inner_(std::move(inner)) {}
  int reads = 0;
  int replaces = 0;

  std::shared_ptr<ide::IComponent> Parent() override { return inner_->Parent(); }
  std::string Lines(int start, int count) override {
    ++reads;
    return inner_->Lines(start, count);
  }
  int CountOfLines() override { return inner_->CountOfLines(); }
  int CountOfDeclarationLines() override { return inner_->CountOfDeclarationLines(); }
  void InsertLines(int line, std::string_view text) override { inner_->InsertLines(line, text); }
  void ReplaceLine(int line, std::string_view text) override {
    ++replaces;
    inner_->ReplaceLine(line, text);
  }
  void DeleteLines(int start, int count) override { inner_->DeleteLines(start, count); }
  bool Find(std::string_view target, ide::TextRange& range, ide::FindOptions options) override {
    return inner_->Find(target, range, options);
  }
  ide::ProcRef ProcOfLine(int line) override { return inner_->ProcOfLine(line); }
  int ProcStartLine(std::string_view n, ide::ProcKind k) override { return inner_->ProcStartLine(n, k); }
  int ProcBodyLine(std::string_view n, ide::ProcKind k) override { return inner_->ProcBodyLine(n, k); }
  int ProcCountLines(std::string_view n, ide::ProcKind k) override { return inner_->ProcCountLines(n, k); }
  std::shared_ptr<ide::ICodePane> CodePane() override { return inner_->CodePane(); }

 private:
  std::shared_ptr<ide::ICodeModule> inner_;
};

class CountingPane : public ide::ICodePane {
 public:
  explicit CountingPane(std::shared_ptr<ide::ICodePane> inner)
      : inner_(inner), module_(std::make_shared<CountingModule>(inner->CodeModule())) {}
  ide::TextRange GetSelection() override { return inner_->GetSelection(); }
  void SetSelection(const ide::TextRange& selection) override { inner_->SetSelection(selection); }
  std::shared_ptr<ide::ICodeModule> CodeModule() override { return module_; }
  std::shared_ptr<ide::IWindow> Window() override { return inner_->Window(); }
  void Show() override { inner_->Show(); }
  CountingModule& counts() { return *module_; }

 private:
  std::shared_ptr<ide::ICodePane> inner_;
  std::shared_ptr<CountingModule> module_;
};

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
