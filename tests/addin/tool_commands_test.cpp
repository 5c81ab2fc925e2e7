#include "addin/tool_commands.h"

#include "addin/code_lines.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {
namespace {

class RecordingShell : public platform::Shell {
 public:
  std::string TempFolder() override { return "/tmp"; }
  Status OpenDocument(std::string_view path) override {
    opened.emplace_back(path);
    if (fail) return Error{"no browser"};
    return {};
  }
  std::vector<std::string> opened;
  bool fail = false;
};

class ToolCommandsTest : public CodePaneTest {
 protected:
  std::vector<std::string> Shown() {
    std::vector<std::string> texts;
    for (const auto& box : ui_.boxes_shown) texts.push_back(box.text);
    return texts;
  }

  testing::MemoryFileSystem files_;
  RecordingShell shell_;
  platform::PortableBrowser browser_;
  transform::HtmlPageServices services_{files_, shell_, browser_, ""};
};

TEST_F(ToolCommandsTest, LineNumbersByModeAndNothingWithoutAPane) {
  LineNumbersCommand(context_, kLineNumbersAdd);
  Open({"x = 1", "y = 2"}, 1, 1);
  pane_->SetSelection({1, 1, 2, 6});
  LineNumbersCommand(context_, kLineNumbersAdd);
  EXPECT_EQ(Code(), (Lines{"20 x = 1", "30 y = 2"}));
  LineNumbersCommand(context_, 7);
  EXPECT_EQ(Code(), (Lines{"20 x = 1", "30 y = 2"}));
  LineNumbersCommand(context_, kLineNumbersRemove);
  EXPECT_EQ(Code(), (Lines{"x = 1", "y = 2"}));
  EXPECT_TRUE(ui_.boxes_shown.empty());
}

TEST_F(ToolCommandsTest, CommentLinesRunThroughTheCodeLineDispatcher) {
  Open({"    x = 1"}, 1, 5);
  EXPECT_TRUE(InsertCodeLines(context_, "Comment Lines Add"));
  EXPECT_EQ(Code(), (Lines{"'    x = 1"}));
  EXPECT_TRUE(InsertCodeLines(context_, "Comment Lines Remove"));
  EXPECT_EQ(Code(), (Lines{"    x = 1"}));
  EXPECT_EQ(Selection(), CaretAt(1, 5));
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  EXPECT_TRUE(InsertCodeLines(context_, "Comment Lines Add"));
  EXPECT_EQ(Code(), (Lines{"    x = 1"})) << "no code window active";
}

TEST_F(ToolCommandsTest, ErrorsAreShownNotRaised) {
  EXPECT_FALSE(CommentLinesCommand(context_, "Comment Lines Sideways"));
  EXPECT_TRUE(CommentLinesCommand(context_, kCommentLinesAdd));
  EXPECT_EQ(Shown(), (std::vector<std::string>{
                         "AddCommentMarks: error 91, There is no active code pane."}));
}

TEST_F(ToolCommandsTest, ConvertToHtmlWritesAndOpensThePage) {
  Open({"Sub A()", "    Dim x", "End Sub"});
  ConvertToHtmlCommand(context_, services_, *component_, "a");
  ASSERT_EQ(shell_.opened, std::vector<std::string>{"/tmp/vb2html.htm"});
  const std::string page = files_.files().at("/tmp/vb2html.htm");
  EXPECT_NE(page.find("<title>A</title>"), std::string::npos) << page;
  EXPECT_NE(page.find("&nbsp;&nbsp;&nbsp;&nbsp;<font color=#000080>Dim</font>&nbsp;x<br>"),
            std::string::npos);

  ConvertToHtmlCommand(context_, services_, *component_, "Missing");
  shell_.fail = true;
  ConvertToHtmlCommand(context_, services_, *component_, "");
  EXPECT_EQ(Shown(), (std::vector<std::string>{
                         "ConvertCodeToHtml: error 35, Sub or Function not defined: Missing",
                         "ShowHtmlPage: no browser"}));
}

TEST_F(ToolCommandsTest, VerifyShortcutsNeedsAFormDesigner) {
  Open({"x = 1"});
  VerifyShortcutsCommand(context_);
  EXPECT_EQ(Shown(), (std::vector<std::string>{"You must select a form!"}));
}

}  // namespace
}  // namespace tavrin::addin
