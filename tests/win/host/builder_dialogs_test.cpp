// The builders' real dialogs in the add-in: the test host clicks a command
// of the real Tavrin.dll, finds the dialog owned by the IDE's main window,
// fills it through its controls as a user would, and checks the module and
// the caret. Each dialog is saved as a PNG (default and filled) under
// screenshots/ beside the binaries.
#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

using BuilderDialogsTest = HostDialogsTest;

constexpr char kModule[] = "Option Explicit\r\n\r\nSub Main()\r\nEnd Sub\r\n";

TEST_F(BuilderDialogsTest, AddProcedureInsertsWhatTheDialogShows) {
  Connect(kModule, 3);
  HWND dialog = nullptr, argument = nullptr;
  std::wstring preview;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Add Procedure", main_window_.get())) return false;
        Screenshot(dialog, L"add-procedure");
        TypeInto(ControlOf(dialog, L"&Name:"), L"Total");
        PickItem(ControlOf(dialog, L"&Kind:"), 1);  // Function
        TypeInto(ControlOf(dialog, L"&Return type:"), L"Long");
        ClickButton(ChildWithText(dialog, L"A&dd..."));
        return true;
      },
      [&] {
        // The argument's own dialog belongs to the procedure's.
        if (!Opened(argument, L"Argument", dialog)) return false;
        Screenshot(argument, L"argument");
        TypeInto(ControlOf(argument, L"&Name:"), L"count");
        TypeInto(ControlOf(argument, L"&Type:"), L"Long");
        ::SendMessageW(ChildWithText(argument, L"By&Val"), BM_CLICK, 0, 0);
        Screenshot(argument, L"argument-filled");
        PressKey(VK_RETURN);
        return true;
      },
      [&] {
        if (!FindDialog(L"Add Procedure")) return false;
        Screenshot(dialog, L"add-procedure-filled");
        preview = TextOf(ControlOf(dialog, L"Preview:"));
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("Add P&rocedure...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  const std::string code = win::WideToUtf8(preview);
  EXPECT_NE(code.find("Function Total(ByVal count As Long) As Long"), std::string::npos) << code;
  // The module's text ends at its last line; the preview may end its own.
  const std::string inserted = code.ends_with("\r\n") ? code.substr(0, code.size() - 2) : code;
  EXPECT_EQ(Module(), std::string(kModule) + "\r\n" + inserted);
  // The caret on the first line of the body, below the declaration and its
  // continuation lines.
  const auto module = component_->CodeModule();
  int body = module->ProcBodyLine("Total", ide::ProcKind::kProc);
  while (module->Lines(body, 1).ends_with(" _")) ++body;
  EXPECT_EQ(component_->CodePane()->GetSelection().start_line, body + 1);
}

TEST_F(BuilderDialogsTest, EscapeInAddProcedureInsertsNothing) {
  Connect(kModule, 3);
  DialogRobot robot({[&] {
    HWND dialog = nullptr;
    if (!Opened(dialog, L"Add Procedure", main_window_.get())) return false;
    TypeInto(ControlOf(dialog, L"&Name:"), L"Total");
    PressKey(VK_ESCAPE);
    return true;
  }});
  Click("Add P&rocedure...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(Module(), kModule);
}

constexpr char kLabels[] =
    "Sub Main()\r\n"
    "    On Error GoTo Failed\r\n"
    "    Debug.Print 1\r\n"
    "Done:\r\n"
    "    Exit Sub\r\n"
    "Failed:\r\n"
    "    Resume Done\r\n"
    "End Sub\r\n";

TEST_F(BuilderDialogsTest, GoToPicksTheLabelTypedAndSteeredTo) {
  Connect(kLabels, 3);
  HWND dialog = nullptr;
  std::wstring picked;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"GoTo", main_window_.get())) return false;
        Screenshot(dialog, L"goto");
        // "Done" starts with "d" and comes first, "Failed" holds one.
        TypeInto(ControlOf(dialog, L"&Find:"), L"d");
        ::SetFocus(ControlOf(dialog, L"&Find:"));
        PressKey(VK_DOWN);
        return true;
      },
      [&] {
        const HWND list = ChildOfClass(dialog, L"ListBox");
        wchar_t item[64] = L"";
        ::SendMessageW(list, LB_GETTEXT, ::SendMessageW(list, LB_GETCURSEL, 0, 0),
                       reinterpret_cast<LPARAM>(item));
        picked = item;
        Screenshot(dialog, L"goto-filled");
        PressKey(VK_RETURN);
        return true;
      },
  });
  Click("&GoTo...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(picked, L"Failed");
  // "On Error GoTo Failed", and the new line.
  const std::string module = Module();
  EXPECT_NE(module.find("GoTo Failed", module.find("GoTo Failed") + 1), std::string::npos)
      << module;
}

TEST_F(BuilderDialogsTest, EscapeInGoToInsertsNothing) {
  Connect(kLabels, 3);
  DialogRobot robot({[&] {
    HWND dialog = nullptr;
    if (!Opened(dialog, L"GoTo", main_window_.get())) return false;
    PressKey(VK_ESCAPE);
    return true;
  }});
  Click("&GoTo...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(Module(), kLabels);
}

}  // namespace
}  // namespace tavrin::test_host
