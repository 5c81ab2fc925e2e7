// tavrin.exe reads its arguments as UTF-16, so paths with characters outside
// the ANSI code page reach the file system intact.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "win/win_support.h"

namespace tavrin::test_host {
namespace {

std::wstring ExeFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

// Runs the command line and returns the exit status (-1 when it did not run).
long RunProgram(std::wstring command_line) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!::CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process)) {
    return -1;
  }
  ::WaitForSingleObject(process.hProcess, 60000);
  DWORD status = 0;
  ::GetExitCodeProcess(process.hProcess, &status);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return static_cast<long>(status);
}

TEST(ToolArgumentsTest, NonAsciiPathsReachTheFile) {
  wchar_t temp[MAX_PATH];
  ASSERT_GT(::GetTempPathW(MAX_PATH, temp), 0u);
  // Greek and CJK: no single ANSI code page holds both.
  const std::wstring folder = std::wstring(temp) + L"tavrin \u03b1\u03b2 \u6a21\u5757";
  const std::wstring file = folder + L"\\M\u00f3dulo\u4e00.bas";
  ::CreateDirectoryW(folder.c_str(), nullptr);
  {
    std::ofstream out(file.c_str(), std::ios::binary);  // the toolchain's wide-path open
    out << "Attribute VB_Name = \"Modulo1\"\r\nSub Main()\r\nEnd Sub\r\n";
  }
  const long status = RunProgram(L"\"" + ExeFolder() + L"tavrin.exe\" snippet \"If Then\" \"" + file +
                          L"\" --caret 1:11 -i");
  EXPECT_EQ(status, 0);
  std::ifstream in(file.c_str(), std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  in.close();
  EXPECT_NE(bytes.find("If  Then"), std::string::npos) << bytes;
  ::DeleteFileW(file.c_str());
  ::RemoveDirectoryW(folder.c_str());
}

}  // namespace
}  // namespace tavrin::test_host
