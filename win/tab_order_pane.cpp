// The Tab order window: the active form's controls in tab order, and the
// buttons that reorder them and write the order back.
#include <algorithm>
#include <array>
#include <vector>

#include "addin/tool_documents.h"
#include "win/tool_panes.h"

namespace tavrin::win {
namespace {

constexpr int kMargin = 4;
constexpr int kButtonHeight = 24;

struct Button {
  int id;
  int caption;
};
constexpr std::array<Button, 4> kButtons = {
    {{kMoveUpId, 2020}, {kMoveDownId, 2021}, {kByPositionId, 2022}, {kApplyId, 2023}}};

class TabOrderPane final : public ToolPane, public addin::DocumentView {
 public:
  TabOrderPane() : document_(std::make_shared<addin::TabOrderDocument>()) {
    document_->SetView(this);
  }
  ~TabOrderPane() override { document_->SetView(nullptr); }

  void Create(HWND parent, HFONT font, PaneHost& host) override {
    host_ = &host;
    list_ = CreateChild(parent, WC_LISTVIEWW, L"",
                        WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                            LVS_NOSORTHEADER,
                        kTabOrderListId, font, WS_EX_CLIENTEDGE);
    AddListColumns(list_, {{2027, 150}, {2028, 70}});
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
      buttons_[i] = CreateChild(parent, WC_BUTTONW, ResourceText(kButtons[i].caption),
                                WS_TABSTOP | BS_PUSHBUTTON, kButtons[i].id, font);
    }
    DocumentChanged();
  }
  void Destroyed() override {
    list_ = nullptr;
    buttons_.fill(nullptr);
  }
  // The list above two rows of two buttons, so the window fits a narrow dock.
  void Layout(int width, int height) override {
    if (!list_) return;
    const int inner = std::max(0, width - 2 * kMargin);
    const int half = std::max(0, (inner - kMargin) / 2);
    const int buttons_top = std::max(kMargin, height - 2 * (kButtonHeight + kMargin));
    ::MoveWindow(list_, kMargin, kMargin, inner, std::max(0, buttons_top - 2 * kMargin), TRUE);
    FitListColumns(list_, {70, 30});
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
      const int column = static_cast<int>(i % 2), row = static_cast<int>(i / 2);
      ::MoveWindow(buttons_[i], kMargin + column * (half + kMargin),
                   buttons_top + row * (kButtonHeight + kMargin), half, kButtonHeight, TRUE);
    }
  }
  LRESULT Command(WPARAM wparam, LPARAM) override {
    if (HIWORD(wparam) == BN_SETFOCUS) host_->ChildFocused();
    if (HIWORD(wparam) != BN_CLICKED) return 0;
    const std::size_t stop = StopAt(SelectedRow(list_));
    switch (LOWORD(wparam)) {
      case kMoveUpId:
        if (stop != kNone && document_->MoveUp(stop)) SelectRow(list_, RowOf(stop - 1));
        break;
      case kMoveDownId:
        if (stop != kNone && document_->MoveDown(stop)) SelectRow(list_, RowOf(stop + 1));
        break;
      case kByPositionId:
        document_->OrderByPosition();
        break;
      case kApplyId:
        document_->Apply();
        document_->RefreshList(0);
        break;
      default:
        break;
    }
    return 0;
  }
  LRESULT Notify(const NMHDR& header) override {
    if (header.hwndFrom == list_ && header.code == NM_SETFOCUS) host_->ChildFocused();
    return 0;
  }
  bool HandleKey(const MSG& message) override {
    // Enter on a button presses it, as in a dialog.
    if (message.wParam != VK_RETURN) return false;
    for (const HWND button : buttons_) {
      if (message.hwnd == button) {
        ::SendMessageW(button, BM_CLICK, 0, 0);
        return true;
      }
    }
    return false;
  }
  HWND FirstChild() const override { return list_; }
  std::shared_ptr<ide::IUserDocument> Document() const override { return document_; }

  void DocumentChanged() override {
    if (!list_) return;
    const int selected = SelectedRow(list_);
    ::SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list_);
    lines_ = document_->Lines();
    int row = 0;
    // Indented under their containers and tabs, with the index each control
    // will have once applied; a tab's caption line has none.
    for (const toolwindows::TabOrderLine& line : lines_) {
      const std::wstring indent(static_cast<std::size_t>(std::max(line.depth, 0)) * 3, L' ');
      const bool caption = line.stop == toolwindows::TabOrderLine::kCaption;
      SetListRow(list_, row, {indent + Utf8ToWide(caption ? "[" + line.text + "]" : line.text),
                              caption ? std::wstring() : std::to_wstring(line.stop)});
      ++row;
    }
    SelectRow(list_, std::min(selected, row - 1));
    ::SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list_, nullptr, TRUE);
  }

 private:
  static constexpr std::size_t kNone = toolwindows::TabOrderLine::kCaption;
  // The stop a row shows; kNone for a tab's caption or no row.
  std::size_t StopAt(int row) const {
    if (row < 0 || static_cast<std::size_t>(row) >= lines_.size()) return kNone;
    return lines_[static_cast<std::size_t>(row)].stop;
  }
  int RowOf(std::size_t stop) const {
    for (std::size_t row = 0; row < lines_.size(); ++row)
      if (lines_[row].stop == stop) return static_cast<int>(row);
    return -1;
  }

  std::shared_ptr<addin::TabOrderDocument> document_;
  std::vector<toolwindows::TabOrderLine> lines_;  // as the list shows them
  PaneHost* host_ = nullptr;
  HWND list_ = nullptr;  // children of the control's window, destroyed with it
  std::array<HWND, kButtons.size()> buttons_{};
};

}  // namespace

std::unique_ptr<ToolPane> MakeTabOrderPane() { return std::make_unique<TabOrderPane>(); }

}  // namespace tavrin::win
