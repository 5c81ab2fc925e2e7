// F1 anywhere in a dialog and its Help button open the dialog's own page
// of the help book.
#include <gtest/gtest.h>

#include "tests/win/dialog_robot.h"
#include "win/windows_dialog_host.h"

namespace tavrin::win {
namespace {

using namespace test_support;

class TopicModel : public builders::DialogModel {
 public:
  TopicModel() { fields_.push_back(builders::MakeField("name", builders::FieldKind::kText, "&Name:")); }
  std::string Title() const override { return "Help Dialog"; }
  std::string HelpTopic() const override { return "fragments.html"; }
  std::vector<builders::Field>& Fields() override { return fields_; }
  std::optional<builders::Refusal> Accept() override { return std::nullopt; }

 private:
  std::vector<builders::Field> fields_;
};

TEST(DialogHelpTest, F1AndTheHelpButtonOpenTheDialogsPage) {
  std::vector<std::string> opened;
  WindowsDialogHost host(nullptr, nullptr, [&](const std::string& topic) { opened.push_back(topic); });
  TopicModel model;
  DialogRobot robot({
      [&] {
        const HWND dialog = FindDialog(L"Help Dialog");
        if (!dialog) return false;
        // A real key press: the system turns F1 into WM_HELP on its way
        // from the keyboard, not when a WM_KEYDOWN is posted.
        ::SetForegroundWindow(dialog);
        ::SetFocus(ControlOf(dialog, L"&Name:"));
        INPUT keys[2] = {};
        for (INPUT& key : keys) {
          key.type = INPUT_KEYBOARD;
          key.ki.wVk = VK_F1;
        }
        keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
        ::SendInput(2, keys, sizeof(INPUT));
        return true;
      },
      [&] {
        if (opened.empty()) return false;
        ClickButton(ChildWithText(FindDialog(L"Help Dialog"), L"&Help"));
        return true;
      },
      [&] {
        if (opened.size() < 2) return false;
        ClickButton(ChildWithText(FindDialog(L"Help Dialog"), L"Cancel"));
        return true;
      },
  });
  EXPECT_FALSE(host.Show(model));
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_EQ(opened, (std::vector<std::string>{"fragments.html", "fragments.html"}));
}

}  // namespace
}  // namespace tavrin::win
