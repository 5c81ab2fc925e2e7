// The enum and type builders, Insert Variable and Explicit Argument of the
// real Tavrin.dll clicked in the test host: each dialog filled through its
// controls as a user would, saved as a PNG under screenshots/, and the
// module checked.
#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

constexpr char kBlocks[] =
    "Option Explicit\r\n"                                               // 1
    "Public Enum eColor\r\n"                                            // 2
    "    ecRed\r\n"                                                     // 3
    "End Enum\r\n"                                                      // 4
    "Public Type tPoint\r\n"                                            // 5
    "    X As Long\r\n"                                                 // 6
    "End Type\r\n"                                                      // 7
    "Private mcolOrders As Collection\r\n"                              // 8
    "\r\n"                                                              // 9
    "Sub Main()\r\n"                                                    // 10
    "    Dim items As Collection\r\n"                                   // 11
    "    \r\n"                                                          // 12
    "    Ship \"air\", 2\r\n"                                           // 13
    "    Fly 2\r\n"                                                     // 14
    "End Sub\r\n"                                                       // 15
    "\r\n"                                                              // 16
    "Sub Ship(ByVal via As String, Optional ByVal days As Long)\r\n"  // 17
    "End Sub\r\n";                                                      // 18

struct BlockCase {
  const char* command;
  const wchar_t* title;
  const wchar_t* screenshot;
  std::vector<std::pair<std::wstring, std::wstring>> typed;  // caption, text
  const char* expected;  // in the preview and the module, before `before`
  const char* before;
};

class BlockDialogsTest : public HostDialogsTest,
                         public ::testing::WithParamInterface<BlockCase> {};

TEST_P(BlockDialogsTest, OkWritesThePreviewInTheDeclarations) {
  const BlockCase& c = GetParam();
  Connect(kBlocks, 12);
  const std::wstring preview = FillAndConfirm(c.command, c.title, c.screenshot, c.typed);
  const std::string module = Module();
  const std::size_t at = module.find(c.expected);
  EXPECT_NE(at, std::string::npos) << module;
  EXPECT_LT(at, module.find(c.before)) << module;
  EXPECT_NE(win::WideToUtf8(preview).find(c.expected), std::string::npos)
      << win::WideToUtf8(preview);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, BlockDialogsTest,
    ::testing::Values(
        BlockCase{"New &Enum...", L"New Enum", L"new-enum",
                  {{L"&Name:", L"eSize"}, {L"&Members (Red, Green = 5):", L"esSmall, esLarge"}},
                  "Enum eSize", "Sub Main()"},
        BlockCase{"New &User-Defined Data Type...", L"New User-Defined Data Type", L"new-type",
                  {{L"&Name:", L"tSize"}, {L"&Members (X As Long, Y As Long):", L"W As Long"}},
                  "W As Long", "Sub Main()"},
        BlockCase{"Add Constant to En&um...", L"Add Constant to Enum", L"add-enum-constant",
                  {{L"&Name:", L"ecBlue"}, {L"&Value (empty: the next):", L"4"}},
                  "ecBlue = 4", "End Enum"},
        BlockCase{"Add Item to User-Defined Data Ty&pe...", L"Add Item to User-Defined Data Type",
                  L"add-type-item", {{L"&Name:", L"Y"}, {L"&Type:", L"Long"}}, "Y As Long",
                  "End Type"}));

using CaretDialogsTest = HostDialogsTest;

TEST_F(CaretDialogsTest, InsertVariableTypesThePickedName) {
  Connect(kBlocks, 12);
  HWND dialog = nullptr;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Insert Variable", main_window_.get())) return false;
        Screenshot(dialog, L"insert-variable");
        TypeInto(ControlOf(dialog, L"&Find:"), L"mcol");
        ::SetFocus(ControlOf(dialog, L"&Find:"));
        return true;
      },
      [&] {
        Screenshot(dialog, L"insert-variable-filled");
        PressKey(VK_RETURN);
        return true;
      },
  });
  Click("Insert Varia&ble...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_NE(Module().find("\r\n    mcolOrders\r\n    Ship"), std::string::npos) << Module();
  EXPECT_EQ(component_->CodePane()->GetSelection(), (ide::TextRange{12, 15, 12, 15}));
}

TEST_F(CaretDialogsTest, ExplicitArgumentNamesTheCallOrSaysItsProcedureIsMissing) {
  Connect(kBlocks, 13);
  Click("Explicit Arg&ument...");
  EXPECT_NE(Module().find("    Ship via:=\"air\", days:=2\r\n"), std::string::npos) << Module();

  component_->CodePane()->SetSelection({14, 5, 14, 5});
  DialogRobot robot({[&] {
    HWND box = FindDialog(L"Tavrin");
    if (!box || !ChildWithText(box, L"The called procedure is missing")) return false;
    Screenshot(box, L"explicit-argument-missing");
    ClickButton(ChildWithText(box, L"OK"));
    return true;
  }});
  const std::string before = Module();
  Click("Explicit Arg&ument...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_EQ(Module(), before);
}

}  // namespace
}  // namespace tavrin::test_host
