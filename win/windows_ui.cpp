#include "win/windows_ui.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "win/calling_convention.h"

namespace tavrin::win {
namespace {

UINT ButtonsStyle(platform::Buttons buttons) {
  switch (buttons) {
    case platform::Buttons::kOk: return MB_OK;
    case platform::Buttons::kOkCancel: return MB_OKCANCEL;
    case platform::Buttons::kYesNo: return MB_YESNO;
    case platform::Buttons::kYesNoCancel: return MB_YESNOCANCEL;
  }
  return MB_OK;
}

UINT IconStyle(platform::Icon icon) {
  switch (icon) {
    case platform::Icon::kNone: return 0;
    case platform::Icon::kInformation: return MB_ICONINFORMATION;
    case platform::Icon::kExclamation: return MB_ICONEXCLAMATION;
    case platform::Icon::kCritical: return MB_ICONERROR;
    case platform::Icon::kQuestion: return MB_ICONQUESTION;
  }
  return 0;
}

std::wstring TitleOrAppName(std::string_view title) {
  return Utf8ToWide(title.empty() ? platform::kAppTitle : title);
}

// An in-memory dialog template: DLGTEMPLATE, then one DLGITEMTEMPLATE per
// control, each aligned to a DWORD, strings as null-terminated UTF-16.
class DialogTemplate {
 public:
  DialogTemplate(const std::wstring& title, DWORD style, short width, short height) {
    AlignToDword();
    DLGTEMPLATE header{};
    header.style = style | DS_SETFONT;
    header.cx = width;
    header.cy = height;
    count_offset_ = words_.size() * sizeof(WORD) + offsetof(DLGTEMPLATE, cdit);
    Append(&header, sizeof header);
    AppendWord(0);  // no menu
    AppendWord(0);  // the standard dialog class
    AppendString(title);
    AppendWord(8);  // font size in points
    AppendString(L"MS Shell Dlg");
  }

  // `window_class` is one of the predefined atoms (0x0080 button, 0x0081
  // edit, 0x0082 static).
  void AddControl(WORD window_class, const std::wstring& text, DWORD style, short x,
                  short y, short width, short height, WORD id) {
    AlignToDword();
    DLGITEMTEMPLATE item{};
    item.style = style | WS_CHILD | WS_VISIBLE;
    item.x = x;
    item.y = y;
    item.cx = width;
    item.cy = height;
    item.id = id;
    Append(&item, sizeof item);
    AppendWord(0xFFFF);
    AppendWord(window_class);
    AppendString(text);
    AppendWord(0);  // no creation data
    ++control_count_;
  }

  // DWORD-aligned storage for DialogBoxIndirectParam.
  std::vector<DWORD> Build() const {
    std::vector<WORD> words = words_;
    std::memcpy(reinterpret_cast<char*>(words.data()) + count_offset_, &control_count_,
                sizeof control_count_);
    std::vector<DWORD> storage((words.size() + 1) / 2, 0);
    std::memcpy(storage.data(), words.data(), words.size() * sizeof(WORD));
    return storage;
  }

 private:
  void AlignToDword() {
    if (words_.size() % 2 != 0) words_.push_back(0);
  }
  void Append(const void* data, std::size_t bytes) {
    const std::size_t at = words_.size();
    words_.resize(at + (bytes + 1) / 2, 0);
    std::memcpy(words_.data() + at, data, bytes);
  }
  void AppendWord(WORD word) { words_.push_back(word); }
  void AppendString(const std::wstring& text) {
    for (wchar_t c : text) words_.push_back(static_cast<WORD>(c));
    words_.push_back(0);
  }

