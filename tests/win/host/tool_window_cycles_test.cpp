// Ten connections of the add-in, each opening the three tool windows, leave
// nothing behind: no window, no object of the host or of the DLL, and the
// registry keys the add-in owns per user as the first connection left them.
#include <gtest/gtest.h>

#include <string>

#include "tests/win/host/tool_window_session.h"
#include "win/addin_identity.h"

namespace tavrin::test_host {
namespace {

// A key and everything under it as text: subkeys, value names, types and
// data; empty when the key does not exist.
std::wstring Snapshot(HKEY root, const std::wstring& path) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return L"";
  std::wstring text = L"[" + path + L"]\n";
  wchar_t name[512];
  for (DWORD i = 0;; ++i) {
    DWORD name_size = 512, type = 0, data_size = 0;
    if (::RegEnumValueW(key, i, name, &name_size, nullptr, &type, nullptr, &data_size) !=
        ERROR_SUCCESS)
      break;
    std::wstring data(data_size / sizeof(wchar_t) + 1, L'\0');
    DWORD size = DWORD(data.size() * sizeof(wchar_t));
    name_size = 512;
    ::RegEnumValueW(key, i, name, &name_size, nullptr, &type,
                    reinterpret_cast<BYTE*>(data.data()), &size);
    text += std::wstring(name) + L" " + std::to_wstring(type) + L" " + data.c_str() + L"\n";
  }
  for (DWORD i = 0;; ++i) {
    DWORD name_size = 512;
    if (::RegEnumKeyExW(key, i, name, &name_size, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS)
      break;
    text += Snapshot(root, path + L"\\" + name);
  }
  ::RegCloseKey(key);
  return text;
}

// The classes of the add-in and its controls, their ProgIDs, and the
// add-in's registration with the IDEs, per user.
std::wstring ClassKeys() {
  std::wstring text;
  for (const wchar_t* prog_id : {L"Tavrin.Connect", L"Tavrin.docTabOrder",
                                 L"Tavrin.docDirectAccess", L"Tavrin.docCodeExplorer"}) {
    CLSID clsid{};
    EXPECT_EQ(::CLSIDFromProgID(prog_id, &clsid), S_OK);
    wchar_t clsid_text[64] = L"";
    ::StringFromGUID2(clsid, clsid_text, 64);
    text += Snapshot(HKEY_CURRENT_USER, std::wstring(L"Software\\Classes\\CLSID\\") + clsid_text);
    text += Snapshot(HKEY_CURRENT_USER, std::wstring(L"Software\\Classes\\") + prog_id);
  }
  for (const wchar_t* addins :
       {L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins64\\", L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins\\",
        L"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\"})
    text += Snapshot(HKEY_CURRENT_USER, std::wstring(addins) + win::kConnectProgId);
  return text;
}

// What the add-in saves between sessions (the toolbar's place).
std::wstring SettingsKeys() {
  return Snapshot(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\Tavrin");
}

using ToolWindowCyclesTest = ToolWindowDllTest;

TEST_F(ToolWindowCyclesTest, TenConnectionsLeaveNothingBehind) {
  using CanUnload = HRESULT(STDAPICALLTYPE*)();
  const auto can_unload = reinterpret_cast<CanUnload>(
      reinterpret_cast<void*>(::GetProcAddress(Dll(), "DllCanUnloadNow")));
  ASSERT_NE(can_unload, nullptr);
  const long host_objects = LiveHostObjects();
  const std::wstring classes = ClassKeys();
  ASSERT_NE(classes.find(L"InprocServer32"), std::wstring::npos);
  std::wstring settings;
  for (int i = 1; i <= 10; ++i) {
    {
      ToolWindowSession session;
      ASSERT_EQ(OpenToolFrames().size(), 3u) << "connection " << i;
      for (const wchar_t* prog_id :
           {L"Tavrin.docTabOrder", L"Tavrin.docDirectAccess", L"Tavrin.docCodeExplorer"})
        session.Frame(prog_id);
      PumpMessages();
    }
    PumpMessages();
    EXPECT_TRUE(OpenToolFrames().empty()) << "connection " << i;
    EXPECT_EQ(LiveHostObjects(), host_objects) << "connection " << i;
    EXPECT_EQ(can_unload(), S_OK) << "objects of the DLL alive after connection " << i;
    EXPECT_EQ(ClassKeys(), classes) << "connection " << i;
    // The first disconnection may save the toolbar's place; later ones
    // write the same keys again, never more.
    if (i == 1) settings = SettingsKeys();
    EXPECT_EQ(SettingsKeys(), settings) << "connection " << i;
  }
  // The controls' window class goes with the last window.
  WNDCLASSEXW window_class{};
  window_class.cbSize = sizeof window_class;
  EXPECT_FALSE(::GetClassInfoExW(Dll(), L"TavrinToolWindow", &window_class));
}

}  // namespace
}  // namespace tavrin::test_host
