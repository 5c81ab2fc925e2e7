#include "tests/win/host/host_popup_menu.h"

#include <memory>
#include <vector>

#include "win/com_values.h"
#include "win/win_support.h"

namespace tavrin::test_host {
namespace {

bool g_show = false;

using Entries = std::vector<std::shared_ptr<ide::ICommandBarControl>>;

// The menu of `controls`; each entry's command is its index in `entries`
// plus one.
HMENU BuildMenu(ide::ICommandBarControls& controls, Entries& entries) {
  const HMENU menu = ::CreatePopupMenu();
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    if (!control->Visible()) continue;
    if (control->BeginGroup() && ::GetMenuItemCount(menu) > 0)
      ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    const std::wstring caption = win::Utf8ToWide(control->Caption());
    const UINT state = control->Enabled() ? MF_ENABLED : MF_GRAYED;
    if (control->Type() == ide::ControlType::kPopup) {
      const HMENU sub = BuildMenu(*control->Controls(), entries);
      ::AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(sub), caption.c_str());
    } else {
      entries.push_back(control);
      ::AppendMenuW(menu, MF_STRING | state, entries.size(), caption.c_str());
    }
  }
  return menu;
}

}  // namespace

void ShowPopupMenus(bool show) { g_show = show; }
bool ShowingPopupMenus() { return g_show; }

void ShowPopupMenu(ide::ICommandBar& bar, std::optional<int> x, std::optional<int> y) {
  Entries entries;
  const HMENU menu = BuildMenu(*bar.Controls(), entries);
  POINT at{};
  ::GetCursorPos(&at);
  // The menu needs a window of this thread to report to.
  const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                       ::GetModuleHandleW(nullptr), nullptr);
  ::SetForegroundWindow(owner);
  const UINT chosen = static_cast<UINT>(::TrackPopupMenu(
      menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON, x.value_or(at.x),
      y.value_or(at.y), 0, owner, nullptr));
  ::DestroyMenu(menu);
  ::DestroyWindow(owner);
  if (chosen >= 1 && chosen <= entries.size()) entries[chosen - 1]->Execute();
}

}  // namespace tavrin::test_host
