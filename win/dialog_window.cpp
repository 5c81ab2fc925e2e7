#include "win/dialog_window.h"

#include <commctrl.h>
#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <cwchar>
#include <memory>

#include "platform/ui.h"
#include "win/calling_convention.h"
#include "win/dialog_template.h"
#include "win/windows_dialog_host.h"

namespace tavrin::win {
namespace {

using builders::Field;
using builders::FieldKind;

// Each field owns four ids from kFirstFieldId + 4 * its index: the control,
// its caption, its "..." button, and its group box when it opens one.
constexpr int kFirstFieldId = 1000;
constexpr int kTabsId = 999;
enum Part { kControl, kLabel, kBrowseButton, kGroupBox };

WORD FieldId(std::size_t index, Part part) {
  return static_cast<WORD>(kFirstFieldId + 4 * index + part);
}

std::wstring WindowText(HWND window) {
  const int length = ::GetWindowTextLengthW(window);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(std::max(0, ::GetWindowTextW(window, text.data(), length + 1))));
  return text;
}

// Sets a window's text only when it differs: an edit box keeps its caret
// while the user types, and no change is notified twice.
void SetText(HWND window, const std::string& text) {
  const std::wstring wide = Utf8ToWide(text);
  if (window && WindowText(window) != wide) ::SetWindowTextW(window, wide.c_str());
}

// The edit control breaks lines at CR LF only.
std::string WithCrLf(const std::string& text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) lines += '\r';
    lines += text[i];
  }
  return lines;
}

struct Control {
  WORD window_class;
  DWORD style;
};

Control ControlOf(const Field& field) {
  constexpr DWORD kFocusable = WS_TABSTOP | WS_GROUP;
  switch (field.kind) {
    case FieldKind::kLabel:
      return {kStaticClass, static_cast<DWORD>(SS_LEFT | (field.text.empty() ? 0 : SS_NOPREFIX))};
    // No tab stop: the prose is read, not selected; it opens at its top.
    case FieldKind::kNote: return {kEditClass, ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL};
    case FieldKind::kNumber:
      return {kEditClass, ES_AUTOHSCROLL | ES_NUMBER | WS_BORDER | kFocusable};
    case FieldKind::kCheck: return {kButtonClass, BS_AUTOCHECKBOX | kFocusable};
    case FieldKind::kChoice: return {kComboBoxClass, CBS_DROPDOWNLIST | WS_VSCROLL | kFocusable};
    case FieldKind::kCombo:
      return {kComboBoxClass, CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | kFocusable};
    case FieldKind::kList:
      return {kListBoxClass,
              LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_BORDER | kFocusable};
    case FieldKind::kButton: return {kButtonClass, BS_PUSHBUTTON | kFocusable};
    case FieldKind::kPreview:
      return {kEditClass, ES_MULTILINE | ES_READONLY | ES_AUTOHSCROLL | ES_AUTOVSCROLL |
                              WS_VSCROLL | WS_HSCROLL | WS_BORDER | kFocusable};
    case FieldKind::kText:
      // A text of several rows takes one entry a line; Enter starts the next.
      if (field.rows > 1)
        return {kEditClass, ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL |
                                WS_BORDER | kFocusable};
      return {kEditClass, ES_AUTOHSCROLL | WS_BORDER | kFocusable};
    default:  // file, folder
      return {kEditClass, ES_AUTOHSCROLL | WS_BORDER | kFocusable};
  }
}

// A combo box's height includes its drop-down list.
int DropDown(const Field& field) {
  return field.kind == FieldKind::kChoice || field.kind == FieldKind::kCombo ? 100 : 0;
}

// Dialog units fit in the template's 16-bit fields.
short Unit(int value) { return static_cast<short>(std::clamp(value, -32768, 32767)); }

struct PidlDeleter {
  void operator()(ITEMIDLIST* list) const { ::CoTaskMemFree(list); }
};

constexpr wchar_t kSteeredList[] = L"Tavrin.SteeredList";
constexpr wchar_t kEditProcedure[] = L"Tavrin.EditProcedure";

