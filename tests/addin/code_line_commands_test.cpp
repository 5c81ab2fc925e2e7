#include "addin/code_line_commands.h"

#include "addin/code_lines.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {
namespace {

class CodeLineCommandsTest : public CodePaneTest {};

const Lines kFunction = {"Function Name() As String", "    x = 1", "", "End Function"};

TEST_F(CodeLineCommandsTest, SelectCaseFamily) {
  const struct {
    std::string command;
    Lines code;
    std::string answer;
    Lines expected_block;
    ide::TextRange caret;
  } cases[] = {
      {"Select Case", {"Sub A()", "", "End Sub"}, "x",
       {"    Select Case x", "        Case ", "            ", "    End Select"}, {3, 14, 3, 14}},
      {"Select Case", {"Sub A()", "", "End Sub"}, "",
       {"    Select Case ", "        Case ", "            ", "    End Select"}, {2, 17, 2, 17}},
      {"Select Case Else", {"Sub A()", "", "End Sub"}, " n ",
       {"    Select Case n", "        Case ", "            ", "        Case Else", "            ",
        "    End Select"},
       {3, 14, 3, 14}},
      {"Select Case UCase", {"Sub A()", "", "End Sub"}, "s",
       {"    Select Case UCase(s)", "        Case \"\"", "            ", "    End Select"},
       {3, 15, 3, 15}},
      {"Select Case UCase", {"Sub A()", "", "End Sub"}, "",
       {"    Select Case UCase()", "        Case \"\"", "            ", "    End Select"},
       {2, 23, 2, 23}},
      // In a Function the return type decides the Case values.
      {"Select Case", {"Function F() As String", "", "End Function"}, "x",
       {"    Select Case x", "        Case \"\"", "            ", "    End Select"},
       {3, 15, 3, 15}},
      {"Select Case", {"Function F() As Boolean", "", "End Function"}, "x",
       {"    Select Case x", "        Case True", "            ", "        Case False",
        "            ", "    End Select"},
       {4, 13, 4, 13}},
      {"Select Case", {"Function F() As Long", "", "End Function"}, "x",
       {"    Select Case x", "        Case ", "            ", "    End Select"}, {3, 14, 3, 14}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command + " / " + c.code[0] + " / " + c.answer);
    Open(c.code, 2, 1);
    ui_.input_answers = {c.answer};
    ui_.inputs_asked.clear();
    ASSERT_TRUE(InsertCodeLines(context_, c.command));
    Lines expected = {c.code[0]};
    expected.insert(expected.end(), c.expected_block.begin(), c.expected_block.end());
    expected.push_back(c.code[2]);
    EXPECT_EQ(Code(), expected);
    EXPECT_EQ(Selection(), c.caret);
    ASSERT_EQ(ui_.inputs_asked.size(), 1u);
    EXPECT_EQ(ui_.inputs_asked[0].text, "Expression");
    EXPECT_EQ(ui_.inputs_asked[0].title, c.command);
  }
}

TEST_F(CodeLineCommandsTest, TheSelectionIsOfferedAsTheExpression) {
  Open({"Sub A()", "    y = Mode", "End Sub"});
  pane_->SetSelection({2, 9, 2, 13});
  ui_.input_answers = {"Mode"};
  InsertCodeLines(context_, "Select Case UCase");
  EXPECT_EQ(Code()[2], "    Select Case UCase(Mode)");
  ASSERT_EQ(ui_.inputs_asked.size(), 1u);
}

TEST_F(CodeLineCommandsTest, CancelInsertsNothing) {
  for (const std::string command :
       {"Select Case", "On Error GoTo", "Resume", "GoTo", "Debug.Print "}) {
    SCOPED_TRACE(command);
    Open({"Sub A()", "", "End Sub"}, 2, 1);
    ui_.input_answers = {std::nullopt};
    InsertCodeLines(context_, command);
    EXPECT_EQ(Code(), (Lines{"Sub A()", "", "End Sub"}));
  }
}

TEST_F(CodeLineCommandsTest, OneLineCommands) {
  const struct {
    std::string command;
    std::optional<std::string> answer;
    std::string expected_line;
    std::string default_text;
  } cases[] = {
      {"On Error GoTo", "HandleError", "    On Error GoTo HandleError", "HandleError"},
      {"On Error Resume Next", std::nullopt, "    On Error Resume Next", ""},
      {"On Error GoTo 0", std::nullopt, "    On Error GoTo 0", ""},
      {"Resume", "", "    Resume", "HandleExit"},
      {"Resume", "Next", "    Resume Next", "HandleExit"},
      {"Resume", "HandleExit", "    Resume HandleExit", "HandleExit"},
      {"GoTo", "Retry", "    GoTo Retry", ""},
      {"Debug.Print ", "x, y", "    Debug.Print x, y", ""},
      {"Debug.Print ", "", "    Debug.Print ", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command + " / " + c.answer.value_or("-"));
    Open({"Sub A()", "    x = 1", "End Sub"}, 2, 5);
    ui_.input_answers.clear();
    ui_.inputs_asked.clear();
    if (c.answer) ui_.input_answers = {*c.answer};
    ASSERT_TRUE(InsertCodeLines(context_, c.command));
    EXPECT_EQ(Code(), (Lines{"Sub A()", "    x = 1", c.expected_line, "End Sub"}));
    const int end = static_cast<int>(c.expected_line.size()) + 1;
    EXPECT_EQ(Selection(), CaretAt(3, end));
    EXPECT_EQ(ui_.inputs_asked.size(), c.answer ? 1u : 0u);
  }
}

TEST_F(CodeLineCommandsTest, ExitNamesTheKindOfTheProcedure) {
  const struct {
    std::string declaration;
    std::string end;
    std::string expected;
  } cases[] = {
      {"Sub A()", "End Sub", "    Exit Sub"},
      {"Private Function F(a) As Long", "End Function", "    Exit Function"},
      {"Property Get P() As Long", "End Property", "    Exit Property"},
      {"Property Let P(ByVal v As Long)", "End Property", "    Exit Property"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.declaration);
    Open({c.declaration, "    x = 1", c.end}, 2, 1);
    InsertCodeLines(context_, "Exit");
    EXPECT_EQ(Code(), (Lines{c.declaration, "    x = 1", c.expected, c.end}));
  }
}

TEST_F(CodeLineCommandsTest, ExitOutsideAProcedureDoesNothing) {
  Open({"Option Explicit", "Dim x", "", "Sub A()", "End Sub"}, 2, 1);
  InsertCodeLines(context_, "Exit");
  EXPECT_EQ(Code(), (Lines{"Option Explicit", "Dim x", "", "Sub A()", "End Sub"}));
}

TEST_F(CodeLineCommandsTest, ErrorHandlingMergesTheHandlerIntoTheProcedure) {
  Open({"Option Explicit", "", "Private Function Total(a As Long) As Long", "    Dim i As Long",
        "    i = a", "    Total = i", "End Function", "", "Sub Other()", "End Sub"},
       6, 5);
  ASSERT_TRUE(InsertCodeLines(context_, "ErrorHandling"));
  EXPECT_EQ(Code(), (Lines{"Option Explicit", "", "Private Function Total(a As Long) As Long",
                           "    Dim i As Long", "    On Error GoTo HandleError", "    i = a",
                           "    Total = i", "HandleExit:", "    Exit Function", "",
                           "HandleError:", "    ErrorHandle \"Module1\", \"Total\"",
                           "    Resume HandleExit", "End Function", "", "Sub Other()",
                           "End Sub"}));
  // The caret stays on "Total = i".
  EXPECT_EQ(Selection(), CaretAt(7, 5));
  // The project has no error-handling module: the user is told once.
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_NE(ui_.boxes_shown[0].text.find("basErrorHandle"), std::string::npos);
}

TEST_F(CodeLineCommandsTest, ErrorHandlingTwiceChangesNothingTheSecondTime) {
  Open({"Sub A()", "    x = 1", "End Sub"}, 2, 1);
  project_->AddComponent(ide::ComponentType::kStdModule, "basErrorHandle", "");
  pane_->Show();
  InsertCodeLines(context_, "ErrorHandling");
  const Lines once = Code();
  InsertCodeLines(context_, "ErrorHandling");
  EXPECT_EQ(Code(), once);
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text,
            "The procedure A already has the label HandleExit: it has an error handler.");
}

