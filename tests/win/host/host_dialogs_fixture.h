// The fixture of the tests that click a command of the real Tavrin.dll
// in the COM test host and play the user of the dialogs it opens: the DLL
// registered once per suite, an IDE whose main window is a real window,
// the command bars' controls found by caption, screenshots saved as PNG
// under screenshots/ beside the binaries.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

using namespace test_support;  // the robot's helpers, for the tests
using Export = HRESULT(STDAPICALLTYPE*)();
using InstallExport = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

inline std::wstring ExeFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

inline std::shared_ptr<ide::ICommandBarControl> FindCaption(ide::ICommandBarControls& controls,
                                                            std::string_view caption) {
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    if (control->Caption() == caption) return control;
    if (control->Type() == ide::ControlType::kPopup)
      if (auto found = FindCaption(*control->Controls(), caption)) return found;
  }
  return nullptr;
}

inline void Screenshot(HWND window, const wchar_t* name) {
  EXPECT_TRUE(SaveScreenshot(window, ScreenshotFolder(0) + name + L".png")) << name;
}

class HostDialogsTest : public ::testing::Test {
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
  // holding one module (a standard one unless told) with the caret on
  // `caret_line`.
  void Connect(const char* code, int caret_line,
               ide::ComponentType type = ide::ComponentType::kStdModule,
               const char* name = "Module1") {
    main_window_.reset(::CreateWindowExW(0, L"STATIC", L"Microsoft Visual Basic",
                                         WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                         nullptr, nullptr, nullptr));
    ASSERT_TRUE(main_window_) << "no display";
    memory_ = ide::memory::MemoryVbe::Create();
    component_ = memory_->AddProject("Project1")
                     ->AddComponent(type, name, code);
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

  // Clicks a command and plays its dialog: types into the fields of those
  // captions, saves the dialog before and after (SCREENSHOT and
  // SCREENSHOT-filled) and confirms with OK. Gives the preview shown last.
  std::wstring FillAndConfirm(const char* command, const wchar_t* title,
                              const std::wstring& screenshot,
                              const std::vector<std::pair<std::wstring, std::wstring>>& typed) {
    HWND dialog = nullptr;
    std::wstring preview;
    DialogRobot robot({
        [&] {
          if (!Opened(dialog, title, main_window_.get())) return false;
          Screenshot(dialog, screenshot.c_str());
          for (const auto& [caption, text] : typed) TypeInto(ControlOf(dialog, caption), text);
          return true;
        },
        [&] {
          Screenshot(dialog, (screenshot + L"-filled").c_str());
          preview = TextOf(ControlOf(dialog, L"Preview:"));
          ClickButton(ChildWithText(dialog, L"OK"));
          return true;
        },
    });
    Click(command);
    EXPECT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
    return preview;
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

}  // namespace tavrin::test_host
