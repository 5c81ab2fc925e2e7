// The add-in as the installer leaves it, checked between the steps of
// cmake/InstallerTest.cmake (each step runs one suite with --gtest_filter):
// Installed.* after a silent install, Upgraded.* after an upgrade over it,
// Removed.* after a silent uninstall.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "fragments/settings.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_command_bars.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"
#include "tavrin_version.h"
#include "tests/support/fake_ui.h"
#include "tests/win/host/host_command_bars.h"
#include "tests/win/host/host_ide.h"
#include "win/addin_identity.h"
#include "win/com_values.h"
#include "win/extensibility.h"
#include "win/private_profile_file.h"
#include "win/registry.h"
#include "win/tool_window_classes.h"

// After windows.h, which the project's headers include.
#include <msi.h>
#include <shlobj.h>

namespace tavrin::test_host {
namespace {

constexpr wchar_t kUpgradeCode[] = L"{8EB60B9F-88A3-45AF-8854-B48A114A1D4B}";
// What the user changed in the add-in's settings before the upgrade.
constexpr wchar_t kUsersDeveloper[] = L"Changed By The User";

std::wstring InstallFolder() {
  PWSTR local = nullptr;
  std::wstring folder;
  if (SUCCEEDED(::SHGetKnownFolderPath(FOLDERID_LocalAppData, 0, nullptr, &local))) {
    folder = std::wstring(local) + L"\\Programs\\Tavrin\\";
  }
  ::CoTaskMemFree(local);
  return folder;
}

bool FileExists(const std::wstring& path) {
  return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// One registry value the installer writes, in the view of its DLL's bitness.
struct Expected {
  REGSAM view;
  std::wstring key;
  std::wstring name;
  std::optional<std::wstring> text;  // a string value, else the number
  DWORD number = 0;
};

std::vector<Expected> ExpectedValues() {
  const std::wstring clsid = std::wstring(L"Software\\Classes\\CLSID\\") + win::kConnectClsidText;
  const std::wstring folder = InstallFolder();
  std::vector<Expected> values;
  using View = std::pair<REGSAM, const wchar_t*>;
  for (const auto& [view, dll] :
       {View{KEY_WOW64_32KEY, L"Tavrin.dll"}, View{KEY_WOW64_64KEY, L"Tavrin64.dll"}}) {
    values.push_back({view, clsid, L"", win::kConnectClassName});
    values.push_back({view, clsid + L"\\InprocServer32", L"", folder + dll});
    values.push_back({view, clsid + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
    values.push_back({view, clsid + L"\\ProgID", L"", win::kConnectProgId});
    values.push_back({view, clsid + L"\\VersionIndependentProgID", L"", win::kConnectProgId});
    for (const win::ToolWindowControlClass& control : win::ToolWindowControlClasses()) {
      const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + control.clsid_text;
      values.push_back({view, key, L"", control.name});
      values.push_back({view, key + L"\\InprocServer32", L"", folder + dll});
      values.push_back({view, key + L"\\ProgID", L"", control.prog_id});
      values.push_back({view, key + L"\\MiscStatus\\1", L"",
                        std::to_wstring(win::kToolWindowMiscStatus)});
    }
  }
  for (const win::ToolWindowControlClass& control : win::ToolWindowControlClasses()) {
    values.push_back({KEY_WOW64_64KEY, std::wstring(L"Software\\Classes\\") + control.prog_id + L"\\CLSID",
                      L"", control.clsid_text});
  }
  const std::wstring progid = std::wstring(L"Software\\Classes\\") + win::kConnectProgId;
  values.push_back({KEY_WOW64_64KEY, progid, L"", win::kConnectClassName});
  values.push_back({KEY_WOW64_64KEY, progid + L"\\CLSID", L"", win::kConnectClsidText});
  using List = std::pair<REGSAM, const wchar_t*>;
  for (const auto& [view, list] :
       {List{KEY_WOW64_32KEY, L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins\\"},
        List{KEY_WOW64_32KEY, L"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\"},
        List{KEY_WOW64_64KEY, L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins64\\"}}) {
    const std::wstring key = list + std::wstring(win::kConnectProgId);
    values.push_back({view, key, L"FriendlyName", win::kAddinFriendlyName});
    values.push_back({view, key, L"Description", win::kAddinDescription});
    values.push_back({view, key, L"LoadBehavior", std::nullopt, 3});
    values.push_back({view, key, L"CommandLineSafe", std::nullopt, 0});
  }
  return values;
}

std::string Describe(const Expected& value) {
  return (value.view == KEY_WOW64_32KEY ? "32-bit " : "64-bit ") + win::WideToUtf8(value.key) +
         " [" + win::WideToUtf8(value.name) + "]";
}

// The installed product's version, as Windows Installer lists it among the
// user's programs; empty when it lists none.
std::wstring InstalledVersion() {
  wchar_t product[39] = L"";
  if (::MsiEnumRelatedProductsW(kUpgradeCode, 0, 0, product) != ERROR_SUCCESS) return {};
  wchar_t version[64] = L"";
  DWORD size = 64;
  if (::MsiGetProductInfoW(product, INSTALLPROPERTY_VERSIONSTRING, version, &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return version;
}

std::wstring Developer() {
  wchar_t text[256] = L"";
  ::GetPrivateProfileStringW(L"Developer", L"Developer", L"", text, 256,
                             (InstallFolder() + L"tvrusr.ini").c_str());
  return text;
}

// Wine keeps one view of HKEY_CURRENT_USER\Software\Classes\CLSID for
// both bitnesses (Windows redirects the 32-bit one), so there the class key
// names the DLL whose component was installed last.
bool SharedClassesView() {
  return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

TEST(Installed, EveryKeyAndFile) {
  for (const Expected& value : ExpectedValues()) {
    SCOPED_TRACE(Describe(value));
    const auto key = win::OpenKey(HKEY_CURRENT_USER, value.key, KEY_QUERY_VALUE | value.view);
    ASSERT_TRUE(key) << "missing key";
    if (value.text) {
      const auto text = win::ReadStringValue(key.get(), value.name);
      if (SharedClassesView() && value.text->ends_with(L"\\Tavrin.dll")) {
        EXPECT_TRUE(text == *value.text || text == InstallFolder() + L"Tavrin64.dll");
      } else {
        EXPECT_EQ(text, *value.text);
      }
    } else {
      EXPECT_EQ(win::ReadDwordValue(key.get(), value.name), value.number);
    }
  }
  EXPECT_FALSE(win::OpenKey(HKEY_LOCAL_MACHINE, std::wstring(L"Software\\Classes\\CLSID\\") +
                                                    win::kConnectClsidText,
                            KEY_QUERY_VALUE))
      << "a per-user installation writes nothing for the machine";
  for (const wchar_t* file : {L"Tavrin.dll", L"Tavrin64.dll", L"tavrin.exe", L"help\\index.html"}) {
    EXPECT_TRUE(FileExists(InstallFolder() + file)) << win::WideToUtf8(file);
  }
  EXPECT_EQ(InstalledVersion(), L"" TAVRIN_VERSION);
}

// The IDE's part: load the class registered for this bitness, connect it,
// find its toolbar with pictures, disconnect. Wine's COM does not look up
// classes registered per user, so the registered DLL is loaded by hand.
TEST(Installed, ConnectsToTheIde) {
  ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  // The add-in's folder as the first run leaves it (settings and code
  // folders), with a change of the user's.
  {
    struct NoDialog : settings::SettingsDialog {
      void ShowModal() override {}
    } dialog;
    platform::StdFileSystem files;
    win::PrivateProfileFile profiles;
    tavrin::testing::FakeUi ui;
    fragments::LoadSettings(
        settings::SettingsServices{profiles, files, ui, dialog, win::WideToUtf8(InstallFolder())},
        false);
    ::WritePrivateProfileStringW(L"Developer", L"Developer", kUsersDeveloper,
                                 (InstallFolder() + L"tvrusr.ini").c_str());
  }
  const auto key = win::OpenKey(HKEY_CURRENT_USER,
                                std::wstring(L"Software\\Classes\\CLSID\\") +
                                    win::kConnectClsidText + L"\\InprocServer32",
                                KEY_QUERY_VALUE);
  ASSERT_TRUE(key);
  const auto path = win::ReadStringValue(key.get(), L"");
  ASSERT_TRUE(path);
  const HMODULE dll = ::LoadLibraryW(path->c_str());
  ASSERT_NE(dll, nullptr) << win::WideToUtf8(*path);
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get_class_object = reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(::GetProcAddress(dll, "DllGetClassObject")));
  ASSERT_NE(get_class_object, nullptr);
  {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(get_class_object(win::kConnectClsid, IID_IClassFactory, factory.put_void()), S_OK);
    ComPtr<IDTExtensibility2> addin;
    ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(IDTExtensibility2), addin.put_void()),
              S_OK);
    auto memory = ide::memory::MemoryVbe::Create();
    memory->AddProject("Project1");
    ComPtr<IDispatch> vbe = MakeHostVbe(memory);
    ComPtr<IDispatch> instance =
        MakeHostAddIn(memory->RegisterAddIn("Tavrin.Connect", "Tavrin", true));
    auto custom = win::SafeArray::EmptyVariants();
    SAFEARRAY* custom_array = custom.get();
    ASSERT_EQ(addin->OnConnection(vbe.get(), 1, instance.get(), &custom_array), S_OK);
    const auto bars = memory->CommandBars();
    bool toolbar_with_picture = false;
    for (int i = 1; i <= bars->Count(); ++i) {
      if (bars->Item(i)->Name() == "Tavrin") {
        toolbar_with_picture = !bars->Item(i)->Controls()->Item(1)->GetPicture().bmp.empty();
      }
    }
    EXPECT_TRUE(toolbar_with_picture);
    ASSERT_EQ(addin->OnDisconnection(0, &custom_array), S_OK);
  }
  ::CoUninitialize();
}

TEST(Upgraded, KeepsTheUsersSettings) {
  EXPECT_EQ(Developer(), kUsersDeveloper);
  EXPECT_NE(InstalledVersion(), L"" TAVRIN_VERSION);
  EXPECT_FALSE(InstalledVersion().empty());
  EXPECT_TRUE(FileExists(InstallFolder() + L"Tavrin64.dll"));
}

TEST(Removed, NoKeyNoProgramSettingsKept) {
  for (const Expected& value : ExpectedValues()) {
    EXPECT_FALSE(win::OpenKey(HKEY_CURRENT_USER, value.key, KEY_QUERY_VALUE | value.view))
        << Describe(value);
  }
  for (const wchar_t* file : {L"Tavrin.dll", L"Tavrin64.dll", L"tavrin.exe", L"help"}) {
    EXPECT_FALSE(FileExists(InstallFolder() + file)) << win::WideToUtf8(file);
  }
  EXPECT_TRUE(InstalledVersion().empty());
  EXPECT_EQ(Developer(), kUsersDeveloper);
  EXPECT_TRUE(FileExists(InstallFolder() + L"vbcode"));
}

}  // namespace
}  // namespace tavrin::test_host
