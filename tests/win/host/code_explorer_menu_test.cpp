// The Code Explorer's context bar "CodeExplorerPopUp" shown by the test host
// as a real popup menu, as the IDE shows it: the entries the user sees, a
// screenshot, and an entry chosen with the keyboard that then runs on the
// node the menu was opened on.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ide/memory/memory_vbe.h"
#include "tests/win/host/host_popup_menu.h"
#include "tests/win/host/screenshot.h"
#include "tests/win/host/tool_window_session.h"
#include "win/tool_panes.h"

namespace tavrin::test_host {
namespace {

constexpr UINT kMenuGetHmenu = 0x01E1;  // MN_GETHMENU

// What the menu showed: each entry's text ("-" for a separator), "(off)"
// after a disabled one.
std::vector<std::wstring> g_shown;
int g_ticks_since_chosen = -1;

// Once the menu is up: reads its entries, saves its picture, and picks the
// second entry with the keys a user presses. A menu that does not take the
// keys is closed, so the test fails instead of waiting.
void CALLBACK ChooseFromMenu(HWND, UINT, UINT_PTR, DWORD) {
  const HWND menu_window = ::FindWindowW(L"#32768", nullptr);
  if (!menu_window || !::IsWindowVisible(menu_window)) return;
  if (g_ticks_since_chosen >= 0) {
    if (++g_ticks_since_chosen > 20) ::EndMenu();
    return;
  }
  g_ticks_since_chosen = 0;
  const auto menu = reinterpret_cast<HMENU>(::SendMessageW(menu_window, kMenuGetHmenu, 0, 0));
  for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
    wchar_t text[128] = L"";
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING;
    item.dwTypeData = text;
    item.cch = 128;
    ::GetMenuItemInfoW(menu, UINT(i), TRUE, &item);
    g_shown.push_back((item.fType & MFT_SEPARATOR) ? L"-"
                                                  : std::wstring(text) +
                                                        ((item.fState & MFS_DISABLED) ? L" (off)" : L""));
  }
  SaveWindowPng(menu_window, L"code_explorer_context_menu");
  for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN}) {
    ::PostMessageW(menu_window, WM_KEYDOWN, key, 0);
    ::PostMessageW(menu_window, WM_KEYUP, key, 0);
  }
}

using CodeExplorerMenuTest = ToolWindowDllTest;

TEST_F(CodeExplorerMenuTest, ShowsTheBarAsAMenuAndRunsTheChosenEntry) {
  ToolWindowSession session;
  const auto frame = session.Frame(L"Tavrin.docCodeExplorer");
  ASSERT_NE(frame, nullptr);
  const HWND control = frame->ControlWindow();
  const HWND tree = ::GetDlgItem(control, win::kExplorerTreeId);
  const HTREEITEM item = FindTreeItem(tree, L"/Inventory/Forms/frmAbout");
  ASSERT_NE(item, nullptr);
  RECT rect{};
  TreeView_GetItemRect(tree, item, &rect, TRUE);
  POINT point{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  ::ClientToScreen(tree, &point);
  ::SetCursorPos(point.x, point.y);

  g_shown.clear();
  g_ticks_since_chosen = -1;
  ShowPopupMenus(true);
  const UINT_PTR timer = ::SetTimer(nullptr, 0, 200, &ChooseFromMenu);
  NMHDR click{tree, static_cast<UINT_PTR>(win::kExplorerTreeId), static_cast<UINT>(NM_RCLICK)};
  ::SendMessageW(control, WM_NOTIFY, win::kExplorerTreeId, reinterpret_cast<LPARAM>(&click));
  ::KillTimer(nullptr, timer);
  ShowPopupMenus(false);

  const std::vector<std::wstring> expected = {
      L"Re&fresh", L"Add &Module", L"Add Cl&ass...", L"Add &Form", L"&Remove...",
      L"I&mport File...", L"Export File...", L"&Print...", L"Code to &HTML...",
      L"Add P&rocedure...", L"&Add Property...", L"&Line Numbers"};
  std::vector<std::wstring> entries;
  for (const auto& shown : g_shown)
    if (shown != L"-") entries.push_back(shown.substr(0, shown.find(L" (off)")));
  EXPECT_EQ(entries, expected);
  EXPECT_NE(std::find(g_shown.begin(), g_shown.end(), L"-"), g_shown.end()) << "groups apart";
  // "Add &Module" ran on the form's project: a new module, shown.
  EXPECT_NE(FindTreeItem(tree, L"/Inventory/Modules/Module1"), nullptr);
  EXPECT_EQ(ActiveComponentName(session.Memory()), "Module1");
}

}  // namespace
}  // namespace tavrin::test_host
