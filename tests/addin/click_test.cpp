// Every control of the table clicked once: the right operation runs and no
// click lets an error escape.
#include <gtest/gtest.h>

#include <set>

#include "addin/class_builder.h"
#include "addin/control_builder.h"
#include "addin/declaration_builders.h"
#include "addin/explicit_arguments.h"
#include "addin/export_file.h"
#include "addin/fragment_commands.h"
#include "addin/import_file.h"
#include "addin/insert_variable.h"
#include "addin/select_enum_command.h"
#include "addin/tool_commands.h"
#include "tests/addin/connect_fixture.h"
#include "tests/support/code_lines.h"

namespace tavrin::addin {
namespace {

class ClickTest : public ConnectTest {
 protected:
  void SetUp() override {
    files_.AddFile("/addin/vbcode/testing.txt", "");
    project_ = OpenProject();
    ConnectAddin();
    connect_.TimerTick();
    ASSERT_TRUE(ErrorsShown().empty());
  }

  // Each click starts from the same module, the caret on a line the row's
  // command changes: numbers and comment marks to take off where it removes.
  void ResetModule(const CommandRow& row) {
    const bool removes_numbers = row.run == RunLineNumbers && row.argument == "Remove";
    const bool removes_marks = row.run == RunCommentLines && row.argument == kCommentLinesRemove;
    const std::string line = removes_numbers ? "10 x = 1" : removes_marks ? "'x = 1" : "    x = 1";
    auto component = project_->Components().front();
    auto module = component->CodeModule();
    module->DeleteLines(1, module->CountOfLines());
    module->InsertLines(1, "Public Sub Main()\r\n" + line + "\r\nEnd Sub");
    component->CodePane()->Show();  // a tool window may have taken the focus
    component->CodePane()->SetSelection({2, 5, 2, 5});
  }

  std::vector<std::string> Code() {
    return testing::CodeLines(*project_->Components().front()->CodeModule());
  }
  bool ToolWindowVisible(std::string_view class_word) {
    for (const ToolWindowClass& window_class : kToolWindowClasses)
      if (window_class.class_word == class_word)
        return connect_.Window(window_class).window->Visible();
    return false;
  }

