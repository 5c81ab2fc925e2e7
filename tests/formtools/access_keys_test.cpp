#include "formtools/access_keys.h"

#include <gtest/gtest.h>

#include "formtools/verify_shortcuts.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/fake_ui.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::formtools {
namespace {

using Names = std::vector<std::string>;
using platform::Answer;

constexpr std::string_view kTabbedForm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmTabs\r\n"
    "   Caption         =   \"&Tabs\"\r\n"
    "   Begin TabDlg.SSTab tabPages\r\n"
    "      Tabs            =   3\r\n"
    "      Tab             =   2\r\n"
    "      TabCaption(0)   =   \"&General\"\r\n"
    "      TabCaption(1)   =   \"&Graphics\"\r\n"
    "      TabCaption(2)   =   \"&Other\"\r\n"
    "   End\r\n"
    "   Begin VB.CommandButton cmdOk\r\n"
    "      Caption         =   \"&OK\"\r\n"
    "   End\r\n"
    "   Begin VB.Label lblNone\r\n"
    "      Caption         =   \"No key && none\"\r\n"
    "   End\r\n"
    "   Begin VB.Timer tmrTick\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmTabs\"\r\n";

class AccessKeysTest : public ::testing::Test {
 protected:
  void Load(std::string_view bytes) {
    original_ = std::string(bytes);
    vbe_ = ide::memory::MemoryVbe::Create();
    form_ = vbe_->AddProject("Project1")->AddSourceFile("frm.frm", original_).value();
    vbe_->ActivateWindow(form_->DesignerWindow());
  }
  void LoadSample() { Load(testing::ReadSourceTreeFile("sample/frmMain.frm")); }

