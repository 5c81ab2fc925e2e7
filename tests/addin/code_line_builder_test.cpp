// Insert Line Of Code, the code-line commands that pick in a dialog, the Help
// menu's windows, and the rows of the command table that run them.
#include <gtest/gtest.h>

#include "addin/code_line_builder.h"
#include "addin/code_lines.h"
#include "addin/command_table.h"
#include "addin/help_commands.h"
#include "base/text.h"
#include "builders/scripted_dialog_host.h"
#include "fragments/settings.h"
#include "platform/std_file_system.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/temp_folder.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;

class CodeLineBuilderTest : public CodePaneTest {
 protected:
  void SetUp() override {
    context_.dialogs = &host_;
    context_.settings = &settings_;
  }
  // Module1 (the caret's) beside a standard module and a class.
  void OpenProject(const Lines& code, int line, int column) {
    Open(code, line, column);
    project_->AddComponent(ide::ComponentType::kStdModule, "basUtil", "")
        ->CodeModule()
        ->InsertLines(1, "Public Function Twice(ByVal n As Long) As Long\r\nEnd Function\r\n"
                         "Private Sub Hidden()\r\nEnd Sub\r\n"
                         "Public Sub Report(text As String, Optional copies As Integer = 1)\r\n"
                         "End Sub");
    project_->AddComponent(ide::ComponentType::kClassModule, "clsItem", "")
        ->CodeModule()
        ->InsertLines(1, "Public Sub Refresh()\r\nEnd Sub");
  }
  builders::ScriptedDialogHost host_;
  fragments::Settings settings_;
};

const Lines kModule = {"Private Sub Local(a As Long)", "End Sub", "", "Sub Main()",
                       "    Dim total As Long", "    total = 1", "End Sub"};

TEST_F(CodeLineBuilderTest, OffersTheCallableProceduresOfTheProject) {
  OpenProject(kModule, 6, 5);
  const auto modules = ProjectCallables(*vbe_, *project_, "Module1");
  ASSERT_EQ(modules.size(), 2u);  // no class module
  EXPECT_EQ(modules[0].name, "Module1");
  ASSERT_EQ(modules[0].procedures.size(), 2u);  // its Private Sub too
  EXPECT_EQ(modules[1].name, "basUtil");
  ASSERT_EQ(modules[1].procedures.size(), 2u);  // not the Private one
  EXPECT_EQ(modules[1].procedures[0].name, "Twice");
  EXPECT_TRUE(modules[1].procedures[0].is_function);
  EXPECT_EQ(modules[1].procedures[0].return_type, "Long");
}

TEST_F(CodeLineBuilderTest, InsertsTheCallBelowTheCaretLine) {
  const struct {
    builders::DialogScript script;
    Lines inserted;  // after line 6
    ide::TextRange caret;
  } cases[] = {
      {{A::Pick("module", "basUtil"), A::Text("arg1", "total"), A::Ok()},
       {"     = Twice(total)"}, {7, 5, 7, 5}},  // the variable is typed at the caret
      {{A::Pick("module", "basUtil"), A::Text("arg1", "total"), A::Text("result", "total"),
        A::Ok()},
       {"    total = Twice(total)"}, {7, 25, 7, 25}},
      {{A::Pick("module", "basUtil"), A::Pick("procedure", "Report"), A::Text("arg1", "\"Hi\""),
        A::Text("arg2", "2"), A::Check("explicit"), A::Check("each_line"), A::Check("comment"),
        A::Ok()},
       {"    ' basUtil.Report", "    Report text:=\"Hi\", _", "           copies:=2"},
       {9, 21, 9, 21}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.inserted[0]);
    OpenProject(kModule, 6, 5);
    host_.Answer(std::string(builders::kCodeLineDialogTitle), c.script);
    ASSERT_TRUE(InsertCodeLine(context_));
    Lines expected(kModule.begin(), kModule.begin() + 6);
    expected.insert(expected.end(), c.inserted.begin(), c.inserted.end());
    expected.push_back("End Sub");
    EXPECT_EQ(Code(), expected);
    EXPECT_EQ(Selection(), c.caret);
    EXPECT_TRUE(host_.errors.empty()) << host_.errors[0];
  }
}

TEST_F(CodeLineBuilderTest, CancelOrNoDialogsInsertNothing) {
  OpenProject(kModule, 6, 5);
  host_.Answer(std::string(builders::kCodeLineDialogTitle), {A::Cancel()});
  EXPECT_FALSE(InsertCodeLine(context_));
  context_.dialogs = nullptr;
  EXPECT_FALSE(InsertCodeLine(context_));
  EXPECT_EQ(Code(), kModule);
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_NE(ui_.boxes_shown[0].text.find("needs the add-in's dialogs"), std::string::npos);
}