// The arrow and page keys in a text box move the selection of the list
// below it, so the user of a filtered list types and picks without
// leaving the text box.
LRESULT CALLBACK SteeringEditProc(HWND edit, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
  const auto previous = reinterpret_cast<WNDPROC>(::GetPropW(edit, kEditProcedure));
  const auto list = static_cast<HWND>(::GetPropW(edit, kSteeredList));
  if (message == WM_KEYDOWN && list &&
      (wparam == VK_UP || wparam == VK_DOWN || wparam == VK_PRIOR || wparam == VK_NEXT)) {
    ::SendMessageW(list, WM_KEYDOWN, wparam, lparam);
    return 0;
  }
  if (message == WM_NCDESTROY) {
    ::SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
    ::RemovePropW(edit, kSteeredList);
    ::RemovePropW(edit, kEditProcedure);
  }
  return ::CallWindowProcW(previous, edit, message, wparam, lparam);
}
static_assert(kIsWindowProcedure<&SteeringEditProc>);

void SteerListFrom(HWND edit, HWND list) {
  if (!edit || !list || ::GetPropW(edit, kEditProcedure)) return;
  ::SetPropW(edit, kSteeredList, list);
  ::SetPropW(edit, kEditProcedure,
             reinterpret_cast<HANDLE>(::GetWindowLongPtrW(edit, GWLP_WNDPROC)));
  ::SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SteeringEditProc));
}

}  // namespace

DialogWindow::DialogWindow(builders::DialogModel& model, WindowsDialogHost& host,
                           LayoutPass lay_out)
    : model_(model),
      host_(host),
      lay_out_(std::move(lay_out)),
      layout_(lay_out_(model.Fields())),
      laid_out_(LayoutKey()),
      title_(Utf8ToWide(model.Title())),
      shown_items_(model.Fields().size()) {}

std::vector<DWORD> DialogWindow::Template() const {
  const std::vector<Field>& fields = model_.Fields();
  DialogTemplate dialog(title_, WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME,
                        Unit(layout_.width), Unit(layout_.height));
  const auto add = [&](WORD window_class, const std::string& text, DWORD style, const Box& box,
                       WORD id, int extra_height = 0) {
    dialog.AddControl(window_class, Utf8ToWide(text), style | WS_VISIBLE, Unit(box.x), Unit(box.y),
                      Unit(box.width), Unit(box.height + extra_height), id);
  };
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const Field& field = fields[i];
    const FieldPlace& place = layout_.fields[i];
    if (!layout_.pages.empty() && i == layout_.first_paged_field) {
      const Box& tabs = layout_.tabs;
      dialog.AddControl(WC_TABCONTROLW, L"", WS_VISIBLE | WS_TABSTOP | WS_GROUP | WS_CLIPSIBLINGS,
                        Unit(tabs.x), Unit(tabs.y), Unit(tabs.width), Unit(tabs.height), kTabsId);
    }
    // Every field of a group may open its box: the first one shown does.
    if (!field.group.empty())
      add(kButtonClass, field.group, BS_GROUPBOX | WS_CLIPSIBLINGS, GroupBoxOf(i),
          FieldId(i, kGroupBox));
    // Captions come and go with the model, so every field that may have one
    // gets its label window.
    if (!place.label.empty() || HasSideLabel(field))
      add(kStaticClass, field.caption, SS_LEFT, place.label, FieldId(i, kLabel));
    const Control control = ControlOf(field);
    const std::string text = field.kind == FieldKind::kCheck || field.kind == FieldKind::kButton
                                 ? field.caption
                             : field.kind == FieldKind::kLabel ? LabelText(field)
                                                               : "";
    add(control.window_class, text, control.style, place.control, FieldId(i, kControl),
        DropDown(field));
    if (!place.browse.empty())
      add(kButtonClass, "...", BS_PUSHBUTTON | WS_TABSTOP, place.browse, FieldId(i, kBrowseButton));
  }
  add(kButtonClass, "OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, layout_.ok, IDOK);
  if (!layout_.cancel.empty())
    add(kButtonClass, "Cancel", BS_PUSHBUTTON | WS_TABSTOP, layout_.cancel, IDCANCEL);
  if (!layout_.help.empty())
    add(kButtonClass, "&Help", BS_PUSHBUTTON | WS_TABSTOP, layout_.help, IDHELP);
  return dialog.Build();
}

bool DialogWindow::Run(HWND owner) {
  static_assert(kIsDialogProcedure<&DialogWindow::Procedure>);
  const std::vector<DWORD> storage = Template();
  const INT_PTR result =
      ::DialogBoxIndirectParamW(ThisModule(), reinterpret_cast<const DLGTEMPLATE*>(storage.data()),
                                owner, &Procedure, reinterpret_cast<LPARAM>(this));
  return result == IDOK;
}