TEST_F(CodeLineCommandsTest, TheSettingsAndTheCodeFoldersOfTheContextAreUsed) {
  fragments::Settings settings;
  settings.folders = fragments::CodeFolders("/addin", "\\vbcode\\", "\\vbcode\\Library\\",
                                            platform::PathStyle::kPosix);
  settings.values.Set(settings::Item::kErrorHandler, std::string("Oops"));
  settings.values.Set(settings::Item::kErrorHandleModule, std::string("Module1"));
  testing::MemoryFileSystem files;
  files.AddFile("/addin/vbcode/ErrorHandlers/ErrorHandler.bas",
                "    On Error GoTo {HANDLEERRORLABEL}\n<begin_of_bottom>{HANDLEERRORLABEL}:\n"
                "    {ERRORHANDLEPROCEDURE}\n");
  Context context{*vbe_, ui_, options_, &settings, &files};
  Open({"Sub A()", "End Sub"}, 1, 1);
  InsertCodeLines(context, "ErrorHandling");
  EXPECT_EQ(Code(), (Lines{"Sub A()", "    On Error GoTo Oops", "Oops:", "    ErrorHandle",
                           "End Sub"}));
  // The project holds the error-handling module the settings name.
  EXPECT_TRUE(ui_.boxes_shown.empty());
}

TEST_F(CodeLineCommandsTest, WithoutACodePaneNothingHappens) {
  Open({"Sub A()", "End Sub"}, 1, 1);
  vbe_->ActivateWindow(nullptr);
  for (const std::string command : {"Select Case", "Exit", "ErrorHandling", "On Error GoTo 0"}) {
    EXPECT_TRUE(InsertCodeLines(context_, command));
    EXPECT_EQ(Code(), (Lines{"Sub A()", "End Sub"}));
  }
  EXPECT_FALSE(InsertCodeLines(context_, "Select From Nothing"));
}

}  // namespace
}  // namespace tavrin::addin