  std::vector<WORD> words_;
  std::size_t count_offset_ = 0;
  WORD control_count_ = 0;
};

constexpr WORD kButtonClass = 0x0080;
constexpr WORD kEditClass = 0x0081;
constexpr WORD kStaticClass = 0x0082;
constexpr WORD kPromptId = 100;
constexpr WORD kEditId = 101;

struct InputBoxState {
  const std::wstring* default_text;
  std::wstring text;
};

std::wstring WindowText(HWND window) {
  const int length = ::GetWindowTextLengthW(window);
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const int copied = ::GetWindowTextW(window, text.data(), length + 1);
  text.resize(static_cast<std::size_t>(copied > 0 ? copied : 0));
  return text;
}

// A window procedure must not let an exception reach the system; the
// handlers here call nothing that throws except allocation, which ends the
// dialog as cancelled.
INT_PTR CALLBACK InputBoxProc(HWND dialog, UINT message, WPARAM wparam,
                              LPARAM lparam) noexcept {
  try {
    switch (message) {
      case WM_INITDIALOG: {
        ::SetWindowLongPtrW(dialog, DWLP_USER, lparam);
        auto* state = reinterpret_cast<InputBoxState*>(lparam);
        HWND edit = ::GetDlgItem(dialog, kEditId);
        ::SetWindowTextW(edit, state->default_text->c_str());
        ::SendMessageW(edit, EM_SETSEL, 0, -1);
        ::SetFocus(edit);
        return FALSE;  // the focus is set
      }
      case WM_COMMAND:
        if (LOWORD(wparam) == IDOK) {
          auto* state =
              reinterpret_cast<InputBoxState*>(::GetWindowLongPtrW(dialog, DWLP_USER));
          state->text = WindowText(::GetDlgItem(dialog, kEditId));
          ::EndDialog(dialog, IDOK);
          return TRUE;
        }
        if (LOWORD(wparam) == IDCANCEL) {
          ::EndDialog(dialog, IDCANCEL);
          return TRUE;
        }
        break;
    }
  } catch (...) {
    ::EndDialog(dialog, IDCANCEL);
    return TRUE;
  }
  return FALSE;
}
static_assert(kIsDialogProcedure<&InputBoxProc>);

}  // namespace

platform::Answer WindowsUi::MessageBox(std::string_view text, platform::Buttons buttons,
                                       platform::Icon icon, std::string_view title) {
  const std::wstring wide_text = Utf8ToWide(text);
  const std::wstring wide_title = TitleOrAppName(title);
  const int result = ::MessageBoxW(owner_, wide_text.c_str(), wide_title.c_str(),
                                   ButtonsStyle(buttons) | IconStyle(icon));
  switch (result) {
    case IDOK: return platform::Answer::kOk;
    case IDYES: return platform::Answer::kYes;
    case IDNO: return platform::Answer::kNo;
    default: return platform::Answer::kCancel;  // IDCANCEL, or the box failed
  }
}

std::optional<std::string> WindowsUi::InputBox(std::string_view prompt,
                                               std::string_view title,
                                               std::string_view default_text) {
  // Laid out in dialog units like the language's own InputBox: the prompt
  // on the left, the buttons on the right, the edit box along the bottom.
  DialogTemplate dialog(TitleOrAppName(title),
                        WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER,
                        240, 86);
  dialog.AddControl(kStaticClass, Utf8ToWide(prompt), SS_LEFT | SS_NOPREFIX, 7, 7, 170,
                    52, kPromptId);
  dialog.AddControl(kButtonClass, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 183, 7, 50, 14,
                    IDOK);
  dialog.AddControl(kButtonClass, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, 183, 25, 50, 14,
                    IDCANCEL);
  dialog.AddControl(kEditClass, L"", ES_LEFT | ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, 7,
                    65, 226, 14, kEditId);
  const std::vector<DWORD> template_storage = dialog.Build();

  const std::wstring wide_default = Utf8ToWide(default_text);
  InputBoxState state{&wide_default, {}};
  const INT_PTR result = ::DialogBoxIndirectParamW(
      ThisModule(), reinterpret_cast<const DLGTEMPLATE*>(template_storage.data()),
      owner_, InputBoxProc, reinterpret_cast<LPARAM>(&state));
  if (result != IDOK) return std::nullopt;
  return WideToUtf8(state.text);
}

}  // namespace tavrin::win
