// The builders' real dialogs in the add-in: the test host clicks a command
// of the real Tavrin.dll, finds the dialog owned by the IDE's main window,
// fills it through its controls as a user would, and checks the module and
// the caret. Each dialog is saved as a PNG (default and filled) under
// screenshots/ beside the binaries.
#include <gtest/gtest.h>

#include <string>

#include "ide/command_bars.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_command_bars.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"
#include "settings/settings_load.h"
#include "tests/support/fake_ui.h"
#include "tests/win/dialog_robot.h"
#include "tests/win/host/host_command_bars.h"
#include "tests/win/host/host_ide.h"
#include "tests/win/screenshot.h"
#include "win/com_values.h"
#include "win/extensibility.h"
#include "win/private_profile_file.h"

namespace tavrin::test_host {
namespace {

using namespace test_support;
using Export = HRESULT(STDAPICALLTYPE*)();
using InstallExport = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

std::wstring ExeFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

std::shared_ptr<ide::ICommandBarControl> FindCaption(ide::ICommandBarControls& controls,
                                                     std::string_view caption) {
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    if (control->Caption() == caption) return control;
    if (control->Type() == ide::ControlType::kPopup)
      if (auto found = FindCaption(*control->Controls(), caption)) return found;
  }
  return nullptr;
}

void Screenshot(HWND window, const wchar_t* name) {
  EXPECT_TRUE(SaveScreenshot(window, ScreenshotFolder(0) + name + L".png")) << name;
}

class BuilderDialogsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    dll_ = ::LoadLibraryW((ExeFolder() + L"Tavrin.dll").c_str());
    ASSERT_NE(dll_, nullptr);
    // Registered per machine as well: Wine finds classes there only.
    ASSERT_EQ(Function<Export>("DllRegisterServer")(), S_OK);
    ASSERT_EQ(Function<InstallExport>("DllInstall")(TRUE, L"machine"), S_OK);
    SeedSettings();
  }
  static void TearDownTestSuite() {
    Function<Export>("DllUnregisterServer")();
    Function<InstallExport>("DllInstall")(FALSE, L"machine");
    ::FreeLibrary(dll_);
    ::CoUninitialize();
  }
  template <class F>
  static F Function(const char* name) {
    return reinterpret_cast<F>(reinterpret_cast<void*>(::GetProcAddress(dll_, name)));
  }
  // Every setting in its file and a developer known: no first-run
  // questions.
  static void SeedSettings() {
    struct NoDialog : settings::SettingsDialog {
      void ShowModal() override {}
    } dialog;
    platform::StdFileSystem files;
    win::PrivateProfileFile profiles;
    tavrin::testing::FakeUi ui;
    settings::ValueTable values;
    settings::LoadValueTable(
        values,
        settings::SettingsServices{profiles, files, ui, dialog, win::WideToUtf8(ExeFolder())},
        false);
    ::WritePrivateProfileStringW(L"Developer", L"Developer", L"Test Host",
                                 (ExeFolder() + L"tvrusr.ini").c_str());
  }

  // Connects the add-in to an IDE whose main window is a real window,
  // holding one module with the caret on `caret_line`.
  void Connect(const char* code, int caret_line) {
    main_window_.reset(::CreateWindowExW(0, L"STATIC", L"Microsoft Visual Basic",
                                         WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                         nullptr, nullptr, nullptr));
    ASSERT_TRUE(main_window_) << "no display";
    memory_ = ide::memory::MemoryVbe::Create();
    component_ = memory_->AddProject("Project1")
                     ->AddComponent(ide::ComponentType::kStdModule, "Module1", code);
    component_->CodePane()->Show();
    component_->CodePane()->SetSelection({caret_line, 5, caret_line, 5});
    vbe_ = MakeHostVbe(memory_, main_window_.get());
    instance_ = MakeHostAddIn(memory_->RegisterAddIn("Tavrin.Connect", "Tavrin", true));
    CLSID clsid{};
    ASSERT_EQ(::CLSIDFromProgID(L"Tavrin.Connect", &clsid), S_OK);
    ASSERT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDTExtensibility2),
                                 addin_.put_void()),
              S_OK);
    SAFEARRAY* custom = nullptr;
    ASSERT_EQ(addin_->OnConnection(vbe_.get(), 1, instance_.get(), &custom), S_OK);
  }
  void TearDown() override {
    if (addin_) {
      SAFEARRAY* custom = nullptr;
      addin_->OnDisconnection(0, &custom);
    }
    addin_.reset();
    instance_.reset();
    vbe_.reset();
  }

  // Clicks a command of the "&Tavrin" menu or the toolbar; returns when
  // its dialogs are closed.
  void Click(std::string_view caption) {
    const auto bars = memory_->CommandBars();
    for (int i = 1; i <= bars->Count(); ++i)
      if (const auto control = FindCaption(*bars->Item(i)->Controls(), caption))
        return control->Execute();
    ADD_FAILURE() << "no control " << caption;
  }

  // The dialog with that title once it is open, checked to be owned by
  // `owner`.
  bool Opened(HWND& dialog, const wchar_t* title, HWND owner) {
    dialog = FindDialog(title);
    if (dialog) {
      EXPECT_EQ(::GetWindow(dialog, GW_OWNER), owner) << win::WideToUtf8(title);
    }
    return dialog != nullptr;
  }

  std::string Module() {
    const auto module = component_->CodeModule();
    return module->Lines(1, module->CountOfLines());
  }

  static inline HMODULE dll_ = nullptr;
  win::UniqueHwnd main_window_;
  std::shared_ptr<ide::memory::MemoryVbe> memory_;
  std::shared_ptr<ide::memory::MemoryComponent> component_;
  ComPtr<IDispatch> vbe_, instance_;
  ComPtr<IDTExtensibility2> addin_;
};

