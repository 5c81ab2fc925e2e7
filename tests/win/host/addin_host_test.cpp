// The real Tavrin.dll in the test host: registered through its own exports
// as regsvr32 would, created from its ProgID as the IDE creates it, and
// connected and disconnected over and over as the IDE's Add-In Manager can.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "addin/code_lines.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/ide_options.h"
#include "tests/support/code_lines.h"
#include "tests/support/fake_ui.h"
#include "tests/win/host/host_ide.h"
#include "win/com_ide.h"
#include "win/com_values.h"
#include "win/dispatch.h"
#include "win/extensibility.h"
#include "win/registry.h"

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
    EXPECT_TRUE(StringValue(root, kAddinKey, L"Description").has_value());
    EXPECT_EQ(DwordValue(root, kAddinKey, L"LoadBehavior"), 3u);
    EXPECT_EQ(DwordValue(root, kAddinKey, L"CommandLineSafe"), 0u);
  }

  static void ExpectNothingLeft(HKEY root) {
    for (const wchar_t* path : {kClassKey, kProgIdKey, kAddinKey}) {
      EXPECT_FALSE(KeyExists(root, path)) << win::WideToUtf8(path);
    }
  }

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
    ComPtr<IDispatch> addin_instance = MakeHostObject({
        Property(L"ProgId", [] { return Variant::String("Tavrin.Connect"); }),
        Property(L"Connect", [] { return Variant::Bool(true); }),
    });

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
      RunCommand(memory, vbe);
      std::vector<Variant> disconnect;
      disconnect.push_back(Variant::Long(1));  // the user unloaded it
      disconnect.push_back(CustomArgument(&custom_array));
      events.Call("OnDisconnection", std::move(disconnect));
    } else {
      ASSERT_EQ(addin->OnConnection(vbe.get(), 1, addin_instance.get(), &custom_array), S_OK);
      ASSERT_EQ(addin->OnStartupComplete(&custom_array), S_OK);
      RunCommand(memory, vbe);
      ASSERT_EQ(addin->OnBeginShutdown(&custom_array), S_OK);
      ASSERT_EQ(addin->OnDisconnection(0, &custom_array), S_OK);
    }
    EXPECT_EQ(custom_array, custom.get()) << "the host's array is not the add-in's to replace";
    // Disconnected, the add-in holds nothing of the IDE any more, although
    // the IDE has not let it go yet.
    vbe.reset();
    addin_instance.reset();
    EXPECT_EQ(LiveHostObjects(), live_before);
    addin.reset();
    // The same command on the in-memory IDE directly gives the same code.
    auto oracle = ide::memory::MemoryVbe::Create();
    const auto oracle_component = OpenModule(*oracle);
    RunCommand(*oracle);
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
  // A code command on the module through the object model over COM.
  static void RunCommand(const std::shared_ptr<ide::memory::MemoryVbe>& memory,
                         const ComPtr<IDispatch>& vbe);
  static void RunCommand(ide::IVbe& vbe) {
    tavrin::testing::FakeUi ui;
    platform::FixedIdeOptions options;
    addin::Context context{vbe, ui, options};
    ASSERT_TRUE(addin::InsertCodeLines(context, "If Then"));
  }

  bool late_bound_;
};

void Cycle::RunCommand(const std::shared_ptr<ide::memory::MemoryVbe>& memory,
                       const ComPtr<IDispatch>& vbe) {
  const auto ide = win::MakeComVbe(vbe, [&](std::string_view keys) { memory->SendKeys(keys); });
  RunCommand(*ide);
}

TEST_F(AddinHostTest, TenConnectionsLeakNothing) {
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
