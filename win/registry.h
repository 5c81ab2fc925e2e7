// Small typed reads and writes of registry values under HKEY_CURRENT_USER.
#pragma once

#include <optional>
#include <string>

#include "win/win_support.h"

namespace tavrin::win {

// Opens an existing key for the access asked; empty when it does not exist.
UniqueHkey OpenKey(HKEY root, const std::wstring& path, REGSAM access);
UniqueHkey OpenUserKey(const std::wstring& path, REGSAM access);
// Opens the key for writing, creating it and its parents as needed.
UniqueHkey CreateKey(HKEY root, const std::wstring& path);
UniqueHkey CreateUserKey(const std::wstring& path);
// Deletes the key with everything below it; true also when it was not there.
bool DeleteKeyTree(HKEY root, const std::wstring& path);

// A REG_SZ or REG_EXPAND_SZ value (not expanded); nullopt when missing or of
// another type.
std::optional<std::wstring> ReadStringValue(HKEY key, const std::wstring& name);
std::optional<DWORD> ReadDwordValue(HKEY key, const std::wstring& name);
// The type of a value; nullopt when missing.
std::optional<DWORD> ValueType(HKEY key, const std::wstring& name);

bool WriteStringValue(HKEY key, const std::wstring& name, const std::wstring& value);
bool WriteDwordValue(HKEY key, const std::wstring& name, DWORD value);

}  // namespace tavrin::win