constexpr char kModule[] = "Option Explicit\r\n\r\nSub Main()\r\nEnd Sub\r\n";

TEST_F(BuilderDialogsTest, AddProcedureInsertsWhatTheDialogShows) {
  Connect(kModule, 3);
  HWND dialog = nullptr, argument = nullptr;
  std::wstring preview;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Add Procedure", main_window_.get())) return false;
        Screenshot(dialog, L"add-procedure");
        TypeInto(ControlOf(dialog, L"&Name:"), L"Total");
        PickItem(ControlOf(dialog, L"&Kind:"), 1);  // Function
        TypeInto(ControlOf(dialog, L"&Return type:"), L"Long");
        ClickButton(ChildWithText(dialog, L"A&dd..."));
        return true;
      },
      [&] {
        // The argument's own dialog belongs to the procedure's.
        if (!Opened(argument, L"Argument", dialog)) return false;
        Screenshot(argument, L"argument");
        TypeInto(ControlOf(argument, L"&Name:"), L"count");
        TypeInto(ControlOf(argument, L"&Type:"), L"Long");
        ::SendMessageW(ChildWithText(argument, L"By&Val"), BM_CLICK, 0, 0);
        Screenshot(argument, L"argument-filled");
        PressKey(VK_RETURN);
        return true;
      },
      [&] {
        if (!FindDialog(L"Add Procedure")) return false;
        Screenshot(dialog, L"add-procedure-filled");
        preview = TextOf(ControlOf(dialog, L"Preview:"));
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("Add P&rocedure...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  const std::string code = win::WideToUtf8(preview);
  EXPECT_NE(code.find("Function Total(ByVal count As Long) As Long"), std::string::npos) << code;
  EXPECT_EQ(Module(),
            std::string(kModule) + "\r\n" + code + (code.ends_with("\r\n") ? "" : "\r\n"));
  // The caret on the first line of the body, below the declaration and its
  // continuation lines.
  const auto module = component_->CodeModule();
  int body = module->ProcBodyLine("Total", ide::ProcKind::kProc);
  while (module->Lines(body, 1).ends_with(" _")) ++body;
  EXPECT_EQ(component_->CodePane()->GetSelection().start_line, body + 1);
}

TEST_F(BuilderDialogsTest, EscapeInAddProcedureInsertsNothing) {
  Connect(kModule, 3);
  DialogRobot robot({[&] {
    HWND dialog = nullptr;
    if (!Opened(dialog, L"Add Procedure", main_window_.get())) return false;
    TypeInto(ControlOf(dialog, L"&Name:"), L"Total");
    PressKey(VK_ESCAPE);
    return true;
  }});
  Click("Add P&rocedure...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(Module(), kModule);
}

constexpr char kLabels[] =
    "Sub Main()\r\n"
    "    On Error GoTo Failed\r\n"
    "    Debug.Print 1\r\n"
    "Done:\r\n"
    "    Exit Sub\r\n"
    "Failed:\r\n"
    "    Resume Done\r\n"
    "End Sub\r\n";

TEST_F(BuilderDialogsTest, GoToPicksTheLabelTypedAndSteeredTo) {
  Connect(kLabels, 3);
  HWND dialog = nullptr;
  std::wstring picked;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"GoTo", main_window_.get())) return false;
        Screenshot(dialog, L"goto");
        // "Done" starts with "d" and comes first, "Failed" holds one.
        TypeInto(ControlOf(dialog, L"&Find:"), L"d");
        ::SetFocus(ControlOf(dialog, L"&Find:"));
        PressKey(VK_DOWN);
        return true;
      },
      [&] {
        const HWND list = ChildOfClass(dialog, L"ListBox");
        wchar_t item[64] = L"";
        ::SendMessageW(list, LB_GETTEXT, ::SendMessageW(list, LB_GETCURSEL, 0, 0),
                       reinterpret_cast<LPARAM>(item));
        picked = item;
        Screenshot(dialog, L"goto-filled");
        PressKey(VK_RETURN);
        return true;
      },
  });
  Click("&GoTo...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(picked, L"Failed");
  // "On Error GoTo Failed", and the new line.
  const std::string module = Module();
  EXPECT_NE(module.find("GoTo Failed", module.find("GoTo Failed") + 1), std::string::npos)
      << module;
}

TEST_F(BuilderDialogsTest, EscapeInGoToInsertsNothing) {
  Connect(kLabels, 3);
  DialogRobot robot({[&] {
    HWND dialog = nullptr;
    if (!Opened(dialog, L"GoTo", main_window_.get())) return false;
    PressKey(VK_ESCAPE);
    return true;
  }});
  Click("&GoTo...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(Module(), kLabels);
}

}  // namespace
}  // namespace tavrin::test_host
