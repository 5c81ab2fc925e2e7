// "&From Enum..." clicked in the test host: the add-in reads the project's
// reference to OLE Automation through the type library interfaces, offers
// its enums beside the project's, and writes the picked one's Cases.
#include "ide/memory/memory_references.h"
#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

using SelectEnumDialogTest = HostDialogsTest;

constexpr char kCode[] =
    "Option Explicit\r\n"
    "Private Enum eSize\r\n"
    "    Small\r\n"
    "    Large\r\n"
    "End Enum\r\n"
    "\r\n"
    "Sub Show(state As Long)\r\n"
    "    \r\n"
    "End Sub\r\n";

TEST_F(SelectEnumDialogTest, OffersTheLibrariesEnumsAndWritesTheCases) {
  Connect(kCode, 8);
  ide::memory::VbpReference stdole;
  stdole.guid = "{00020430-0000-0000-C000-000000000046}";
  stdole.major = 2;
  stdole.path = "stdole2.tlb";
  stdole.description = "OLE Automation";
  std::dynamic_pointer_cast<ide::memory::MemoryProject>(component_->Project())
      ->AddReference(std::make_shared<ide::memory::MemoryReference>(stdole, "stdole"));
  HWND dialog = nullptr;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Select Case From Enum", main_window_.get())) return false;
        Screenshot(dialog, L"select-enum");
        const HWND list = ControlOf(dialog, L"&Enum:");
        const LRESULT item = ::SendMessageW(list, LB_FINDSTRINGEXACT, -1,
                                            reinterpret_cast<LPARAM>(L"OLE_TRISTATE (stdole)"));
        if (item == LB_ERR) return false;
        PickItem(list, static_cast<int>(item));
        TypeInto(ControlOf(dialog, L"E&xpression:"), L"state");
        Screenshot(dialog, L"select-enum-filled");
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("&From Enum...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_NE(Module().find("Sub Show(state As Long)\r\n"
                          "    Select Case state\r\n"
                          "        Case Unchecked\r\n            \r\n"
                          "        Case Checked\r\n            \r\n"
                          "        Case Gray\r\n            \r\n"
                          "        Case Else\r\n            Msgbox \"Missing Case\"\r\n"
                          "    End Select\r\n"
                          "End Sub"),
            std::string::npos)
      << Module();
  // The caret waits in the first Case.
  EXPECT_EQ(component_->CodePane()->GetSelection(), (ide::TextRange{10, 13, 10, 13}));
}

}  // namespace
}  // namespace tavrin::test_host
