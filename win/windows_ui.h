// The user through real Win32 dialogs: the system's message box, and an input
// box (prompt, edit box, OK and Cancel) built in memory, both owned by the
// window given, so they stay above it and disable it while open.
#pragma once

#include "platform/ui.h"
#include "win/win_support.h"

namespace tavrin::win {

class WindowsUi : public platform::Ui {
 public:
  // `owner` may be null (no owner window), e.g. in the command-line tool.
  explicit WindowsUi(HWND owner = nullptr) : owner_(owner) {}

  // An empty title shows the add-in's name.
  platform::Answer MessageBox(std::string_view text, platform::Buttons buttons,
                              platform::Icon icon, std::string_view title) override;
  std::optional<std::string> InputBox(std::string_view prompt, std::string_view title,
                                      std::string_view default_text) override;

 private:
  HWND owner_;
};

}  // namespace tavrin::win