  std::shared_ptr<ide::memory::MemoryProject> project_;
};

TEST_F(ClickTest, EveryControlRunsItsOperationOrNothing) {
  std::set<Operation> seen;
  for (const auto& bound : connect_.Controls()) {
    const CommandRow& row = *bound.row;
    // The explorer's context menu acts on a node (explorer_popup_test).
    if (row.IsPopup() || row.bar == CommandBarRoot::kCodeExplorerPopUp) continue;
    SCOPED_TRACE(std::string(row.handler));
    // The questions the code-line commands ask: ElseIf parts, a With object.
    ui_.input_answers = {std::string("1")};
    ResetModule(row);
    const auto code_before = Code();
    const auto pages_before = shell_.opened.size();
    const auto boxes_before = ui_.boxes_shown.size();
    const int dialogs_before = settings_dialog_.shown;
    for (const ToolWindowClass& window_class : kToolWindowClasses)
      connect_.Window(window_class).window->SetVisible(false);

    ASSERT_NO_THROW(bound.control->Execute());

    // The access-key check wants a form; the code window is active here.
    // Error handling first says that the project lacks its error module.
    const bool asks_for_form = row.run == RunVerifyShortcuts;
    const bool misses_error_module = row.argument == "ErrorHandling";
    // No call stands at the caret: its procedure is missing.
    const bool misses_call = row.run == RunExplicitArguments;
    // Without a dialog host the builders and the Help windows say so or
    // show their text in a message box.
    const bool needs_dialogs = row.run == RunAddProcedure || row.run == RunCodeLineBuilder ||
                               row.run == RunTipOfTheDay || row.run == RunAbout ||
                               row.run == RunSelectFromEnum || row.run == RunAddClass ||
                               row.run == RunAddControls;
    ASSERT_EQ(ui_.boxes_shown.size(),
              boxes_before +
                  (asks_for_form || misses_error_module || misses_call || needs_dialogs ? 1 : 0));
    if (asks_for_form) {
      EXPECT_EQ(ui_.boxes_shown.back().text, "You must select a form!");
    }
    EXPECT_EQ(settings_dialog_.shown, dialogs_before + (row.run == RunSettingsDialog ? 1 : 0));
    seen.insert(row.run);
    const bool edits_code =
        row.run == RunCodeLines || row.run == RunLineNumbers || row.run == RunCommentLines;
    EXPECT_EQ(Code() != code_before, edits_code);
    if (row.run == OpenHelpPage) {
      ASSERT_EQ(shell_.opened.size(), pages_before + 1);
      EXPECT_TRUE(shell_.opened.back().ends_with(row.argument)) << shell_.opened.back();
    } else {
      EXPECT_EQ(shell_.opened.size(), pages_before);
    }
    if (row.run == RunShowToolWindow) {
      EXPECT_TRUE(ToolWindowVisible(row.argument));
    }
  }
  EXPECT_EQ(seen, (std::set<Operation>{RunCodeLines, RunAddProcedure, OpenHelpPage,
                                       RunInsertFragment, RunExportFile,
                                       RunShowToolWindow, RunLineNumbers, RunCommentLines,
                                       RunVerifyShortcuts, RunSettingsDialog, RunAddVariable,
                                       RunAddConstant, RunAddProperty, RunNewBlock,
                                       RunAddBlockItem, RunCodeLineBuilder, RunTipOfTheDay,
                                       RunAbout, RunImportFile, RunInsertVariable,
                                       RunExplicitArguments, RunAddPathConstant,
                                       RunSelectFromEnum, RunAddClass, RunSaveFragment,
                                       RunAddControls}));
}

TEST_F(ClickTest, CodeCommandsDoNothingWithoutACodeWindow) {
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  const auto before = Code();
  for (const auto& bound : connect_.Controls()) {
    const Operation run = bound.row->run;
    if (run == RunCodeLines || run == RunLineNumbers || run == RunCommentLines)
      bound.control->Execute();
  }
  EXPECT_EQ(Code(), before);
  EXPECT_TRUE(ui_.inputs_asked.empty());
  EXPECT_TRUE(ErrorsShown().empty());
}

TEST_F(ClickTest, VerifyShortcutsChecksTheActiveForm) {
  const auto form = project_->AddComponent(ide::ComponentType::kVBForm, "frmMain", "");
  vbe_->ActivateWindow(form->DesignerWindow());
  for (const auto& bound : connect_.Controls())
    if (bound.row->run == RunVerifyShortcuts) bound.control->Execute();
  ASSERT_FALSE(ui_.boxes_shown.empty());
  EXPECT_EQ(ui_.boxes_shown.back().text, "All shortcuts are ok!");
  EXPECT_TRUE(ErrorsShown().empty());
}

TEST_F(ClickTest, AFailingHandlerIsReportedAndDoesNotEscape) {
  const CommandRow* row = FindCommand("mnuhIfThenElseIf_Click");
  ASSERT_NE(row, nullptr);
  std::shared_ptr<ide::ICommandBarControl> control;
  for (const auto& bound : connect_.Controls())
    if (bound.row == row) control = bound.control;
  ui_.input_answers.clear();  // the question finds nobody to answer it
  ASSERT_NO_THROW(control->Execute());
  ASSERT_EQ(ErrorsShown().size(), 1u);
  EXPECT_TRUE(ErrorsShown()[0].starts_with("Error in mnuhIfThenElseIf_Click: ")) << ErrorsShown()[0];
}

TEST_F(ClickTest, ClicksAfterDisconnectionReachNothing) {
  const auto control = connect_.Controls().front().control;
  Disconnect();
  ASSERT_NO_THROW(control->Execute());
  EXPECT_TRUE(ErrorsShown().empty());
}

}  // namespace
}  // namespace tavrin::addin
