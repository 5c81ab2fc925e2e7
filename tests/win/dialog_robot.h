// Plays the user of modal dialogs. A thread timer runs the steps of a
// script while the dialogs' modal loops pump the thread's messages; each
// step acts on the windows as a user's keystrokes and clicks would (text
// with its change notification, picks with theirs, clicks and keys posted
// so that a dialog they open runs its own modal loop). A script that does
// not finish in time closes what is open and is reported, so a test fails
// instead of hanging.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "win/win_support.h"

namespace tavrin::test_support {

class DialogRobot {
 public:
  // True when the step is done; false: try again at the next tick (a
  // window not open yet).
  using Step = std::function<bool()>;

  explicit DialogRobot(std::vector<Step> steps) : steps_(std::move(steps)) {
    current_ = this;
    timer_ = ::SetTimer(nullptr, 0, 20, &Tick);
  }
  ~DialogRobot() {
    ::KillTimer(nullptr, timer_);
    current_ = nullptr;
  }
  DialogRobot(const DialogRobot&) = delete;
  DialogRobot& operator=(const DialogRobot&) = delete;

  bool Finished() const { return next_ == steps_.size(); }
  std::size_t StepsDone() const { return next_; }

 private:
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    DialogRobot* robot = current_;
    if (!robot || robot->busy_ || robot->Finished()) return;
    robot->busy_ = true;
    if (robot->steps_[robot->next_]()) {
      ++robot->next_;
      robot->waited_ = 0;
    } else if (++robot->waited_ > 500) {  // about ten seconds
      robot->next_ = robot->steps_.size();
      robot->gave_up_ = true;
      ::EnumThreadWindows(::GetCurrentThreadId(), &CloseAll, 0);
    }
    robot->busy_ = false;
  }
  static BOOL CALLBACK CloseAll(HWND window, LPARAM) {
    if (::IsWindowVisible(window)) ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
  }

 public:
  bool GaveUp() const { return gave_up_; }

 private:
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int waited_ = 0;
  bool busy_ = false;
  bool gave_up_ = false;
  UINT_PTR timer_ = 0;
  static inline DialogRobot* current_ = nullptr;
};

inline std::wstring TextOf(HWND window) {
  wchar_t text[4096] = L"";
  ::GetWindowTextW(window, text, 4096);
  return text;
}

struct DialogSearch {
  const std::wstring* title;
  HWND found;
};

inline BOOL CALLBACK MatchDialog(HWND window, LPARAM data) {
  auto* search = reinterpret_cast<DialogSearch*>(data);
  if (::IsWindowVisible(window) && ::IsWindowEnabled(window) && TextOf(window) == *search->title)
    search->found = window;
  return search->found == nullptr;
}

// The visible top-level window of this thread with that title; null while
// there is none.
inline HWND FindDialog(const std::wstring& title) {
  DialogSearch search{&title, nullptr};
  ::EnumThreadWindows(::GetCurrentThreadId(), &MatchDialog, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// The child with that text (a caption, a button).
inline HWND ChildWithText(HWND dialog, const std::wstring& text) {
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    if (TextOf(child) == text) return child;
  return nullptr;
}

// The control a caption stands for: the next one in Tab order.
inline HWND ControlOf(HWND dialog, const std::wstring& caption) {
  const HWND label = ChildWithText(dialog, caption);
  return label ? ::GetWindow(label, GW_HWNDNEXT) : nullptr;
}

inline HWND ChildOfClass(HWND dialog, const std::wstring& window_class) {
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    wchar_t name[64] = L"";
    ::GetClassNameW(child, name, 64);
    if (::_wcsicmp(name, window_class.c_str()) == 0) return child;
  }
  return nullptr;
}

inline void Notify(HWND control, WORD code) {
  ::SendMessageW(::GetParent(control), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

inline bool IsComboBox(HWND control) {
  wchar_t name[64] = L"";
  ::GetClassNameW(control, name, 64);
  return ::_wcsicmp(name, L"ComboBox") == 0;
}

// Types into an edit box or a combo box's edit part.
inline void TypeInto(HWND control, const std::wstring& text) {
  ::SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  Notify(control, IsComboBox(control) ? CBN_EDITCHANGE : EN_CHANGE);
}

// Picks an item of a drop-down list, combo box or list box.
inline void PickItem(HWND control, int index) {
  if (IsComboBox(control)) {
    ::SendMessageW(control, CB_SETCURSEL, index, 0);
    Notify(control, CBN_SELCHANGE);
  } else {
    ::SendMessageW(control, LB_SETCURSEL, index, 0);
    Notify(control, LBN_SELCHANGE);
  }
}

// Clicks a button; posted, so that a dialog it opens does not run inside
// the robot's step.
inline void ClickButton(HWND button) { ::PostMessageW(button, BM_CLICK, 0, 0); }

// A key pressed in the control that has the focus, through the dialog
// manager (Enter for the default button, Escape for Cancel).
inline void PressKey(UINT key) {
  const HWND focus = ::GetFocus();
  ::PostMessageW(focus, WM_KEYDOWN, key, 0);
  ::PostMessageW(focus, WM_KEYUP, key, 0xC0000000);
}

}  // namespace tavrin::test_support
