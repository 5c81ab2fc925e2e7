#include "win/registry.h"

#include <vector>

namespace tavrin::win {

UniqueHkey OpenKey(HKEY root, const std::wstring& path, REGSAM access) {
  UniqueHkey key;
  if (::RegOpenKeyExW(root, path.c_str(), 0, access, key.put()) != ERROR_SUCCESS) {
    return {};
  }
  return key;
}

UniqueHkey OpenUserKey(const std::wstring& path, REGSAM access) {
  return OpenKey(HKEY_CURRENT_USER, path, access);
}

UniqueHkey CreateKey(HKEY root, const std::wstring& path) {
  UniqueHkey key;
  if (::RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, key.put(),
                        nullptr) != ERROR_SUCCESS) {
    return {};
  }
  return key;
}

UniqueHkey CreateUserKey(const std::wstring& path) {
  return CreateKey(HKEY_CURRENT_USER, path);
}

bool DeleteKeyTree(HKEY root, const std::wstring& path) {
  const LSTATUS status = ::RegDeleteTreeW(root, path.c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

std::optional<DWORD> ValueType(HKEY key, const std::wstring& name) {
  DWORD type = 0;
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, nullptr) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return type;
}

std::optional<std::wstring> ReadStringValue(HKEY key, const std::wstring& name) {
  // The value may change between the size query and the read; retry then.
  for (int attempt = 0; attempt < 3; ++attempt) {
    DWORD type = 0;
    DWORD bytes = 0;
    if (::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &bytes) !=
        ERROR_SUCCESS) {
      return std::nullopt;
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
    // Registry strings need not end in a null; read into a buffer with room
    // for one more and cut at the first null.
    std::vector<wchar_t> buffer(bytes / sizeof(wchar_t) + 1, L'\0');
    DWORD size = bytes;
    const LSTATUS status =
        ::RegQueryValueExW(key, name.c_str(), nullptr, &type,
                           reinterpret_cast<BYTE*>(buffer.data()), &size);
    if (status == ERROR_MORE_DATA) continue;
    if (status != ERROR_SUCCESS) return std::nullopt;
    std::wstring value(buffer.data(), size / sizeof(wchar_t));
    if (auto end = value.find(L'\0'); end != std::wstring::npos) value.resize(end);
    return value;
  }
  return std::nullopt;
}

std::optional<DWORD> ReadDwordValue(HKEY key, const std::wstring& name) {
  DWORD type = 0;
  DWORD value = 0;
  DWORD size = sizeof value;
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &type,
                         reinterpret_cast<BYTE*>(&value), &size) != ERROR_SUCCESS ||
      type != REG_DWORD || size != sizeof value) {
    return std::nullopt;
  }
  return value;
}

bool WriteStringValue(HKEY key, const std::wstring& name, const std::wstring& value) {
  const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  return ::RegSetValueExW(key, name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(value.c_str()),
                          bytes) == ERROR_SUCCESS;
}

bool WriteDwordValue(HKEY key, const std::wstring& name, DWORD value) {
  return ::RegSetValueExW(key, name.c_str(), 0, REG_DWORD,
                          reinterpret_cast<const BYTE*>(&value),
                          sizeof value) == ERROR_SUCCESS;
}

}  // namespace tavrin::win