INT_PTR CALLBACK DialogWindow::Procedure(HWND dialog, UINT message, WPARAM wparam,
                                         LPARAM lparam) noexcept {
  if (message == WM_INITDIALOG) ::SetWindowLongPtrW(dialog, DWLP_USER, lparam);
  auto* window = reinterpret_cast<DialogWindow*>(::GetWindowLongPtrW(dialog, DWLP_USER));
  if (!window) return FALSE;
  if (message == WM_INITDIALOG) window->dialog_ = dialog;
  // Nothing may reach the system: a failure ends the dialog as cancelled,
  // and the user is told.
  try {
    return window->Handle(message, wparam, lparam);
  } catch (const std::exception& error) {
    ::MessageBoxW(dialog, Utf8ToWide(error.what()).c_str(), Utf8ToWide(platform::kAppTitle).c_str(),
                  MB_OK | MB_ICONERROR);
  } catch (...) {
  }
  ::EndDialog(dialog, IDCANCEL);
  return TRUE;
}

INT_PTR DialogWindow::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_INITDIALOG: Initialize(); return TRUE;  // the focus goes to the first control
    case WM_COMMAND:
      if (!refreshing_) Command(LOWORD(wparam), HIWORD(wparam));
      return TRUE;
    case WM_HELP:  // F1 anywhere in the dialog, as the Help button
      Command(IDHELP, BN_CLICKED);
      return TRUE;
    case WM_NOTIFY: {
      const auto* header = reinterpret_cast<const NMHDR*>(lparam);
      if (header->idFrom == kTabsId && header->code == TCN_SELCHANGE)
        ShowPage(static_cast<int>(::SendMessageW(header->hwndFrom, TCM_GETCURSEL, 0, 0)));
      return TRUE;
    }
    case WM_DESTROY:
      if (!host_.open_.empty() && host_.open_.back() == dialog_) host_.open_.pop_back();
      return FALSE;
  }
  return FALSE;
}

