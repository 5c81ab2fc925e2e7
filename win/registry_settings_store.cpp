#include "win/registry_settings_store.h"

#include <string>

#include "win/registry.h"

namespace tavrin::win {
namespace {

constexpr std::wstring_view kSettingsRoot = L"Software\\VB and VBA Program Settings\\";

// An empty application or section name has no key of its own; the runtime
// rejects it too.
std::optional<std::wstring> SectionPath(std::string_view app, std::string_view section) {
  if (app.empty() || section.empty()) return std::nullopt;
  return std::wstring(kSettingsRoot) + Utf8ToWide(app) + L"\\" + Utf8ToWide(section);
}

}  // namespace

std::string RegistrySettingsStore::GetSetting(std::string_view app,
                                              std::string_view section,
                                              std::string_view key,
                                              std::string_view default_value) {
  const auto path = SectionPath(app, section);
  if (!path) return std::string(default_value);
  const UniqueHkey section_key = OpenUserKey(*path, KEY_QUERY_VALUE);
  if (!section_key) return std::string(default_value);
  const auto value = ReadStringValue(section_key.get(), Utf8ToWide(key));
  return value ? WideToUtf8(*value) : std::string(default_value);
}

bool RegistrySettingsStore::SaveSetting(std::string_view app, std::string_view section,
                                        std::string_view key, std::string_view value) {
  const auto path = SectionPath(app, section);
  if (!path) return false;
  const UniqueHkey section_key = CreateUserKey(*path);
  return section_key &&
         WriteStringValue(section_key.get(), Utf8ToWide(key), Utf8ToWide(value));
}

void RegistrySettingsStore::DeleteSetting(std::string_view app, std::string_view section,
                                          std::string_view key) {
  const auto path = SectionPath(app, section);
  if (!path) return;
  const UniqueHkey section_key = OpenUserKey(*path, KEY_SET_VALUE);
  if (section_key) ::RegDeleteValueW(section_key.get(), Utf8ToWide(key).c_str());
}

}  // namespace tavrin::win
