#include "win/send_input_keys.h"

#include <gtest/gtest.h>

#include <string>

#include "ide/object_model.h"
#include "win/win_support.h"

namespace tavrin::win {
namespace {

std::wstring TextOf(HWND window) {
  std::wstring text(256, L'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

// An edit box with the focus, as the IDE's code pane has it when a command
// types.
class SendInputKeysTest : public ::testing::Test {
 protected:
  void SetUp() override {
    edit_.reset(::CreateWindowExW(0, L"EDIT", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                  60, nullptr, nullptr, nullptr, nullptr));
    if (!edit_) GTEST_SKIP() << "no display to type into";
    ::SetForegroundWindow(edit_.get());
    ::SetFocus(edit_.get());
  }

  // Pumps this thread's messages until the text is `expected` or two
  // seconds have passed.
  std::wstring WaitFor(const std::wstring& expected) {
    const ULONGLONG end = ::GetTickCount64() + 2000;
    while (TextOf(edit_.get()) != expected && ::GetTickCount64() < end) {
      MSG message;
      while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
      }
      ::Sleep(5);
    }
    return TextOf(edit_.get());
  }

  UniqueHwnd edit_;
};

TEST_F(SendInputKeysTest, TypesCharactersAndKeys) {
  SendInputKeys("ab{LEFT}c\xC3\xA9{END}{BACKSPACE}~");
  // a b, back before b, c é, to the end, b erased; ~ is Enter, which a
  // one-line edit box ignores.
  EXPECT_EQ(WaitFor(L"ac\u00e9"), L"ac\u00e9");
}

TEST_F(SendInputKeysTest, UnknownKeyTypesNothing) {
  EXPECT_THROW(SendInputKeys("x{NOSUCHKEY}"), ide::Error);
  SendInputKeys("y");
  EXPECT_EQ(WaitFor(L"y"), L"y");
}

}  // namespace
}  // namespace tavrin::win
