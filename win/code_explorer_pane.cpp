// The Code Explorer window: a type-ahead filter box above a tree view of
// the document's tree, with the kind of each node as its image.
// Double-click or Enter on a member shows it in its code pane; Down moves
// from the filter box into the tree.
#include <algorithm>

#include "addin/tool_documents.h"
#include "win/tool_panes.h"

namespace tavrin::win {
namespace {

constexpr int kMargin = 2;

class CodeExplorerPane final : public ToolPane, public addin::DocumentView {
 public:
  CodeExplorerPane() : document_(std::make_shared<addin::CodeExplorerDocument>()) {
    document_->SetView(this);
  }
  ~CodeExplorerPane() override { document_->SetView(nullptr); }

  void Create(HWND parent, HFONT font, PaneHost& host) override {
    host_ = &host;
    filter_.Create(parent, 2030, kExplorerFilterId, font);
    tree_ = CreateChild(parent, WC_TREEVIEWW, L"",
                        WS_TABSTOP | TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS |
                            TVS_SHOWSELALWAYS,
                        kExplorerTreeId, font, WS_EX_CLIENTEDGE);
    images_ = MakeTreeImages();
    TreeView_SetImageList(tree_, images_.get(), TVSIL_NORMAL);
    document_->MarkOpened();
    Fill();
  }
  void Destroyed() override {
    tree_ = nullptr;
    filter_ = {};
  }
  void Layout(int width, int height) override {
    if (!tree_) return;
    filter_.Layout(kMargin, kMargin, width - 2 * kMargin);
    const int top = filter_.height + 2 * kMargin;
    ::MoveWindow(tree_, 0, top, width, std::max(0, height - top), TRUE);
  }
  LRESULT Command(WPARAM wparam, LPARAM lparam) override {
    if (reinterpret_cast<HWND>(lparam) != filter_.edit) return 0;
    if (HIWORD(wparam) == EN_SETFOCUS) host_->ChildFocused();
    if (HIWORD(wparam) == EN_CHANGE) document_->SetFilter(WideToUtf8(WindowText(filter_.edit)));
    return 0;
  }
  LRESULT Notify(const NMHDR& header) override {
    if (header.hwndFrom != tree_) return 0;
    if (header.code == NM_SETFOCUS) host_->ChildFocused();
    if (header.code == NM_DBLCLK) return GoToSelected() ? TRUE : FALSE;
    if (header.code == NM_RCLICK) {
      // The node under the pointer, which the tree does not select itself.
      TVHITTESTINFO hit{};
      ::GetCursorPos(&hit.pt);
      const POINT screen = hit.pt;
      ::ScreenToClient(tree_, &hit.pt);
      if (const HTREEITEM item = TreeView_HitTest(tree_, &hit)) {
        TreeView_SelectItem(tree_, item);
        ShowContextMenu(item, screen);
      }
      return TRUE;
    }
    return 0;
  }
  bool HandleKey(const MSG& message) override {
    if (message.hwnd == filter_.edit && (message.wParam == VK_DOWN || message.wParam == VK_RETURN)) {
      ::SetFocus(tree_);
      if (!TreeView_GetSelection(tree_)) TreeView_SelectItem(tree_, TreeView_GetRoot(tree_));
      return true;
    }
    if (message.hwnd != tree_) return false;
    const bool menu_key = message.wParam == VK_APPS ||
                          (message.wParam == VK_F10 && ::GetKeyState(VK_SHIFT) < 0);
    if (menu_key) {
      // Below the selected node, as a menu key opens menus in the IDE.
      if (const HTREEITEM item = TreeView_GetSelection(tree_)) {
        RECT rect{};
        TreeView_GetItemRect(tree_, item, &rect, TRUE);
        POINT screen{rect.left, rect.bottom};
        ::ClientToScreen(tree_, &screen);
        ShowContextMenu(item, screen);
      }
      return true;
    }
    if (message.wParam != VK_RETURN) return false;
    GoToSelected();
    return true;
  }
  HWND FirstChild() const override { return tree_; }
  std::shared_ptr<ide::IUserDocument> Document() const override { return document_; }

  void DocumentChanged() override { Fill(); }

 private:
  void Fill() {
    if (!tree_) return;
    ::SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
    TreeView_DeleteAllItems(tree_);
    std::size_t index = 0;
    for (const toolwindows::Node& node : document_->Tree()) Insert(node, TVI_ROOT, 0, index);
    ::SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(tree_, nullptr, TRUE);
  }

  // Items carry the index of their node's place (document order).
  void Insert(const toolwindows::Node& node, HTREEITEM parent, int depth, std::size_t& index) {
    std::wstring text = Utf8ToWide(node.caption);
    if (node.unreadable) text += L" " + Utf8ToWide(toolwindows::UnreadableMark());
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = text.data();
    insert.item.lParam = static_cast<LPARAM>(index++);
    insert.item.iImage = insert.item.iSelectedImage = TreeImageOf(node);
    const auto item = reinterpret_cast<HTREEITEM>(
        ::SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    for (const toolwindows::Node& child : node.children) Insert(child, item, depth + 1, index);
    // Projects and their folders open, components closed; all open while
    // filtering, to show what matched.
    const bool open = depth < 2 || !document_->Filter().empty();
    if (open && !node.children.empty()) TreeView_Expand(tree_, item, TVE_EXPAND);
  }

  std::size_t PlaceIndex(HTREEITEM item) const {
    TVITEMW data{};
    data.mask = TVIF_PARAM;
    data.hItem = item;
    TreeView_GetItem(tree_, &data);
    return static_cast<std::size_t>(data.lParam);
  }

  // The IDE's context bar runs its entries before ShowPopup returns; an
  // entry may change the tree, so nothing of the item is used afterwards.
  void ShowContextMenu(HTREEITEM item, POINT screen) {
    document_->ShowContextMenu(PlaceIndex(item), int(screen.x), int(screen.y));
  }

  // A member, or a component without members; true when it went there.
  bool GoToSelected() {
    const HTREEITEM item = TreeView_GetSelection(tree_);
    if (!item) return false;
    TVITEMW data{};
    data.mask = TVIF_PARAM | TVIF_CHILDREN;
    data.hItem = item;
    TreeView_GetItem(tree_, &data);
    const auto& places = document_->Places();
    const auto index = static_cast<std::size_t>(data.lParam);
    if (index >= places.size()) return false;
    const addin::MemberPlace& place = places[index];
    if (place.component.empty() || (place.line == 0 && data.cChildren)) return false;
    document_->GoTo(place);
    return true;
  }

  std::shared_ptr<addin::CodeExplorerDocument> document_;
  PaneHost* host_ = nullptr;
  LabelledEdit filter_;  // children of the control's window, destroyed with it
  HWND tree_ = nullptr;
  UniqueImageList images_;
};

}  // namespace

std::unique_ptr<ToolPane> MakeCodeExplorerPane() { return std::make_unique<CodeExplorerPane>(); }

}  // namespace tavrin::win
