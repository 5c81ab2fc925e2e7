// The With, GoTo and Resume commands pick from the list dialog when the
// context has a dialog host.
#include "addin/code_lines.h"
#include "builders/scripted_dialog_host.h"
#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;

class CodeLineDialogsTest : public CodePaneTest {
 protected:
  void SetUp() override { context_.dialogs = &host_; }
  builders::ScriptedDialogHost host_;
};

const Lines kModule = {"Private mcn As Connection", "", "Sub A(frm As Form, n As Long)", "Retry:",
                       "    x = 1", "HandleExit:", "", "End Sub"};

TEST_F(CodeLineDialogsTest, PickedEntriesAreInserted) {
  const struct {
    std::string command;
    builders::DialogScript script;
    Lines inserted;  // in place of the blank line 7
    ide::TextRange caret;
  } cases[] = {
      {"GoTo", {A::Pick("list", "Retry"), A::Ok()}, {"    GoTo Retry"}, {7, 15, 7, 15}},
      {"GoTo", {A::Text("filter", "hand"), A::Ok()}, {"    GoTo HandleExit"}, {7, 20, 7, 20}},
      {"GoTo", {A::Text("filter", "Again"), A::Ok()}, {"    GoTo Again"}, {7, 15, 7, 15}},
      {"GoTo", {A::Ok()}, {"    GoTo "}, {7, 10, 7, 10}},
      {"Resume", {A::Ok()}, {"    Resume HandleExit"}, {7, 22, 7, 22}},
      {"Resume", {A::Pick("list", "Next"), A::Ok()}, {"    Resume Next"}, {7, 16, 7, 16}},
      {"Resume", {A::Pick("list", "<New Label>"), A::Ok()}, {"    Resume"}, {7, 11, 7, 11}},
      {"With", {A::Pick("list", "frm"), A::Ok()},
       {"    With frm", "        ", "    End With"}, {8, 9, 8, 9}},
      {"With", {A::Text("filter", "MC"), A::Ok()},
       {"    With mcn", "        ", "    End With"}, {8, 9, 8, 9}},
      {"With", {A::Ok()}, {"    With ", "        ", "    End With"}, {7, 10, 7, 10}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command + " / " + c.inserted[0]);
    Open(kModule, 7, 1);
    host_.Answer(c.command, c.script);
    ASSERT_TRUE(InsertCodeLines(context_, c.command));
    Lines expected(kModule.begin(), kModule.begin() + 6);
    expected.insert(expected.end(), c.inserted.begin(), c.inserted.end());
    expected.push_back("End Sub");
    EXPECT_EQ(Code(), expected);
    EXPECT_EQ(Selection(), c.caret);
    EXPECT_TRUE(host_.errors.empty()) << host_.errors[0];
  }
  EXPECT_TRUE(ui_.inputs_asked.empty());
}

TEST_F(CodeLineDialogsTest, CancelInsertsNothing) {
  for (const std::string command : {"GoTo", "Resume", "With"}) {
    SCOPED_TRACE(command);
    Open(kModule, 7, 1);
    host_.Answer(command, {A::Text("filter", "x"), A::Cancel()});
    ASSERT_TRUE(InsertCodeLines(context_, command));
    EXPECT_EQ(Code(), kModule);
  }
}

TEST_F(CodeLineDialogsTest, OnlyTheProcedureAtTheCaretGivesLabels) {
  Open({"Sub A()", "Elsewhere:", "End Sub", "Sub B()", "", "End Sub"}, 5, 1);
  host_.Answer("GoTo", {A::Pick("list", "Elsewhere"), A::Ok(), A::Cancel()});
  InsertCodeLines(context_, "GoTo");
  EXPECT_EQ(host_.errors, (std::vector<std::string>{"GoTo: list has no item Elsewhere"}));
}

}  // namespace
}  // namespace tavrin::addin
