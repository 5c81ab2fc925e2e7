// The real Tavrin.dll in the test host: registered through its own exports
// as regsvr32 would, created from its ProgID as the IDE creates it, and
// connected and disconnected over and over as the IDE's Add-In Manager can.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "addin/code_lines.h"
#include "ide/command_bars.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_command_bars.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/ide_options.h"
#include "platform/std_file_system.h"
#include "settings/settings_load.h"
#include "tests/support/code_lines.h"
#include "tests/support/fake_ui.h"
#include "tests/win/host/host_command_bars.h"
#include "tests/win/host/host_events.h"
#include "tests/win/host/host_ide.h"
#include "win/com_ide.h"
#include "win/com_values.h"
#include "win/dispatch.h"
#include "win/extensibility.h"
#include "win/private_profile_file.h"
#include "win/registry.h"
#include "tavrin_version.h"

namespace tavrin::test_host {
namespace {

constexpr wchar_t kClsid[] = L"{87008D36-1E11-48C1-BC0F-3D57A81DB56A}";
constexpr wchar_t kClassKey[] =
    L"Software\\Classes\\CLSID\\{87008D36-1E11-48C1-BC0F-3D57A81DB56A}";
constexpr wchar_t kProgIdKey[] = L"Software\\Classes\\Tavrin.Connect";
// The 64-bit DLL serves 64-bit Office only; the VB6 IDE is 32-bit.
constexpr wchar_t kAddinKey[] = L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins64\\Tavrin.Connect";

using Export = HRESULT(STDAPICALLTYPE*)();
using InstallExport = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

std::wstring ExeFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

std::optional<std::wstring> StringValue(HKEY root, const std::wstring& path,
                                        const std::wstring& name) {
  const auto key = win::OpenKey(root, path, KEY_QUERY_VALUE);
  if (!key) return std::nullopt;
  return win::ReadStringValue(key.get(), name);
}

std::optional<DWORD> DwordValue(HKEY root, const std::wstring& path, const std::wstring& name) {
  const auto key = win::OpenKey(root, path, KEY_QUERY_VALUE);
  if (!key) return std::nullopt;
  return win::ReadDwordValue(key.get(), name);
}

bool KeyExists(HKEY root, const std::wstring& path) {
  return static_cast<bool>(win::OpenKey(root, path, KEY_QUERY_VALUE));
}

// A dialog the add-in shows (an error report, a question) would wait for a
// user who is not there: this closes each one as it opens and keeps its
// text, which fails the test.
class DialogCatcher {
 public:
  DialogCatcher() {
    hook_.reset(::SetWindowsHookExW(WH_CBT, &Hook, nullptr, ::GetCurrentThreadId()));
  }
  static std::vector<std::string>& Shown() {
    static std::vector<std::string> shown;
    return shown;
  }

 private:
  static BOOL CALLBACK AddText(HWND child, LPARAM texts) {
    wchar_t text[1024] = L"";
    ::GetWindowTextW(child, text, 1024);
    *reinterpret_cast<std::wstring*>(texts) += std::wstring(L" ") + text;
    return TRUE;
  }
  static LRESULT CALLBACK Hook(int code, WPARAM wparam, LPARAM lparam) {
    if (code == HCBT_ACTIVATE) {
      const auto dialog = reinterpret_cast<HWND>(wparam);
      std::wstring texts;
      AddText(dialog, reinterpret_cast<LPARAM>(&texts));
      ::EnumChildWindows(dialog, &AddText, reinterpret_cast<LPARAM>(&texts));
      Shown().push_back(win::WideToUtf8(texts));
      for (int button : {IDCANCEL, IDNO, IDOK}) {
        ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
      }
    }
    return ::CallNextHookEx(nullptr, code, wparam, lparam);
  }

  win::UniqueHhook hook_;
};

class AddinHostTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    dll_path_ = ExeFolder() + L"Tavrin.dll";
    dll_ = ::LoadLibraryW(dll_path_.c_str());
    ASSERT_NE(dll_, nullptr) << "Tavrin.dll beside the test program";
    register_ = Function<Export>("DllRegisterServer");
    unregister_ = Function<Export>("DllUnregisterServer");
    can_unload_ = Function<Export>("DllCanUnloadNow");
    install_ = Function<InstallExport>("DllInstall");
  }
  static void TearDownTestSuite() {
    if (dll_) ::FreeLibrary(dll_);
    ::CoUninitialize();
  }
  void SetUp() override {
    ASSERT_NE(register_, nullptr);
    ASSERT_NE(install_, nullptr);
  }
  void TearDown() override {
    unregister_();
    install_(FALSE, L"machine");
    EXPECT_TRUE(DialogCatcher::Shown().empty()) << DialogCatcher::Shown().front();
    DialogCatcher::Shown().clear();
  }