TEST_F(CodeLineBuilderTest, LibraryFilesAreModules) {
  testing::TempFolder folder;
  platform::StdFileSystem files;
  ASSERT_TRUE(files.WriteFile(folder.File("basText.bas"),
                              "Attribute VB_Name = \"basText\"\r\n"
                              "Public Function Quote(text As String) As String\r\nEnd Function\r\n"
                              "Private Sub Helper()\r\nEnd Sub\r\n"));
  ASSERT_TRUE(files.WriteFile(folder.File("notes.txt"), "Sub NotCode()\r\nEnd Sub\r\n"));
  const auto modules = LibraryCallables(files, folder.path().string());
  ASSERT_EQ(modules.size(), 1u);
  EXPECT_EQ(modules[0].name, "basText");
  ASSERT_EQ(modules[0].procedures.size(), 1u);
  EXPECT_EQ(modules[0].procedures[0].name, "Quote");
}

TEST_F(CodeLineBuilderTest, OnErrorGoToAndDebugPrintPickInTheListDialog) {
  context_.settings = nullptr;  // the default label
  const Lines code = {"Sub A(n As Long)", "    Dim name As String", "", "Retry:", "End Sub"};
  const struct {
    std::string command;
    builders::DialogScript script;
    std::string inserted;  // in place of line 3
  } cases[] = {
      {"On Error GoTo", {A::Ok()}, "    On Error GoTo HandleError"},  // the settings' label
      {"On Error GoTo", {A::Pick("list", "Retry"), A::Ok()}, "    On Error GoTo Retry"},
      {"On Error GoTo", {A::Pick("list", "<New Label>"), A::Ok()}, "    On Error GoTo "},
      {"Debug.Print ", {A::Pick("list", "name"), A::Ok()}, "    Debug.Print name"},
      {"Debug.Print ", {A::Text("filter", "n * 2"), A::Ok()}, "    Debug.Print n * 2"},
      {"Debug.Print ", {A::Ok()}, "    Debug.Print "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.inserted);
    Open(code, 3, 5);
    host_.Answer(std::string(TrimBlanks(c.command)), c.script);
    ASSERT_TRUE(InsertCodeLines(context_, c.command));
    EXPECT_EQ(Code()[2], c.inserted);
    EXPECT_TRUE(host_.errors.empty()) << host_.errors[0];
  }
  EXPECT_TRUE(ui_.inputs_asked.empty());
}

TEST_F(CodeLineBuilderTest, TheSelectionIsTheExpressionAsItStands) {
  Open({"Sub A()", "    Dim nameList As String", "    x = name", "End Sub"});
  pane_->SetSelection({3, 9, 3, 13});  // "name"
  host_.Answer("Debug.Print", {A::Ok()});
  InsertCodeLines(context_, "Debug.Print ");
  EXPECT_EQ(Code()[3], "    Debug.Print name");
}

TEST_F(CodeLineBuilderTest, TipsAndAbout) {
  settings_.values.Set(settings::Item::kViewTipOfTheDay, false);
  std::vector<bool> saved;
  const SaveStartupChoice save = [&](bool on) { saved.push_back(on); };
  ShowStartupTip(context_, save);
  EXPECT_TRUE(host_.shown.empty());  // the setting is off
  settings_.values.Set(settings::Item::kViewTipOfTheDay, true);
  host_.Answer("Tip of the Day", {A::Press("next"), A::Check("startup", false), A::Cancel()});
  ShowStartupTip(context_, save);
  EXPECT_EQ(saved, std::vector<bool>{false});
  ShowAbout(context_);
  EXPECT_EQ(host_.shown, (std::vector<std::string>{"Tip of the Day", "About Tavrin"}));

  context_.dialogs = nullptr;  // the host shows no dialogs: message boxes
  ShowTipOfTheDay(context_, builders::TipSet::kCodeLineBuilder, save);
  ShowAbout(context_);
  ASSERT_EQ(ui_.boxes_shown.size(), 2u);
  EXPECT_EQ(ui_.boxes_shown[0].title, "Tip of the Day");
  EXPECT_EQ(ui_.boxes_shown[1].title, "About Tavrin");
}

TEST(CommandTableTest, TheBuildersOfTheToolbarAndHelpMenuRun) {
  for (const char* handler :
       {"mnuhAddProcedure_Click", "mnuhTVRAddProcedure_Click", "mnuhCodeLines_Click",
        "mnuhTVRCodeLines_Click", "mnuhWith_Click", "mnuhGoto_Click",
        "mnuhErrorGotoLabel_Click", "mnuhErrorResume_Click", "mnuhDebugPrint_Click",
        "mnuhTipOfTheDayTavrinStartup_Click", "mnuhTipOfTheDayVarBuilder_Click",
        "mnuhTipOfTheDayCodelineBuilder_Click", "mnuhTipOfTheDayFragmentBuilder_Click",
        "mnuhTipOfTheDayProcBuilder_Click", "mnuhAbout_Click"}) {
    SCOPED_TRACE(handler);
    const CommandRow* row = FindCommand(handler);
    ASSERT_NE(row, nullptr);
    EXPECT_NE(row->run, nullptr);
    if (std::string_view(handler).starts_with("mnuhTipOfTheDay")) {
      EXPECT_TRUE(builders::TipSetOf(row->argument));
    }
  }
}

}  // namespace
}  // namespace tavrin::addin