  std::vector<std::pair<char, Names>> Conflicts() {
    std::vector<std::pair<char, Names>> result;
    for (const auto& conflict : FindShortcutConflicts(CollectAccessKeys(*form_->Designer()))) {
      Names names;
      for (const auto& use : conflict.uses) names.push_back(CaptionDisplayName(use));
      result.emplace_back(conflict.letter, names);
    }
    return result;
  }
  std::string Caption(std::string_view control) {
    return form_->Designer()->VBControls()->Item(control)->Properties()->Item("Caption")->Value();
  }
  std::vector<std::string> Shown() {
    std::vector<std::string> texts;
    for (const auto& box : ui_.boxes_shown) texts.push_back(box.text);
    return texts;
  }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryComponent> form_;
  std::string original_;
  testing::FakeUi ui_;
};

TEST(AccessKeyTest, TheCharacterAfterTheFirstAmpersandUpperCased) {
  const struct {
    std::string caption;
    std::optional<std::string> key;
  } cases[] = {
      {"&Open", "O"}, {"E&xit", "X"}, {"Save &", " "}, {"&&Save", "&"}, {"No key", std::nullopt},
      {"a&b&c", "B"}, {"&1", "1"},    {"&\xC3\xA9t\xC3\xA9", "\xC3\xA9"}, {"", std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(AccessKeyOf(c.caption), c.key) << c.caption;
}

TEST_F(AccessKeysTest, OpenAndOptionsShareTheLetterO) {
  LoadSample();
  const auto conflicts = Conflicts();
  ASSERT_EQ(conflicts.size(), 2u);
  EXPECT_EQ(conflicts[0], (std::pair<char, Names>{'F', {"mnuFile", "cmdFind"}}));
  EXPECT_EQ(conflicts[1],
            (std::pair<char, Names>{'O', {"mnuFileOpen", "cmdAction(1)", "cmdAction(0)"}}));
  EXPECT_EQ(form_->SourceBytes(), original_) << "visiting the tabs leaves the form unchanged";
}

TEST_F(AccessKeysTest, TabsOfATabbedContainerTakePartAndTheTabIsKept) {
  Load(kTabbedForm);
  const auto conflicts = Conflicts();
  ASSERT_EQ(conflicts.size(), 2u);
  EXPECT_EQ(conflicts[0], (std::pair<char, Names>{
                              'G', {"tabPages.TabCaption(1)", "tabPages.TabCaption(0)"}}));
  EXPECT_EQ(conflicts[1], (std::pair<char, Names>{'O', {"cmdOk", "tabPages.TabCaption(2)"}}));
  EXPECT_EQ(Caption("tabPages"), "&Other") << "tab 2 is shown again";
  EXPECT_EQ(form_->SourceBytes(), original_);
}

TEST_F(AccessKeysTest, CorrectedCaptionsAreWrittenAndTheCheckAsksToRepeat) {
  Load(kTabbedForm);
  ui_.box_answers = {Answer::kYes, Answer::kNo};
  ui_.input_answers = {std::string("  G&raphics "), std::string("")};
  const ShortcutCheck check = VerifyShortcuts(ActiveFormDesigner(*vbe_), ui_);
  EXPECT_EQ(check.conflicts, 2);
  EXPECT_FALSE(check.cancelled);
  EXPECT_EQ(Shown(), (Names{"Same Shortcut for \r\ntabPages.TabCaption(1) ; "
                            "tabPages.TabCaption(0) ; \r\nWant to corect this?",
                            "Same Shortcut for \r\ncmdOk ; tabPages.TabCaption(2) ; \r\n"
                            "Want to corect this?",
                            "Repeat to be sure !"}));
  ASSERT_EQ(ui_.inputs_asked.size(), 2u);
  EXPECT_EQ(ui_.inputs_asked[0].text, "For &Graphics\r\nControl : tabPages.TabCaption(1)");
  EXPECT_NE(form_->SourceBytes().find("TabCaption(1)   =   \"G&raphics\""), std::string::npos);
  EXPECT_NE(form_->SourceBytes().find("TabCaption(0)   =   \"&General\""), std::string::npos)
      << "an empty answer keeps the caption";
  EXPECT_EQ(Caption("tabPages"), "&Other");
}

TEST_F(AccessKeysTest, CancelEndsTheCheckWithoutASummary) {
  LoadSample();
  ui_.box_answers = {Answer::kCancel};
  const ShortcutCheck check = VerifyShortcuts(ActiveFormDesigner(*vbe_), ui_);
  EXPECT_TRUE(check.cancelled);
  EXPECT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(form_->SourceBytes(), original_);
}

TEST_F(AccessKeysTest, SummaryWithoutConflictsAndWithoutAForm) {
  Load("VERSION 5.00\r\nBegin VB.Form F\r\n   Begin VB.CommandButton c\r\n"
       "      Caption = \"&A\"\r\n   End\r\nEnd\r\n");
  VerifyShortcuts(ActiveFormDesigner(*vbe_), ui_);
  vbe_->ActivateWindow(form_->CodeWindow());
  VerifyShortcuts(ActiveFormDesigner(*vbe_), ui_);
  EXPECT_EQ(Shown(), (Names{"All shortcuts are ok!", "You must select a form!"}));
}

TEST_F(AccessKeysTest, BrokenDesignerBlocksNeverCrash) {
  const std::string_view broken[] = {
      "Begin VB.Form F\r\n Begin TabDlg.SSTab t\r\n Tabs = 99999999999\r\n End\r\nEnd\r\n",
      "Begin VB.Form F\r\n Begin TabDlg.SSTab t\r\n Tabs = abc\r\n Tab = -4\r\n End\r\nEnd\r\n",
      "Begin VB.Form F\r\n Caption = \"&\r\n Begin VB.Label l\r\n Caption\r\n Index = x\r\n"
      " End\r\nEnd\r\n",
      "Begin VB.Form F\r\n Begin\r\n Caption = \"&a\"\r\n End\r\n Begin VB.Label\r\n"
      " Caption = \"&a\"\r\n End\r\nEnd\r\n",
  };
  for (std::string_view bytes : broken) {
    Load(bytes);
    ui_.box_answers.assign(30, Answer::kNo);
    EXPECT_NO_THROW(VerifyShortcuts(ActiveFormDesigner(*vbe_), ui_)) << bytes;
  }
}

}  // namespace
}  // namespace tavrin::formtools