  template <class F>
  static F Function(const char* name) {
    return reinterpret_cast<F>(reinterpret_cast<void*>(::GetProcAddress(dll_, name)));
  }

  static void ExpectRegistered(HKEY root) {
    EXPECT_EQ(StringValue(root, kClassKey, L""), L"Tavrin Connect");
    EXPECT_EQ(StringValue(root, std::wstring(kClassKey) + L"\\InprocServer32", L""), dll_path_);
    EXPECT_EQ(StringValue(root, std::wstring(kClassKey) + L"\\InprocServer32", L"ThreadingModel"),
              L"Apartment");
    EXPECT_EQ(StringValue(root, std::wstring(kClassKey) + L"\\ProgID", L""), L"Tavrin.Connect");
    EXPECT_EQ(StringValue(root, std::wstring(kProgIdKey) + L"\\CLSID", L""), kClsid);
    EXPECT_EQ(StringValue(root, kAddinKey, L"FriendlyName"), L"Tavrin");
    EXPECT_TRUE(StringValue(root, kAddinKey, L"Description")
                    .value_or(L"")
                    .starts_with(L"Tavrin " TAVRIN_VERSION L": "));
    EXPECT_EQ(DwordValue(root, kAddinKey, L"LoadBehavior"), 3u);
    EXPECT_EQ(DwordValue(root, kAddinKey, L"CommandLineSafe"), 0u);
  }

  static void ExpectNothingLeft(HKEY root) {
    for (const wchar_t* path : {kClassKey, kProgIdKey, kAddinKey}) {
      EXPECT_FALSE(KeyExists(root, path)) << win::WideToUtf8(path);
    }
  }

  DialogCatcher dialogs_;
  static inline std::wstring dll_path_;
  static inline HMODULE dll_ = nullptr;
  static inline Export register_ = nullptr;
  static inline Export unregister_ = nullptr;
  static inline Export can_unload_ = nullptr;
  static inline InstallExport install_ = nullptr;
};

TEST_F(AddinHostTest, RegistersPerUserAndRemovesExactlyThat) {
  ASSERT_EQ(register_(), S_OK);
  ExpectRegistered(HKEY_CURRENT_USER);
  EXPECT_FALSE(KeyExists(HKEY_LOCAL_MACHINE, kClassKey));
  // Registering again keeps the user's choice in the Add-In Manager.
  {
    const auto key = win::OpenKey(HKEY_CURRENT_USER, kAddinKey, KEY_SET_VALUE);
    ASSERT_TRUE(win::WriteDwordValue(key.get(), L"LoadBehavior", 0));
  }
  ASSERT_EQ(register_(), S_OK);
  EXPECT_EQ(DwordValue(HKEY_CURRENT_USER, kAddinKey, L"LoadBehavior"), 0u);

  ASSERT_EQ(unregister_(), S_OK);
  ExpectNothingLeft(HKEY_CURRENT_USER);
  EXPECT_TRUE(KeyExists(HKEY_CURRENT_USER, L"Software\\Microsoft\\VBA\\VBE\\6.0\\Addins64"));
  // Nothing to remove is no failure.
  EXPECT_EQ(unregister_(), S_OK);
}

TEST_F(AddinHostTest, RegistersPerMachineThroughDllInstall) {
  ASSERT_EQ(install_(TRUE, L"machine"), S_OK);
  ExpectRegistered(HKEY_LOCAL_MACHINE);
  EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, kClassKey));
  ASSERT_EQ(install_(FALSE, L"machine"), S_OK);
  ExpectNothingLeft(HKEY_LOCAL_MACHINE);

  EXPECT_EQ(install_(TRUE, L"user"), S_OK);
  ExpectRegistered(HKEY_CURRENT_USER);
  EXPECT_EQ(install_(TRUE, L"everybody"), E_INVALIDARG);
}

std::shared_ptr<ide::ICommandBar> FindBar(ide::memory::MemoryVbe& memory, std::string_view name) {
  const auto bars = memory.CommandBars();
  for (int i = 1; i <= bars->Count(); ++i) {
    if (bars->Item(i)->Name() == name) return bars->Item(i);
  }
  return nullptr;
}

// The first control with that caption, in pop-ups too.
std::shared_ptr<ide::ICommandBarControl> FindCaption(ide::ICommandBarControls& controls,
                                                     std::string_view caption) {
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    if (control->Caption() == caption) return control;
    if (control->Type() == ide::ControlType::kPopup) {
      if (auto found = FindCaption(*control->Controls(), caption)) return found;
    }
  }
  return nullptr;
}

// What the IDE does at each connection: create the add-in from its ProgID,
// connect it, let it work, disconnect it and let it go.
class Cycle {
 public:
  explicit Cycle(bool late_bound) : late_bound_(late_bound) {}

