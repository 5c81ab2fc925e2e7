#include "win/message_timer.h"

#include "ide/object_model.h"

namespace tavrin::win {
namespace {

constexpr wchar_t kClassName[] = L"TavrinMessageTimer";
constexpr UINT_PTR kTimerId = 1;

}  // namespace

MessageTimer::MessageTimer(UINT interval_milliseconds, std::function<void()> tick)
    : tick_(std::move(tick)) {
  WNDCLASSEXW window_class{};
  window_class.cbSize = sizeof window_class;
  window_class.lpfnWndProc = &MessageTimer::WindowProc;
  window_class.hInstance = ThisModule();
  window_class.lpszClassName = kClassName;
  // A second timer finds the class registered already.
  if (!::RegisterClassExW(&window_class) && ::GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
    throw ide::Error(5, "Cannot create the timer window: " + ErrorText(::GetLastError()));
  }
  window_.reset(::CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  ThisModule(), nullptr));
  if (!window_) throw ide::Error(5, "Cannot create the timer window: " + ErrorText(::GetLastError()));
  ::SetWindowLongPtrW(window_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  if (!::SetTimer(window_.get(), kTimerId, interval_milliseconds, nullptr)) {
    throw ide::Error(5, "Cannot start the timer: " + ErrorText(::GetLastError()));
  }
}

MessageTimer::~MessageTimer() {
  if (window_) {
    ::KillTimer(window_.get(), kTimerId);
    ::SetWindowLongPtrW(window_.get(), GWLP_USERDATA, 0);
    window_.reset();
  }
  // The class points into this module, which may be unloaded next; it stays
  // registered while another timer's window still uses it.
  ::UnregisterClassW(kClassName, ThisModule());
}

LRESULT CALLBACK MessageTimer::WindowProc(HWND window, UINT message, WPARAM wparam,
                                          LPARAM lparam) noexcept {
  if (message == WM_TIMER && wparam == kTimerId) {
    auto* timer = reinterpret_cast<MessageTimer*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (timer && !timer->ticking_) {
      timer->ticking_ = true;
      try {
        timer->tick_();
      } catch (...) {
        // The tick's owner reports its own errors; a timer cannot.
      }
      timer->ticking_ = false;
    }
    return 0;
  }
  return ::DefWindowProcW(window, message, wparam, lparam);
}

}  // namespace tavrin::win
