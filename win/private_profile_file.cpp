#include "win/private_profile_file.h"

#include "win/win_support.h"

namespace tavrin::win {
namespace {

// NULs inside the text are kept: the lists of the profile calls hold many.
std::string Utf8ToAnsi(std::string_view text) {
  const std::wstring wide = Utf8ToWide(text);
  if (wide.empty()) return {};
  const int size = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()),
                                         nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), ansi.data(),
                        size, nullptr, nullptr);
  return ansi;
}

std::string AnsiToUtf8(std::string_view text) {
  if (text.empty()) return {};
  const int size =
      ::MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  ::MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(), size);
  return WideToUtf8(wide);
}

// The system's answer in UTF-8. A full buffer stays full, so the caller
// asks again; text that grows in UTF-8 may fill it too, with the same effect.
platform::ProfileBuffer Answer(const std::string& ansi, DWORD length, std::size_t buffer_size) {
  if (length == 0 || length + 2 == buffer_size) return {ansi, length};
  return platform::FillProfileBuffer(AnsiToUtf8(std::string_view(ansi).substr(0, length)),
                                     buffer_size);
}

Status Failure(std::string_view call) {
  const DWORD code = ::GetLastError();
  return Error{std::string(call) + " failed: " + ErrorText(code) + " (" + std::to_string(code) +
               ")"};
}

}  // namespace

platform::ProfileBuffer PrivateProfileFile::SectionNames(std::string_view file,
                                                         std::size_t buffer_size) {
  std::string buffer(buffer_size, '\0');
  const DWORD length = ::GetPrivateProfileSectionNamesA(
      buffer.data(), static_cast<DWORD>(buffer_size), Utf8ToAnsi(file).c_str());
  return Answer(buffer, length, buffer_size);
}

platform::ProfileBuffer PrivateProfileFile::ReadSection(std::string_view file,
                                                        std::string_view section,
                                                        std::size_t buffer_size) {
  std::string buffer(buffer_size, '\0');
  const DWORD length = ::GetPrivateProfileSectionA(
      Utf8ToAnsi(section).c_str(), buffer.data(), static_cast<DWORD>(buffer_size),
      Utf8ToAnsi(file).c_str());
  return Answer(buffer, length, buffer_size);
}

Status PrivateProfileFile::WriteSection(std::string_view file, std::string_view section,
                                        std::optional<std::string_view> lines) {
  std::string data;
  if (lines) data = Utf8ToAnsi(*lines) + '\0';  // c_str() adds the second NUL
  const BOOL written = ::WritePrivateProfileSectionA(
      Utf8ToAnsi(section).c_str(), lines ? data.c_str() : nullptr, Utf8ToAnsi(file).c_str());
  if (!written) return Failure("WritePrivateProfileSectionA");
  return {};
}

Status PrivateProfileFile::WriteString(std::string_view file, std::string_view section,
                                       std::string_view key, std::string_view value) {
  const BOOL written = ::WritePrivateProfileStringA(
      Utf8ToAnsi(section).c_str(), Utf8ToAnsi(key).c_str(), Utf8ToAnsi(value).c_str(),
      Utf8ToAnsi(file).c_str());
  if (!written) return Failure("WritePrivateProfileStringA");
  return {};
}

}  // namespace tavrin::win