  void Run() {
    const long live_before = LiveHostObjects();
    auto memory = ide::memory::MemoryVbe::Create();
    const auto component = OpenModule(*memory);
    ComPtr<IDispatch> vbe = MakeHostVbe(memory);
    // Odd connections imitate the VB6 IDE, whose command bars have no
    // Picture: the faces then go through the clipboard.
    memory->SetCommandBarsHavePicture(late_bound_);
    ComPtr<IDispatch> addin_instance =
        MakeHostAddIn(memory->RegisterAddIn("Tavrin.Connect", "Tavrin", true));

    CLSID clsid{};
    ASSERT_EQ(::CLSIDFromProgID(L"Tavrin.Connect", &clsid), S_OK);
    ComPtr<IDTExtensibility2> addin;
    ASSERT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER,
                                 __uuidof(IDTExtensibility2), addin.put_void()),
              S_OK);
    auto custom = win::SafeArray::EmptyVariants();
    SAFEARRAY* custom_array = custom.get();
    if (late_bound_) {
      const win::Dispatch events(ComPtr<IDispatch>(addin.get()),
                                 std::make_shared<win::DispIdCache>(), "Connect");
      std::vector<Variant> args;
      args.push_back(Variant::Object(vbe.get()));
      args.push_back(Variant::Long(0));  // after start-up, from the Add-In Manager
      args.push_back(Variant::Object(addin_instance.get()));
      args.push_back(CustomArgument(&custom_array));
      events.Call("OnConnection", std::move(args));
      events.Call("OnStartupComplete", OneArgument(CustomArgument(&custom_array)));
      WhileConnected(*memory);
      std::vector<Variant> disconnect;
      disconnect.push_back(Variant::Long(1));  // the user unloaded it
      disconnect.push_back(CustomArgument(&custom_array));
      events.Call("OnDisconnection", std::move(disconnect));
    } else {
      ASSERT_EQ(addin->OnConnection(vbe.get(), 1, addin_instance.get(), &custom_array), S_OK);
      ASSERT_EQ(addin->OnStartupComplete(&custom_array), S_OK);
      WhileConnected(*memory);
      ASSERT_EQ(addin->OnBeginShutdown(&custom_array), S_OK);
      ASSERT_EQ(addin->OnDisconnection(0, &custom_array), S_OK);
    }
    EXPECT_EQ(custom_array, custom.get()) << "the host's array is not the add-in's to replace";
    // Nothing of the add-in is left in the IDE.
    EXPECT_EQ(FindBar(*memory, "Tavrin"), nullptr);
    EXPECT_EQ(ConnectedHostSinks(), 0);
    // Disconnected, the add-in holds nothing of the IDE any more, although
    // the IDE has not let it go yet.
    vbe.reset();
    addin_instance.reset();
    EXPECT_EQ(LiveHostObjects(), live_before);
    addin.reset();
    // The same command on the in-memory IDE directly gives the same code,
    // but for the blank the command types: the add-in types it as a real
    // keystroke into the window that has the focus, the in-memory IDE into
    // the module.
    auto oracle = ide::memory::MemoryVbe::Create();
    const auto oracle_component = OpenModule(*oracle);
    RunCommand(*oracle);
    const ide::TextRange caret = oracle_component->CodePane()->GetSelection();
    const auto oracle_module = oracle_component->CodeModule();
    std::string typed_line = oracle_module->Lines(caret.start_line, 1);
    ASSERT_EQ(typed_line.at(static_cast<std::size_t>(caret.start_column) - 2), ' ');
    typed_line.erase(static_cast<std::size_t>(caret.start_column) - 2, 1);
    oracle_module->ReplaceLine(caret.start_line, typed_line);
    EXPECT_EQ(component->SourceBytes(), oracle_component->SourceBytes());
    EXPECT_NE(component->SourceBytes(), kModule);
  }

 private:
  static Variant CustomArgument(SAFEARRAY** array) {
    Variant argument;
    argument.get()->vt = VT_ARRAY | VT_VARIANT | VT_BYREF;
    argument.get()->pparray = array;
    return argument;
  }
  static std::vector<Variant> OneArgument(Variant argument) {
    std::vector<Variant> args;
    args.push_back(std::move(argument));
    return args;
  }
  static constexpr char kModule[] = "Option Explicit\r\n\r\nSub Main()\r\nEnd Sub\r\n";

  static std::shared_ptr<ide::memory::MemoryComponent> OpenModule(
      ide::memory::MemoryVbe& memory) {
    auto component = memory.AddProject("Project1")->AddComponent(
        ide::ComponentType::kStdModule, "Module1", kModule);
    component->CodePane()->Show();
    component->CodePane()->SetSelection({3, 11, 3, 11});
    return component;
  }
  // What the user sees and does while the add-in is connected: the
  // toolbar, its faces, and a click on "If Then" in the "&Tavrin" menu.
  static void WhileConnected(ide::memory::MemoryVbe& memory);
  static void RunCommand(ide::IVbe& vbe) {
    tavrin::testing::FakeUi ui;
    platform::FixedIdeOptions options;
    addin::Context context{vbe, ui, options};
    ASSERT_TRUE(addin::InsertCodeLines(context, "If Then"));
  }

  bool late_bound_;
};