void DialogWindow::Initialize() {
  host_.open_.push_back(dialog_);
  // The preview's fixed-width font, as high as the dialog's own.
  LOGFONTW font{};
  const auto dialog_font = reinterpret_cast<HFONT>(::SendMessageW(dialog_, WM_GETFONT, 0, 0));
  if (dialog_font) ::GetObjectW(dialog_font, sizeof font, &font);
  LOGFONTW fixed{};
  fixed.lfHeight = font.lfHeight ? font.lfHeight : -11;
  fixed.lfCharSet = DEFAULT_CHARSET;
  fixed.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  ::wcscpy(fixed.lfFaceName, L"Courier New");
  fixed_font_.reset(::CreateFontIndirectW(&fixed));
  const std::vector<Field>& fields = Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const HWND control = ::GetDlgItem(dialog_, FieldId(i, kControl));
    if (fields[i].kind == FieldKind::kPreview)
      ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(fixed_font_.get()), FALSE);
    // A note's text lines up with the labels around it.
    if (fields[i].kind == FieldKind::kNote)
      ::SendMessageW(control, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
  }
  if (const HWND tabs = ::GetDlgItem(dialog_, kTabsId)) {
    for (std::size_t p = 0; p < layout_.pages.size(); ++p) {
      std::wstring caption = Utf8ToWide(layout_.pages[p]);
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = caption.data();
      ::SendMessageW(tabs, TCM_INSERTITEMW, p, reinterpret_cast<LPARAM>(&item));
    }
    // Below every page's controls in Z order: a group box, which clips its
    // siblings above it, would otherwise not draw at all over the tabs.
    ::SetWindowPos(tabs, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  for (std::size_t i = 0; i + 1 < fields.size(); ++i)
    if (fields[i].kind == FieldKind::kText && fields[i + 1].kind == FieldKind::kList)
      SteerListFrom(::GetDlgItem(dialog_, FieldId(i, kControl)),
                    ::GetDlgItem(dialog_, FieldId(i + 1, kControl)));
  Refresh();
  PlaceWindow();
}

// The place the dialog had when last closed, while it is still on a screen;
// otherwise centred on its owner.
void DialogWindow::PlaceWindow() {
  RECT rect{};
  ::GetWindowRect(dialog_, &rect);
  const int width = rect.right - rect.left;
  const int height = rect.bottom - rect.top;
  if (host_.store_) {
    const std::string section = DialogSettingsSection(model_.Title());
    const std::string left = host_.store_->GetSetting(platform::kAppTitle, section, "Left", "");
    const std::string top = host_.store_->GetSetting(platform::kAppTitle, section, "Top", "");
    try {
      if (!left.empty() && !top.empty()) {
        const RECT saved{std::stoi(left), std::stoi(top), std::stoi(left) + width,
                         std::stoi(top) + height};
        if (::MonitorFromRect(&saved, MONITOR_DEFAULTTONULL)) {
          ::SetWindowPos(dialog_, nullptr, saved.left, saved.top, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
          return;
        }
      }
    } catch (const std::exception&) {
      // Not a number: centred as if never kept.
    }
  }
  RECT around{};
  const HWND owner = ::GetWindow(dialog_, GW_OWNER);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromWindow(owner ? owner : dialog_, MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
  if (!owner || !::GetWindowRect(owner, &around) || ::IsIconic(owner)) around = monitor.rcWork;
  const RECT& work = monitor.rcWork;
  const int x = std::clamp<int>((around.left + around.right - width) / 2, work.left,
                                std::max<int>(work.left, work.right - width));
  const int y = std::clamp<int>((around.top + around.bottom - height) / 2, work.top,
                                std::max<int>(work.top, work.bottom - height));
  ::SetWindowPos(dialog_, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogWindow::Command(int id, int code) {
  if (id == IDOK) return Ok();
  if (id == IDCANCEL) return Close(IDCANCEL);
  if (id == IDHELP) {
    if (host_.help_) host_.help_(model_.HelpTopic());
    return;
  }
  if (id < kFirstFieldId) return;
  const std::size_t index = static_cast<std::size_t>(id - kFirstFieldId) / 4;
  if (index >= Fields().size()) return;
  FieldCommand(index, (id - kFirstFieldId) % 4, code);
}

void DialogWindow::FieldCommand(std::size_t index, int part, int code) {
  const HWND control = ::GetDlgItem(dialog_, FieldId(index, kControl));
  Field& field = Fields()[index];
  const std::string id = field.id;
  if (part == kBrowseButton) {
    if (code == BN_CLICKED) Browse(index);
    return;
  }
  if (part != kControl) return;
  bool changed = false;
  switch (field.kind) {
    case FieldKind::kText:
    case FieldKind::kNumber:
    case FieldKind::kFile:
    case FieldKind::kFolder:
      if (code == EN_CHANGE) {
        const std::string text = WideToUtf8(WindowText(control));
        changed = text != field.text;
        field.text = text;
      }
      break;
    case FieldKind::kCheck:
      if (code == BN_CLICKED) {
        field.checked = ::SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
        changed = true;
      }
      break;
    case FieldKind::kButton:
      if (code == BN_CLICKED) {
        model_.Pressed(id, host_);
        Refresh();
      }
      return;
    case FieldKind::kChoice:
    case FieldKind::kCombo:
      if (code == CBN_SELCHANGE) {
        const int selected = static_cast<int>(::SendMessageW(control, CB_GETCURSEL, 0, 0));
        changed = selected != field.selected;
        field.selected = selected;
        if (selected >= 0 && selected < static_cast<int>(field.items.size()))
          field.text = field.items[static_cast<std::size_t>(selected)];
      } else if (code == CBN_EDITCHANGE) {
        const std::string text = WideToUtf8(WindowText(control));
        changed = text != field.text;
        field.text = text;
        const auto found = std::find(field.items.begin(), field.items.end(), field.text);
        field.selected =
            found == field.items.end() ? -1 : static_cast<int>(found - field.items.begin());
      }
      break;
    case FieldKind::kList:
      if (code == LBN_SELCHANGE) {
        const int selected = static_cast<int>(::SendMessageW(control, LB_GETCURSEL, 0, 0));
        changed = selected != field.selected;
        field.selected = selected;
      } else if (code == LBN_DBLCLK) {
        return Ok();
      }
      break;
    default: break;
  }
  if (!changed) return;
  model_.Changed(id);
  Refresh();
}

void DialogWindow::Ok() {
  if (const auto refusal = model_.Accept()) {
    ::MessageBoxW(dialog_, Utf8ToWide(refusal->message).c_str(),
                  Utf8ToWide(platform::kAppTitle).c_str(), MB_OK | MB_ICONEXCLAMATION);
    const std::vector<Field>& fields = Fields();
    const auto field = std::find_if(fields.begin(), fields.end(),
                                    [&](const Field& f) { return f.id == refusal->field; });
    if (field == fields.end()) return;
    const auto page = std::find(layout_.pages.begin(), layout_.pages.end(), field->page);
    if (page != layout_.pages.end() && page - layout_.pages.begin() != page_) {
      const int wanted = static_cast<int>(page - layout_.pages.begin());
      ::SendMessageW(::GetDlgItem(dialog_, kTabsId), TCM_SETCURSEL, wanted, 0);
      ShowPage(wanted);
    }
    const HWND control =
        ::GetDlgItem(dialog_, FieldId(static_cast<std::size_t>(field - fields.begin()), kControl));
    ::SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    return;
  }
  host_.Remember(model_);
  Close(IDOK);
}

void DialogWindow::Close(int result) {
  RECT rect{};
  if (host_.store_ && ::GetWindowRect(dialog_, &rect)) {
    const std::string section = DialogSettingsSection(model_.Title());
    host_.store_->SaveSetting(platform::kAppTitle, section, "Left", std::to_string(rect.left));
    host_.store_->SaveSetting(platform::kAppTitle, section, "Top", std::to_string(rect.top));
  }
  ::EndDialog(dialog_, result);
}

void DialogWindow::Browse(std::size_t index) {
  Field& field = Fields()[index];
  std::wstring path = Utf8ToWide(field.text);
  const std::wstring caption = Utf8ToWide(WithoutAccessMark(field.caption));
  if (field.kind == FieldKind::kFile) {
    path.resize(std::max<std::size_t>(path.size() + 1, 4 * MAX_PATH), L'\0');
    OPENFILENAMEW open{};
    open.lStructSize = sizeof open;
    open.hwndOwner = dialog_;
    open.lpstrFilter = L"All Files\0*.*\0";
    open.lpstrFile = path.data();
    open.nMaxFile = static_cast<DWORD>(path.size());
    open.lpstrTitle = caption.c_str();
    // Writing: the command asks before it replaces a file.
    open.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR |
                 (field.save ? OFN_PATHMUSTEXIST : OFN_FILEMUSTEXIST);
    if (!(field.save ? ::GetSaveFileNameW(&open) : ::GetOpenFileNameW(&open))) return;
    path.resize(::wcslen(path.c_str()));
  } else {
    BROWSEINFOW browse{};
    browse.hwndOwner = dialog_;
    browse.lpszTitle = caption.c_str();
    browse.ulFlags = BIF_RETURNONLYFSDIRS;
    const std::unique_ptr<ITEMIDLIST, PidlDeleter> folder(::SHBrowseForFolderW(&browse));
    wchar_t chosen[MAX_PATH] = L"";
    if (!folder || !::SHGetPathFromIDListW(folder.get(), chosen)) return;
    path = chosen;
  }
  field.text = WideToUtf8(path);
  model_.Changed(Fields()[index].id);
  Refresh();
}

void DialogWindow::ShowPage(int page) {
  page_ = page;
  Refresh();
}

void DialogWindow::RefreshItems(std::size_t index, HWND control) {
  const Field& field = Fields()[index];
  const bool list = field.kind == FieldKind::kList;
  const bool reset = shown_items_[index] != field.items;
  if (reset) {
    ::SendMessageW(control, list ? LB_RESETCONTENT : CB_RESETCONTENT, 0, 0);
    for (const std::string& item : field.items)
      ::SendMessageW(control, list ? LB_ADDSTRING : CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(Utf8ToWide(item).c_str()));
    shown_items_[index] = field.items;
  }
  const int selected = field.selected < static_cast<int>(field.items.size()) ? field.selected : -1;
  // A combo box that shows the field's text is left alone: selecting the
  // item the user is typing would select the whole text under the caret.
  if (field.kind == FieldKind::kCombo && !reset && WindowText(control) == Utf8ToWide(field.text))
    return;
  if (reset || ::SendMessageW(control, list ? LB_GETCURSEL : CB_GETCURSEL, 0, 0) != selected)
    ::SendMessageW(control, list ? LB_SETCURSEL : CB_SETCURSEL, selected, 0);
  if (field.kind == FieldKind::kCombo && selected < 0) SetText(control, field.text);
}

// What the layout depends on beyond the fields' kinds: which fields show,
// the captions in the label column and the texts of the labels that wrap.
std::string DialogWindow::LayoutKey() {
  std::string key;
  for (const Field& field : Fields()) {
    key += field.visible ? '+' : '-';
    if (HasSideLabel(field)) key += field.caption + '\n';
    if (field.kind == FieldKind::kLabel && !HasSideLabel(field)) key += LabelText(field) + '\n';
  }
  return key;
}

Box DialogWindow::GroupBoxOf(std::size_t index) const {
  for (const GroupPlace& group : layout_.groups)
    if (group.first_field == index) return group.box;
  return {};
}

// Lays the fields out again, as a field shows or hides or a caption
// changes, and moves every window to its new place.
void DialogWindow::LayOut() {
  laid_out_ = LayoutKey();
  layout_ = lay_out_(Fields());
  const auto move = [&](int id, const Box& box, int extra_height = 0) {
    const HWND window = ::GetDlgItem(dialog_, id);
    if (!window) return;
    RECT rect{box.x, box.y, box.x + box.width, box.y + box.height + extra_height};
    ::MapDialogRect(dialog_, &rect);
    ::SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left,
                   rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
  };
  const std::vector<Field>& fields = Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const FieldPlace& place = layout_.fields[i];
    move(FieldId(i, kControl), place.control, DropDown(fields[i]));
    move(FieldId(i, kLabel), place.label);
    move(FieldId(i, kBrowseButton), place.browse);
    move(FieldId(i, kGroupBox), GroupBoxOf(i));
  }
  move(kTabsId, layout_.tabs);
  move(IDOK, layout_.ok);
  move(IDCANCEL, layout_.cancel);
  move(IDHELP, layout_.help);
  RECT size{0, 0, layout_.width, layout_.height};
  ::MapDialogRect(dialog_, &size);
  ::AdjustWindowRectEx(&size, static_cast<DWORD>(::GetWindowLongPtrW(dialog_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(::GetWindowLongPtrW(dialog_, GWL_EXSTYLE)));
  ::SetWindowPos(dialog_, nullptr, 0, 0, size.right - size.left, size.bottom - size.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  ::InvalidateRect(dialog_, nullptr, TRUE);
}

// Shows every field as the model has it. Runs after each change; the
// notifications the updates raise are not taken for the user's.
void DialogWindow::Refresh() {
  refreshing_ = true;
  if (LayoutKey() != laid_out_) LayOut();
  const std::vector<Field>& fields = Fields();
  const std::string current_page =
      layout_.pages.empty() ? "" : layout_.pages[static_cast<std::size_t>(page_)];
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const Field& field = fields[i];
    const HWND control = ::GetDlgItem(dialog_, FieldId(i, kControl));
    switch (field.kind) {
      case FieldKind::kLabel: SetText(control, LabelText(field)); break;
      case FieldKind::kNote: SetText(control, WithCrLf(field.text)); break;
      case FieldKind::kCheck:
        SetText(control, field.caption);
        ::SendMessageW(control, BM_SETCHECK, field.checked ? BST_CHECKED : BST_UNCHECKED, 0);
        break;
      case FieldKind::kButton: SetText(control, field.caption); break;
      case FieldKind::kChoice:
      case FieldKind::kCombo:
      case FieldKind::kList: RefreshItems(i, control); break;
      case FieldKind::kPreview: SetText(control, WithCrLf(field.text)); break;
      default: SetText(control, field.text); break;
    }
    if (HasSideLabel(field)) SetText(::GetDlgItem(dialog_, FieldId(i, kLabel)), field.caption);
    const bool shown = field.visible && (field.page.empty() || field.page == current_page);
    for (Part part : {kControl, kLabel, kBrowseButton, kGroupBox}) {
      const HWND window = ::GetDlgItem(dialog_, FieldId(i, part));
      if (!window) continue;
      // A group box shows with its first field's page.
      const bool show = part == kGroupBox ? !GroupBoxOf(i).empty() &&
                                                (field.page.empty() || field.page == current_page)
                                          : shown;
      ::ShowWindow(window, show ? SW_SHOWNA : SW_HIDE);
      if (part != kGroupBox) ::EnableWindow(window, field.enabled);
    }
  }
  refreshing_ = false;
}

}  // namespace tavrin::win
