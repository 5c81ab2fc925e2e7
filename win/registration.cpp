#include "win/registration.h"

#include <olectl.h>

#include <optional>

#include "win/addin_identity.h"
#include "win/registry.h"
#include "win/tool_window_classes.h"

namespace tavrin::win {
namespace {

constexpr wchar_t kClassesKey[] = L"Software\\Classes\\";
// "Load on startup": what both IDEs' Add-In Managers write for a checked
// "Loaded/Unloaded" and "Load on Startup".
constexpr DWORD kLoadAtStartup = 3;

struct Value {
  std::wstring name;
  std::optional<std::wstring> text;
  DWORD number = 0;
  bool keep_existing = false;  // the user's own choice survives re-registration
};

struct Key {
  std::wstring path;
  std::vector<Value> values;
};

std::wstring ClassKeyPath() {
  return std::wstring(kClassesKey) + L"CLSID\\" + kConnectClsidText;
}
std::wstring ProgIdKeyPath() { return std::wstring(kClassesKey) + kConnectProgId; }

std::vector<Key> KeysToWrite(const std::wstring& module_path) {
  const std::wstring class_key = ClassKeyPath();
  std::vector<Key> keys = {
      {class_key, {{L"", kConnectClassName}}},
      {class_key + L"\\InprocServer32",
       {{L"", module_path}, {L"ThreadingModel", L"Apartment"}}},
      {class_key + L"\\ProgID", {{L"", kConnectProgId}}},
      {class_key + L"\\VersionIndependentProgID", {{L"", kConnectProgId}}},
      {ProgIdKeyPath(), {{L"", kConnectClassName}}},
      {ProgIdKeyPath() + L"\\CLSID", {{L"", kConnectClsidText}}},
  };
  // The tool-window controls: an ActiveX control each (the Control key and
  // CATID_Control), never Insertable.
  for (const ToolWindowControlClass& control : ToolWindowControlClasses()) {
    const std::wstring key = std::wstring(kClassesKey) + L"CLSID\\" + control.clsid_text;
    const std::wstring misc = std::to_wstring(kToolWindowMiscStatus);
    keys.push_back({key, {{L"", control.name}}});
    keys.push_back({key + L"\\InprocServer32",
                    {{L"", module_path}, {L"ThreadingModel", L"Apartment"}}});
    keys.push_back({key + L"\\ProgID", {{L"", control.prog_id}}});
    keys.push_back({key + L"\\Control", {}});
    keys.push_back({key + L"\\MiscStatus", {{L"", L"0"}}});
    keys.push_back({key + L"\\MiscStatus\\1", {{L"", misc}}});
    keys.push_back({key + L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}", {}});
    keys.push_back({std::wstring(kClassesKey) + control.prog_id, {{L"", control.name}}});
    keys.push_back({std::wstring(kClassesKey) + control.prog_id + L"\\CLSID",
                    {{L"", control.clsid_text}}});
  }
  for (const auto& path : AddinKeyPaths()) {
    keys.push_back({path,
                    {{L"FriendlyName", kAddinFriendlyName},
                     {L"Description", kAddinDescription},
                     {L"LoadBehavior", std::nullopt, kLoadAtStartup, true},
                     {L"CommandLineSafe", std::nullopt, 0}}});
  }
  return keys;
}

bool WriteKey(HKEY root, const Key& entry) {
  const UniqueHkey key = CreateKey(root, entry.path);
  if (!key) return false;
  for (const auto& value : entry.values) {
    if (value.keep_existing && ValueType(key.get(), value.name)) continue;
    const bool written = value.text ? WriteStringValue(key.get(), value.name, *value.text)
                                    : WriteDwordValue(key.get(), value.name, value.number);
    if (!written) return false;
  }
  return true;
}

}  // namespace

HKEY RootKeyOf(RegistrationScope scope) {
  return scope == RegistrationScope::kMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::vector<std::wstring> AddinKeyPaths() {
  const std::wstring name = std::wstring(L"\\") + kConnectProgId;
#ifdef _WIN64
  return {L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins64" + name};
#else
  return {L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins" + name,
          L"Software\\Microsoft\\Visual Basic\\6.0\\Addins" + name};
#endif
}

std::vector<std::wstring> RegisteredKeyPaths() {
  std::vector<std::wstring> paths = {ClassKeyPath(), ProgIdKeyPath()};
  for (const ToolWindowControlClass& control : ToolWindowControlClasses()) {
    paths.push_back(std::wstring(kClassesKey) + L"CLSID\\" + control.clsid_text);
    paths.push_back(std::wstring(kClassesKey) + control.prog_id);
  }
  for (auto& path : AddinKeyPaths()) paths.push_back(std::move(path));
  return paths;
}

HRESULT RegisterAddin(RegistrationScope scope, const std::wstring& module_path) noexcept {
  try {
    const HKEY root = RootKeyOf(scope);
    for (const auto& key : KeysToWrite(module_path)) {
      if (!WriteKey(root, key)) {
        UnregisterAddin(scope);
        return SELFREG_E_CLASS;
      }
    }
    return S_OK;
  } catch (...) {
    UnregisterAddin(scope);
    return SELFREG_E_CLASS;
  }
}

HRESULT UnregisterAddin(RegistrationScope scope) noexcept {
  try {
    bool all_deleted = true;
    for (const auto& path : RegisteredKeyPaths()) {
      all_deleted = DeleteKeyTree(RootKeyOf(scope), path) && all_deleted;
    }
    return all_deleted ? S_OK : SELFREG_E_CLASS;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace tavrin::win