void Cycle::WhileConnected(ide::memory::MemoryVbe& memory) {
  const auto toolbar = FindBar(memory, "Tavrin");
  ASSERT_NE(toolbar, nullptr);
  const auto controls = toolbar->Controls();
  ASSERT_GT(controls->Count(), 10);
  const auto first = controls->Item(1);
  EXPECT_EQ(first->Caption(), "&Add Variable...");
  EXPECT_EQ(first->TooltipText(), "&Add Variable...");
  EXPECT_EQ(first->Style(), ide::ButtonStyle::kIcon);
  memory.SetCommandBarsHavePicture(true);
  EXPECT_FALSE(first->GetPicture().bmp.empty()) << "the button has its face";
  EXPECT_GT(ConnectedHostSinks(), 0);

  const auto if_then = FindCaption(*controls, "&Then");
  ASSERT_NE(if_then, nullptr);
  if_then->Execute();
  // The IDE's events reach the add-in and are dropped without a fuss.
  const auto component = memory.VBProjects()->Item(1)->VBComponents()->Item(1);
  memory.MemoryEventHub()->RaiseComponentRenamed(component, "Module0");
  memory.MemoryEventHub()->RaiseProjectActivated(memory.VBProjects()->Item(1));
}

// Every setting in its file and a developer known: connecting asks no
// first-run questions and opens no settings dialog.
void SeedSettings() {
  struct NoDialog : settings::SettingsDialog {
    void ShowModal() override { ADD_FAILURE() << "a settings dialog"; }
  } dialog;
  platform::StdFileSystem files;
  win::PrivateProfileFile profiles;
  tavrin::testing::FakeUi ui;
  settings::ValueTable values;
  settings::LoadValueTable(
      values, settings::SettingsServices{profiles, files, ui, dialog, win::WideToUtf8(ExeFolder())},
      false);
  ::WritePrivateProfileStringW(L"Developer", L"Developer", L"Test Host",
                               (ExeFolder() + L"tvrusr.ini").c_str());
}

TEST_F(AddinHostTest, TenConnectionsLeakNothing) {
  SeedSettings();
  ASSERT_EQ(register_(), S_OK);
  // Wine does not look up classes registered per user; a per-machine
  // registration next to it lets COM find the class there too.
  ASSERT_EQ(install_(TRUE, L"machine"), S_OK);
  for (int i = 0; i < 10; ++i) {
    SCOPED_TRACE("connection " + std::to_string(i + 1));
    const long before = LiveHostObjects();
    Cycle(i % 2 == 1).Run();
    EXPECT_EQ(LiveHostObjects(), before);
  }
  ::CoFreeUnusedLibraries();
  EXPECT_EQ(can_unload_(), S_OK);
  ASSERT_EQ(unregister_(), S_OK);
  ASSERT_EQ(install_(FALSE, L"machine"), S_OK);
  ExpectNothingLeft(HKEY_CURRENT_USER);
  ExpectNothingLeft(HKEY_LOCAL_MACHINE);
}

TEST_F(AddinHostTest, ClassObjectKeepsTheDllWhileLocked) {
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get_class_object = Function<GetClassObject>("DllGetClassObject");
  ASSERT_NE(get_class_object, nullptr);
  CLSID clsid{};
  ASSERT_EQ(::CLSIDFromString(kClsid, &clsid), S_OK);
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(get_class_object(clsid, IID_IClassFactory, factory.put_void()), S_OK);
  EXPECT_EQ(can_unload_(), S_FALSE);
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  factory.reset();
  EXPECT_EQ(can_unload_(), S_FALSE);
  ASSERT_EQ(get_class_object(clsid, IID_IClassFactory, factory.put_void()), S_OK);
  ASSERT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, nullptr), E_POINTER);
  ComPtr<IUnknown> aggregated;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, aggregated.put_void()),
            CLASS_E_NOAGGREGATION);
  factory.reset();
  EXPECT_EQ(can_unload_(), S_OK);
  EXPECT_EQ(get_class_object(IID_IDispatch, IID_IClassFactory, factory.put_void()),
            CLASS_E_CLASSNOTAVAILABLE);
}

}  // namespace
}  // namespace tavrin::test_host
