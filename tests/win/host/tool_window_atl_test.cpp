// The three tool windows in a second, independent container: Wine's ATL
// control host (AtlAxCreateControl) sites and activates the controls the
// add-in asks CreateToolWindow for, with the sample project loaded. The
// windows must resize, take their keys and go to members there as in the
// IDE's own container.
#include <gtest/gtest.h>

#include "ide/memory/memory_vbe.h"
#include "tests/win/host/screenshot.h"
#include "tests/win/host/tool_window_session.h"
#include "win/tool_panes.h"

namespace tavrin::test_host {
namespace {

class AtlToolWindowsTest : public ToolWindowDllTest {
 protected:
  void SetUp() override {
    ToolWindowDllTest::SetUp();
    UseToolContainer(ToolContainer::kAtl);
  }
  void TearDown() override {
    UseToolContainer(ToolContainer::kHost);
    ToolWindowDllTest::TearDown();
  }
};

int BodyLine(ToolWindowSession& session, const char* component, const char* procedure) {
  return session.Memory().VBProjects()->Item(1)->VBComponents()->Item(component)->CodeModule()->ProcBodyLine(
      procedure, ide::ProcKind::kProc);
}

// A double-click as the mouse gives it, in the middle of the item's text:
// queued, as the tree waits for the button's release in its own loop.
void DoubleClick(HWND tree, HTREEITEM item) {
  TreeView_EnsureVisible(tree, item);
  RECT rect{};
  TreeView_GetItemRect(tree, item, &rect, TRUE);
  const LPARAM at = MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
    ::PostMessageW(tree, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, at);
  PumpMessages();
}

TEST_F(AtlToolWindowsTest, HostsTheWindowsWhichResizeAndFollowTheUser) {
  ToolWindowSession session;
  ASSERT_EQ(OpenToolFrames().size(), 3u);
  for (const wchar_t* prog_id :
       {L"Tavrin.docTabOrder", L"Tavrin.docDirectAccess", L"Tavrin.docCodeExplorer"}) {
    const auto frame = session.Frame(prog_id);
    ASSERT_NE(frame, nullptr);
    ASSERT_NE(frame->ControlWindow(), nullptr);
    for (const SIZE size : {SIZE{420, 360}, SIZE{260, 500}}) {
      frame->Resize(size.cx, size.cy);
      PumpMessages();
      RECT frame_client{}, control_client{};
      ::GetClientRect(frame->Frame(), &frame_client);
      ::GetClientRect(frame->ControlWindow(), &control_client);
      EXPECT_EQ(control_client.right, frame_client.right) << win::WideToUtf8(prog_id);
      EXPECT_EQ(control_client.bottom, frame_client.bottom) << win::WideToUtf8(prog_id);
    }
  }

  // The Code Explorer shows the sample project; a double-click goes there.
  const auto explorer = session.Frame(L"Tavrin.docCodeExplorer");
  const HWND control = explorer->ControlWindow();
  const HWND tree = ::GetDlgItem(control, win::kExplorerTreeId);
  for (const wchar_t* path : {L"/Inventory/Modules/basMain/Main", L"/Inventory/Forms/frmAbout",
                              L"/Inventory/Class Modules/clsStockItem/Quantity/Let"})
    EXPECT_NE(FindTreeItem(tree, path), nullptr) << win::WideToUtf8(path);
  const HTREEITEM stock_level = FindTreeItem(tree, L"/Inventory/Modules/basMain/StockLevel");
  ASSERT_NE(stock_level, nullptr);
  DoubleClick(tree, stock_level);
  EXPECT_EQ(TreeView_GetSelection(tree), stock_level);
  EXPECT_EQ(ActiveComponentName(session.Memory()), "basMain");
  EXPECT_EQ(CaretLine(session.Memory()), BodyLine(session, "basMain", "StockLevel"));

  // Keys: Tab from the filter into the tree, arrows within it, Enter goes.
  const HWND filter = ::GetDlgItem(control, win::kExplorerFilterId);
  ::SetFocus(filter);
  explorer->SendKey(filter, VK_TAB);
  EXPECT_EQ(::GetFocus(), tree);
  const HTREEITEM to_string = FindTreeItem(tree, L"/Inventory/Class Modules/clsStockItem/ToString");
  ASSERT_NE(to_string, nullptr);
  TreeView_SelectItem(tree, to_string);
  explorer->SendKey(tree, VK_UP);
  EXPECT_NE(TreeView_GetSelection(tree), to_string);
  explorer->SendKey(tree, VK_DOWN);
  EXPECT_EQ(TreeView_GetSelection(tree), to_string);
  explorer->SendKey(tree, VK_RETURN);
  EXPECT_EQ(ActiveComponentName(session.Memory()), "clsStockItem");
  EXPECT_EQ(CaretLine(session.Memory()), BodyLine(session, "clsStockItem", "ToString"));
  explorer->Resize(300, 420);
  SaveWindowPng(explorer->Frame(), L"code_explorer_atl");

  // Shortcuts and Search: typed, Down into the results, Enter goes there.
  const auto search = session.Frame(L"Tavrin.docDirectAccess");
  const HWND edit = ::GetDlgItem(search->ControlWindow(), win::kSearchEditId);
  const HWND list = ::GetDlgItem(search->ControlWindow(), win::kSearchListId);
  ::SetFocus(edit);
  ::SetWindowTextW(edit, L"StockL");
  ASSERT_GE(ListView_GetItemCount(list), 1);
  search->SendKey(edit, VK_DOWN);
  EXPECT_EQ(::GetFocus(), list);
  search->SendKey(list, VK_RETURN);
  EXPECT_EQ(ActiveComponentName(session.Memory()), "basMain");
  EXPECT_EQ(CaretLine(session.Memory()), BodyLine(session, "basMain", "StockLevel"));
}

}  // namespace
}  // namespace tavrin::test_host
