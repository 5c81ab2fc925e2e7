// The Shortcuts and Search window: a search box and the ranked results,
// updated as the user types, and below them a button for each builder.
// Enter (in the box or the list) or a double-click goes to the chosen name;
// Down moves from the box to the list.
#include <algorithm>
#include <array>

#include "addin/tool_documents.h"
#include "win/tool_panes.h"

namespace tavrin::win {
namespace {

constexpr int kMargin = 4;
constexpr int kButtonHeight = 24;
constexpr std::size_t kShortcuts = std::size(addin::kShortcutCaptionIds);

std::wstring KindText(toolwindows::NodeKind kind) {
  switch (kind) {
    case toolwindows::NodeKind::kProcedure: return L"Sub";
    case toolwindows::NodeKind::kFunction: return L"Function";
    case toolwindows::NodeKind::kProperty: return L"Property";
    case toolwindows::NodeKind::kEnum: return L"Enum";
    case toolwindows::NodeKind::kEnumMember: return L"Enum member";
    case toolwindows::NodeKind::kType: return L"Type";
    case toolwindows::NodeKind::kConstant: return L"Const";
    case toolwindows::NodeKind::kVariable: return L"Variable";
    case toolwindows::NodeKind::kDeclare: return L"Declare";
    default: return ResourceText(2026);  // "Module"
  }
}

class SearchPane final : public ToolPane, public addin::DocumentView {
 public:
  SearchPane() : document_(std::make_shared<addin::SearchDocument>()) {
    document_->SetView(this);
  }
  ~SearchPane() override { document_->SetView(nullptr); }

  void Create(HWND parent, HFONT font, PaneHost& host) override {
    host_ = &host;
    search_.Create(parent, 2029, kSearchEditId, font);
    edit_ = search_.edit;
    list_ = CreateChild(parent, WC_LISTVIEWW, L"",
                        WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                            LVS_NOSORTHEADER,
                        kSearchListId, font, WS_EX_CLIENTEDGE);
    AddListColumns(list_, {{2024, 160}, {2025, 70}, {2026, 110}});
    for (std::size_t i = 0; i < kShortcuts; ++i) {
      buttons_[i] = CreateChild(parent, WC_BUTTONW, ResourceText(addin::kShortcutCaptionIds[i]),
                                WS_TABSTOP | BS_PUSHBUTTON, kShortcutFirstId + static_cast<int>(i),
                                font);
    }
  }
  void Destroyed() override {
    edit_ = list_ = nullptr;
    search_ = {};
    buttons_.fill(nullptr);
  }
  void Layout(int width, int height) override {
    if (!edit_) return;
    const int inner = std::max(0, width - 2 * kMargin);
    search_.Layout(kMargin, kMargin, inner);
    const int top = 2 * kMargin + search_.height;
    // The builders' buttons two by two at the bottom.
    const int rows = static_cast<int>((kShortcuts + 1) / 2);
    const int buttons_top = std::max(top, height - rows * (kButtonHeight + kMargin));
    const int half = std::max(0, (inner - kMargin) / 2);
    for (std::size_t i = 0; i < kShortcuts; ++i) {
      const int column = static_cast<int>(i % 2), row = static_cast<int>(i / 2);
      ::MoveWindow(buttons_[i], kMargin + column * (half + kMargin),
                   buttons_top + row * (kButtonHeight + kMargin), half, kButtonHeight, TRUE);
    }
    ::MoveWindow(list_, kMargin, top, inner, std::max(0, buttons_top - top - kMargin), TRUE);
    FitListColumns(list_, {46, 24, 30});
  }
  LRESULT Command(WPARAM wparam, LPARAM lparam) override {
    const int id = LOWORD(wparam);
    if (HIWORD(wparam) == BN_CLICKED && id >= kShortcutFirstId &&
        id < kShortcutFirstId + static_cast<int>(kShortcuts)) {
      document_->RunShortcut(addin::kShortcutCaptionIds[id - kShortcutFirstId]);
      return 0;
    }
    if (HIWORD(wparam) == BN_SETFOCUS) host_->ChildFocused();
    if (reinterpret_cast<HWND>(lparam) != edit_) return 0;
    if (HIWORD(wparam) == EN_SETFOCUS) {
      host_->ChildFocused();
      // The projects may have changed since the last search.
      document_->Rebuild();
      document_->Search(WideToUtf8(WindowText(edit_)));
    }
    if (HIWORD(wparam) == EN_CHANGE) document_->Search(WideToUtf8(WindowText(edit_)));
    return 0;
  }
  LRESULT Notify(const NMHDR& header) override {
    if (header.hwndFrom != list_) return 0;
    if (header.code == NM_SETFOCUS) host_->ChildFocused();
    if (header.code == NM_DBLCLK) GoTo(SelectedRow(list_));
    return 0;
  }
  bool HandleKey(const MSG& message) override {
    // Enter on a button presses it, as in a dialog.
    for (const HWND button : buttons_) {
      if (message.wParam == VK_RETURN && message.hwnd == button) {
        ::SendMessageW(button, BM_CLICK, 0, 0);
        return true;
      }
    }
    if (message.wParam == VK_RETURN && (message.hwnd == edit_ || message.hwnd == list_)) {
      GoTo(std::max(0, SelectedRow(list_)));
      return true;
    }
    if (message.wParam == VK_DOWN && message.hwnd == edit_ && !document_->Results().empty()) {
      ::SetFocus(list_);
      SelectRow(list_, std::max(0, SelectedRow(list_)));
      return true;
    }
    return false;
  }
  HWND FirstChild() const override { return edit_; }
  std::shared_ptr<ide::IUserDocument> Document() const override { return document_; }

  void DocumentChanged() override {
    if (!list_) return;
    ::SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list_);
    int row = 0;
    for (const toolwindows::SearchResult& result : document_->Results()) {
      const toolwindows::SearchEntry& entry = *result.entry;
      SetListRow(list_, row++, {Utf8ToWide(entry.name), KindText(entry.kind),
                                Utf8ToWide(entry.component)});
    }
    SelectRow(list_, row > 0 ? 0 : -1);
    ::SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list_, nullptr, TRUE);
  }

 private:
  // Inserts a name at the caret or goes to the declaration (Choose).
  void GoTo(int row) {
    if (row >= 0) document_->Choose(static_cast<std::size_t>(row));
  }

  std::shared_ptr<addin::SearchDocument> document_;
  PaneHost* host_ = nullptr;
  LabelledEdit search_;  // children of the control's window, destroyed with it
  HWND edit_ = nullptr;  // search_.edit
  HWND list_ = nullptr;
  std::array<HWND, kShortcuts> buttons_{};
};

}  // namespace

std::unique_ptr<ToolPane> MakeSearchPane() { return std::make_unique<SearchPane>(); }

}  // namespace tavrin::win
