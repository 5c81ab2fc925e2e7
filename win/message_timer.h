// A timer whose ticks arrive as ordinary window messages on the thread that
// made it (the IDE's user-interface thread): a hidden message-only window
// and SetTimer. No thread of its own, so a tick never runs beside a command.
#pragma once

#include <functional>

#include "win/calling_convention.h"
#include "win/win_support.h"

namespace tavrin::win {

class MessageTimer {
 public:
  // Raises ide::Error when the window or the timer cannot be made. A tick
  // that throws is dropped; the next tick comes as usual.
  MessageTimer(UINT interval_milliseconds, std::function<void()> tick);
  MessageTimer(const MessageTimer&) = delete;
  MessageTimer& operator=(const MessageTimer&) = delete;
  ~MessageTimer();

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wparam,
                                     LPARAM lparam) noexcept;
  static_assert(kIsWindowProcedure<&WindowProc>);

  std::function<void()> tick_;
  bool ticking_ = false;  // a tick that pumps messages does not start another
  UniqueHwnd window_;
};

}  // namespace tavrin::win
