#include "win/tool_panes.h"

#include "resources/string_table.h"

namespace tavrin::win {

std::wstring ResourceText(int id) { return Utf8ToWide(resources::LoadResString(id)); }

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

int LineHeight(HWND window, HFONT font) {
  TEXTMETRICW metrics{};
  const HDC dc = ::GetDC(window);
  const HGDIOBJ old = ::SelectObject(dc, font);
  ::GetTextMetricsW(dc, &metrics);
  ::SelectObject(dc, old);
  ::ReleaseDC(window, dc);
  return metrics.tmHeight;
}

HWND CreateChild(HWND parent, const wchar_t* window_class, const std::wstring& text,
                 DWORD style, int id, HFONT font, DWORD extended_style) {
  const HWND child = ::CreateWindowExW(
      extended_style, window_class, text.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
      parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ThisModule(), nullptr);
  if (!child) throw ide::Error(5, "Cannot create a control: " + ErrorText(::GetLastError()));
  if (font) ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  return child;
}

void LabelledEdit::Create(HWND parent, int caption_id, int edit_id, HFONT font) {
  const std::wstring caption = ResourceText(caption_id);
  label = CreateChild(parent, WC_STATICW, caption, SS_LEFT | SS_CENTERIMAGE, -1, font);
  edit = CreateChild(parent, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, edit_id, font,
                     WS_EX_CLIENTEDGE);
  const HDC dc = ::GetDC(label);
  const HGDIOBJ old = ::SelectObject(dc, font);
  SIZE extent{};
  ::GetTextExtentPoint32W(dc, caption.c_str(), static_cast<int>(caption.size()), &extent);
  ::SelectObject(dc, old);
  ::ReleaseDC(label, dc);
  label_width = extent.cx + 6;
  height = LineHeight(edit, font) + 8;
}

void LabelledEdit::Layout(int left, int top, int width) const {
  ::MoveWindow(label, left, top, label_width, height, TRUE);
  const int edit_width = width - label_width;
  ::MoveWindow(edit, left + label_width, top, edit_width > 0 ? edit_width : 0, height, TRUE);
}

void AddListColumns(HWND list, std::initializer_list<std::pair<int, int>> caption_and_width) {
  ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
  int index = 0;
  for (const auto& [caption, width] : caption_and_width) {
    std::wstring text = ResourceText(caption);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = text.data();
    column.cx = width;
    ::SendMessageW(list, LVM_INSERTCOLUMNW, index++, reinterpret_cast<LPARAM>(&column));
  }
}

void FitListColumns(HWND list, std::initializer_list<int> percents) {
  RECT client{};
  ::GetClientRect(list, &client);
  // Room for a vertical scroll bar, which comes and goes with the rows.
  const int width = client.right - ::GetSystemMetrics(SM_CXVSCROLL);
  int column = 0;
  for (const int percent : percents)
    ListView_SetColumnWidth(list, column++, width > 0 ? width * percent / 100 : 0);
}

void SetListRow(HWND list, int row, std::initializer_list<std::wstring> texts) {
  int column = 0;
  for (const std::wstring& text : texts) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text.c_str());
    ::SendMessageW(list, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMTEXTW,
                   column == 0 ? 0 : row, reinterpret_cast<LPARAM>(&item));
    ++column;
  }
}

int SelectedRow(HWND list) {
  return static_cast<int>(::SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1),
                                         LVNI_SELECTED));
}

void SelectRow(HWND list, int row) {
  if (row < 0) return;
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list, row, FALSE);
}

}  // namespace tavrin::win
