#include "win/windows_shell.h"

#include <vector>

// shellapi.h needs the types of windows.h first.
#include "win/win_support.h"
#include <shellapi.h>

namespace tavrin::win {

std::string WindowsShell::TempFolder() {
  // GetTempPathW never needs more than MAX_PATH + 1 characters.
  std::vector<wchar_t> buffer(MAX_PATH + 2, L'\0');
  const DWORD length = ::GetTempPathW(static_cast<DWORD>(buffer.size()), buffer.data());
  if (length == 0 || length >= buffer.size()) return {};
  return WideToUtf8(std::wstring_view(buffer.data(), length));
}

Status WindowsShell::OpenDocument(std::string_view path) {
  const std::wstring wide_path = Utf8ToWide(path);
  const auto result = reinterpret_cast<INT_PTR>(::ShellExecuteW(
      nullptr, L"open", wide_path.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  // ShellExecute reports success with a value above 32; on failure the last
  // error says more than its own small codes.
  if (result > 32) return {};
  const DWORD error = ::GetLastError();
  return Error{"cannot open " + std::string(path) + ": " +
               ErrorText(error != 0 ? error : static_cast<DWORD>(result))};
}

}  // namespace tavrin::win
