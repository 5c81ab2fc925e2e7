#include "win/windows_ui.h"

#include <functional>

#include <gtest/gtest.h>

namespace tavrin::win {
namespace {

// Plays the user: a thread hook sees each dialog as it is activated and
// answers it with the action given, the way a click would.
class DialogAnswerer {
 public:
  explicit DialogAnswerer(std::function<void(HWND)> answer) {
    answer_ = std::move(answer);
    hook_.reset(::SetWindowsHookExW(WH_CBT, &HookProc, nullptr, ::GetCurrentThreadId()));
  }
  ~DialogAnswerer() { answer_ = nullptr; }
  bool ok() const { return static_cast<bool>(hook_); }

 private:
  static LRESULT CALLBACK HookProc(int code, WPARAM wparam, LPARAM lparam) {
    if (code == HCBT_ACTIVATE && answer_) answer_(reinterpret_cast<HWND>(wparam));
    return ::CallNextHookEx(nullptr, code, wparam, lparam);
  }

  static inline std::function<void(HWND)> answer_;
  UniqueHhook hook_;
};

void Click(HWND dialog, int button) {
  ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
}

// Windows cannot be created without a display (Wine with no X server).
bool CanShowWindows() {
  UniqueHwnd probe(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr,
                                     nullptr, nullptr, nullptr));
  return static_cast<bool>(probe);
}

class WindowsUiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!CanShowWindows()) GTEST_SKIP() << "no display to show dialogs on";
  }
  WindowsUi ui_;
};

TEST_F(WindowsUiTest, InputBoxOkGivesTheDefaultText) {
  DialogAnswerer answerer([](HWND dialog) { Click(dialog, IDOK); });
  ASSERT_TRUE(answerer.ok());
  EXPECT_EQ(ui_.InputBox("Name?", "Tavrin", "caf\xC3\xA9"), "caf\xC3\xA9");
}

TEST_F(WindowsUiTest, InputBoxOkGivesWhatWasTyped) {
  DialogAnswerer answerer([](HWND dialog) {
    ::SetDlgItemTextW(dialog, 101, L"typed \u2026");
    Click(dialog, IDOK);
  });
  ASSERT_TRUE(answerer.ok());
  EXPECT_EQ(ui_.InputBox("Name?", "", "old"), "typed \xE2\x80\xA6");
}

TEST_F(WindowsUiTest, InputBoxCancelGivesNothing) {
  DialogAnswerer answerer([](HWND dialog) { Click(dialog, IDCANCEL); });
  ASSERT_TRUE(answerer.ok());
  EXPECT_EQ(ui_.InputBox("Name?", "Tavrin", "x"), std::nullopt);
}

TEST_F(WindowsUiTest, MessageBoxReportsTheButton) {
  DialogAnswerer answerer([](HWND dialog) { Click(dialog, IDNO); });
  ASSERT_TRUE(answerer.ok());
  EXPECT_EQ(ui_.MessageBox("Replace?", platform::Buttons::kYesNoCancel,
                           platform::Icon::kQuestion, "Tavrin"),
            platform::Answer::kNo);
}

}  // namespace
}  // namespace tavrin::win
