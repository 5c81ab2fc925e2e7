#include "win/windows_ui.h"

#include <vector>

#include "win/calling_convention.h"
#include "win/dialog_template.h"

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
INT_PTR CALLBACK InputBoxProc(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
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
          auto* state = reinterpret_cast<InputBoxState*>(::GetWindowLongPtrW(dialog, DWLP_USER));
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

std::optional<std::string> WindowsUi::InputBox(std::string_view prompt, std::string_view title,
                                               std::string_view default_text) {
  // Laid out in dialog units like the language's own InputBox: the prompt
  // on the left, the buttons on the right, the edit box along the bottom.
  DialogTemplate dialog(TitleOrAppName(title),
                        WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_CENTER, 240, 86);
  dialog.AddControl(kStaticClass, Utf8ToWide(prompt), SS_LEFT | SS_NOPREFIX | WS_VISIBLE, 7, 7, 170,
                    52, kPromptId);
  dialog.AddControl(kButtonClass, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_VISIBLE, 183, 7, 50, 14,
                    IDOK);
  dialog.AddControl(kButtonClass, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP | WS_VISIBLE, 183, 25, 50,
                    14, IDCANCEL);
  dialog.AddControl(kEditClass, L"", ES_LEFT | ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP | WS_VISIBLE,
                    7, 65, 226, 14, kEditId);
  const std::vector<DWORD> template_storage = dialog.Build();

  const std::wstring wide_default = Utf8ToWide(default_text);
  InputBoxState state{&wide_default, {}};
  const INT_PTR result = ::DialogBoxIndirectParamW(
      ThisModule(), reinterpret_cast<const DLGTEMPLATE*>(template_storage.data()), owner_,
      InputBoxProc, reinterpret_cast<LPARAM>(&state));
  if (result != IDOK) return std::nullopt;
  return WideToUtf8(state.text);
}

}  // namespace tavrin::win
