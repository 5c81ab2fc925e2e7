// More of the add-in's real dialogs clicked in the test host: the code line
// builder, the list dialogs of Resume and With, the declaration builders,
// About and the Tip of the Day. Each is filled through its controls as a
// user would and saved as a PNG under screenshots/ beside the binaries.
#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

using MoreBuilderDialogsTest = HostDialogsTest;

bool IsEdit(HWND window) {
  wchar_t name[64] = L"";
  ::GetClassNameW(window, name, 64);
  return ::_wcsicmp(name, L"Edit") == 0;
}

std::string LineOf(const std::string& code, int line) {
  std::size_t start = 0;
  for (int i = 1; i < line && start != std::string::npos; ++i) {
    start = code.find("\r\n", start);
    if (start != std::string::npos) start += 2;
  }
  if (start == std::string::npos) return "";
  return code.substr(start, code.find("\r\n", start) - start);
}

constexpr char kCaller[] =
    "Option Explicit\r\n"
    "\r\n"
    "Sub Main()\r\n"
    "    Debug.Print 1\r\n"
    "End Sub\r\n"
    "\r\n"
    "Function Twice(ByVal value As Long) As Long\r\n"
    "    Twice = value * 2\r\n"
    "End Function\r\n";

TEST_F(MoreBuilderDialogsTest, InsertLineOfCodeCallsThePickedProcedure) {
  Connect(kCaller, 4);
  HWND dialog = nullptr;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Insert Line Of Code", main_window_.get())) return false;
        Screenshot(dialog, L"code-line");
        const HWND list = ControlOf(dialog, L"&Procedure:");
        PickItem(list, static_cast<int>(::SendMessageW(list, LB_FINDSTRINGEXACT, -1,
                                                       reinterpret_cast<LPARAM>(L"Twice"))));
        return true;
      },
      [&] {
        // The pick shows the argument's box, labelled with its caption,
        // though the dialog opened without either.
        const HWND label = ChildWithText(dialog, L"&1 value As Long:");
        if (!label || !::IsWindowVisible(label)) return false;
        const HWND value = ::GetWindow(label, GW_HWNDNEXT);
        if (!IsEdit(value) || !::IsWindowVisible(value)) return false;
        TypeInto(value, L"21");
        Screenshot(dialog, L"code-line-filled");
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("Insert &Line Of Code...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  // The result is left to type: the caret stands where its name goes.
  const std::string call = LineOf(Module(), 5);
  EXPECT_TRUE(call == "     = Twice(21)" || call == "     = Twice(value:=21)") << Module();
  EXPECT_EQ(component_->CodePane()->GetSelection(), (ide::TextRange{5, 5, 5, 5}));
}

constexpr char kHandler[] =
    "Option Explicit\r\n"
    "Private mcolOrders As Collection\r\n"
    "\r\n"
    "Sub Main()\r\n"
    "    Dim items As Collection\r\n"
    "    On Error GoTo HandleError\r\n"
    "    Debug.Print 1\r\n"
    "HandleExit:\r\n"
    "    Exit Sub\r\n"
    "HandleError:\r\n"
    "    Resume HandleExit\r\n"
    "End Sub\r\n";

struct ListCase {
  const char* command;
  const wchar_t* title;
  const wchar_t* screenshot;
  const wchar_t* typed;
  const char* line;  // inserted below the caret's line
};

class ListDialogsTest : public HostDialogsTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(ListDialogsTest, TypingPicksTheEntryInserted) {
  const ListCase& c = GetParam();
  Connect(kHandler, 7);
  HWND dialog = nullptr;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, c.title, main_window_.get())) return false;
        Screenshot(dialog, c.screenshot);
        TypeInto(ControlOf(dialog, L"&Find:"), c.typed);
        ::SetFocus(ControlOf(dialog, L"&Find:"));
        return true;
      },
      [&] {
        Screenshot(dialog, (std::wstring(c.screenshot) + L"-filled").c_str());
        PressKey(VK_RETURN);
        return true;
      },
  });
  Click(c.command);
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_EQ(LineOf(Module(), 8), c.line) << Module();
}

INSTANTIATE_TEST_SUITE_P(
    Commands, ListDialogsTest,
    ::testing::Values(ListCase{"&Resume...", L"Resume", L"resume", L"ne", "    Resume Next"},
                      ListCase{"&With...", L"With", L"with", L"mcol", "    With mcolOrders"}));

struct DeclarationCase {
  const char* command;
  const wchar_t* title;
  const wchar_t* screenshot;
  ide::ComponentType module;
  const char* expected;  // in the module after OK
};

class DeclarationDialogsTest : public HostDialogsTest,
                               public ::testing::WithParamInterface<DeclarationCase> {};

// A name and a type typed, the rest as the builder suggests: the module
// gets what the preview showed.
TEST_P(DeclarationDialogsTest, OkWritesThePreview) {
  const DeclarationCase& c = GetParam();
  Connect(kCaller, 4, c.module, c.module == ide::ComponentType::kClassModule ? "Class1" : "Module1");
  const std::wstring preview = FillAndConfirm(c.command, c.title, c.screenshot,
                                              {{L"&Name:", L"Count"}, {L"&Type:", L"Long"}});
  const std::string module = Module();
  EXPECT_NE(module.find(c.expected), std::string::npos) << module;
  EXPECT_NE(win::WideToUtf8(preview).find(c.expected), std::string::npos)
      << win::WideToUtf8(preview);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, DeclarationDialogsTest,
    ::testing::Values(DeclarationCase{"&Add Variable...", L"Add Variable", L"add-variable",
                                      ide::ComponentType::kStdModule, "Dim Count As Long"},
                      DeclarationCase{"&Add Property...", L"Add Property", L"add-property",
                                      ide::ComponentType::kClassModule,
                                      "Property Get Count() As Long"}));

TEST_F(MoreBuilderDialogsTest, AboutHasOnlyOk) {
  Connect(kCaller, 4);
  DialogRobot robot({[&] {
    HWND dialog = nullptr;
    if (!Opened(dialog, L"About Tavrin", main_window_.get())) return false;
    Screenshot(dialog, L"about");
    EXPECT_EQ(ChildWithText(dialog, L"Cancel"), nullptr);  // it only informs
    ClickButton(ChildWithText(dialog, L"OK"));
    return true;
  }});
  Click("&About...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(Module(), kCaller);
}

TEST_F(MoreBuilderDialogsTest, NextTipShowsAnotherTip) {
  Connect(kCaller, 4);
  HWND dialog = nullptr;
  std::wstring first, second;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Tip of the Day", main_window_.get())) return false;
        Screenshot(dialog, L"tip-of-the-day");
        first = TextOf(ChildOfClass(dialog, L"Edit"));
        ClickButton(ChildWithText(dialog, L"&Next Tip"));
        return true;
      },
      [&] {
        second = TextOf(ChildOfClass(dialog, L"Edit"));
        if (second == first) return false;
        Screenshot(dialog, L"tip-of-the-day-next");
        PressKey(VK_ESCAPE);
        return true;
      },
  });
  Click("&Tavrin...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_FALSE(first.empty());
}

}  // namespace
}  // namespace tavrin::test_host
