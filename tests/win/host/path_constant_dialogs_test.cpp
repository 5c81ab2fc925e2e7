// "&Filename..." and "F&older..." of the real Tavrin.dll clicked in the test
// host: the path typed into "Select File" or "Select Folder", then the
// constant builder preset with it, confirmed as it stands.
#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

struct PathCase {
  const char* command;
  const wchar_t* title;
  const wchar_t* caption;
  const wchar_t* screenshot;
  bool folder;
};

class PathConstantDialogsTest : public HostDialogsTest,
                                public ::testing::WithParamInterface<PathCase> {};

TEST_P(PathConstantDialogsTest, ThePickedPathBecomesAStringConstant) {
  const PathCase& c = GetParam();
  Connect("Option Explicit\r\n\r\nSub Main()\r\n    \r\nEnd Sub\r\n", 4);
  const std::wstring path = c.folder ? ExeFolder() + L"help" : ExeFolder() + L"Tavrin.dll";
  HWND picker = nullptr;
  HWND builder = nullptr;
  DialogRobot robot({
      [&] {
        if (!Opened(picker, c.title, main_window_.get())) return false;
        TypeInto(ControlOf(picker, c.caption), path);
        Screenshot(picker, c.screenshot);
        ClickButton(ChildWithText(picker, L"OK"));
        return true;
      },
      [&] {
        if (!Opened(builder, L"Add Constant", main_window_.get())) return false;
        Screenshot(builder, (std::wstring(c.screenshot) + L"-constant").c_str());
        ClickButton(ChildWithText(builder, L"OK"));
        return true;
      },
  });
  Click(c.command);
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  const std::string module = Module();
  EXPECT_NE(module.find(" As String = \"" + win::WideToUtf8(path) + "\""), std::string::npos)
      << module;
  EXPECT_LT(module.find("Const "), module.find("Sub Main()")) << module;
}

INSTANTIATE_TEST_SUITE_P(
    Commands, PathConstantDialogsTest,
    ::testing::Values(PathCase{"&Filename...", L"Select File", L"&File:", L"select-file", false},
                      PathCase{"F&older...", L"Select Folder", L"F&older:", L"select-folder",
                               true}));

}  // namespace
}  // namespace tavrin::test_host
