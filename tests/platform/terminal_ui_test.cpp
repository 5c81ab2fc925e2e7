#include "platform/terminal_ui.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tavrin::platform {
namespace {

using Kind = PresetAnswer::Kind;

struct Terminal {
  explicit Terminal(std::deque<PresetAnswer> answers, bool interactive = false,
                    std::string typed = "")
      : in(std::move(typed)), ui(std::move(answers), interactive, in, out) {}
  std::istringstream in;
  std::ostringstream out;
  TerminalUi ui;
};

TEST(TerminalUiTest, PresetAnswersAreUsedInOrder) {
  Terminal terminal({{Kind::kText, "2"}, {Kind::kYes, ""}, {Kind::kCancel, ""}});
  EXPECT_EQ(terminal.ui.InputBox("Number of 'ElseIf'", "If", ""), "2");
  EXPECT_EQ(terminal.ui.MessageBox("Sure?", Buttons::kYesNo, Icon::kQuestion, "T"), Answer::kYes);
  EXPECT_EQ(terminal.ui.InputBox("Name", "T", ""), std::nullopt);
  EXPECT_EQ(terminal.ui.UnusedAnswers(), 0u);
}

TEST(TerminalUiTest, PresetAnswersMapOntoTheButtonsOfTheBox) {
  const struct {
    Kind kind;
    std::string text;
    Buttons buttons;
    Answer expected;
  } cases[] = {
      {Kind::kYes, "", Buttons::kOkCancel, Answer::kOk},
      {Kind::kCancel, "", Buttons::kOkCancel, Answer::kCancel},
      {Kind::kNo, "", Buttons::kYesNoCancel, Answer::kNo},
      {Kind::kCancel, "", Buttons::kYesNoCancel, Answer::kCancel},
      {Kind::kText, "Yes", Buttons::kYesNo, Answer::kYes},
      {Kind::kText, "n", Buttons::kYesNoCancel, Answer::kNo},
  };
  for (const auto& c : cases) {
    Terminal terminal({{c.kind, c.text}});
    EXPECT_EQ(terminal.ui.MessageBox("?", c.buttons, Icon::kQuestion, "T"), c.expected);
  }
}

TEST(TerminalUiTest, AnOkBoxIsShownWithoutTakingAnAnswer) {
  Terminal terminal({{Kind::kText, "kept"}});
  EXPECT_EQ(terminal.ui.MessageBox("All shortcuts are ok!", Buttons::kOk, Icon::kInformation,
                                   "Tavrin"),
            Answer::kOk);
  EXPECT_EQ(terminal.out.str(), "Tavrin: All shortcuts are ok!\n");
  EXPECT_EQ(terminal.ui.UnusedAnswers(), 1u);
}

TEST(TerminalUiTest, AMissingOrUnfittingAnswerIsAnError) {
  Terminal none({});
  EXPECT_THROW(none.ui.InputBox("Number of 'ElseIf'", "If", ""), UnansweredQuestion);
  EXPECT_THROW(none.ui.MessageBox("?", Buttons::kYesNo, Icon::kQuestion, "T"),
               UnansweredQuestion);
  Terminal yes_for_input({{Kind::kYes, ""}});
  EXPECT_THROW(yes_for_input.ui.InputBox("Name", "T", ""), UnansweredQuestion);
  Terminal text_for_question({{Kind::kText, "maybe"}});
  EXPECT_THROW(text_for_question.ui.MessageBox("?", Buttons::kYesNo, Icon::kQuestion, "T"),
               UnansweredQuestion);
}

TEST(TerminalUiTest, AsksAtTheTerminalWhenThereIsOne) {
  Terminal terminal({}, /*interactive=*/true, "3\r\nwhat\nyes\n");
  EXPECT_EQ(terminal.ui.InputBox("Number of 'ElseIf'", "If", ""), "3");
  EXPECT_EQ(terminal.ui.MessageBox("Go?", Buttons::kYesNo, Icon::kQuestion, "T"), Answer::kYes);
  EXPECT_NE(terminal.out.str().find("Number of 'ElseIf'"), std::string::npos);
}

TEST(TerminalUiTest, AnEmptyLineTakesTheDefaultAndEndOfInputCancels) {
  Terminal terminal({}, /*interactive=*/true, "\n");
  EXPECT_EQ(terminal.ui.InputBox("Caption", "T", "&Open"), "&Open");
  EXPECT_EQ(terminal.ui.InputBox("Name", "T", ""), std::nullopt);
  EXPECT_EQ(terminal.ui.MessageBox("?", Buttons::kYesNoCancel, Icon::kQuestion, "T"),
            Answer::kCancel);
}

}  // namespace
}  // namespace tavrin::platform
