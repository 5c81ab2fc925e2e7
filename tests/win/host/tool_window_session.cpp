#include "tests/win/host/tool_window_session.h"

#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_project.h"
#include "platform/std_file_system.h"
#include "settings/settings_load.h"
#include "tests/support/fake_ui.h"
#include "tests/win/host/host_command_bars.h"
#include "tests/win/host/host_ide.h"
#include "win/com_values.h"
#include "win/private_profile_file.h"

namespace tavrin::test_host {
namespace {

using Export = HRESULT(STDAPICALLTYPE*)();
using InstallExport = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

std::wstring ExeFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

template <class F>
F Function(HMODULE dll, const char* name) {
  return reinterpret_cast<F>(reinterpret_cast<void*>(::GetProcAddress(dll, name)));
}

BOOL CALLBACK AddText(HWND child, LPARAM texts) {
  wchar_t text[512] = L"";
  ::GetWindowTextW(child, text, 512);
  *reinterpret_cast<std::wstring*>(texts) += std::wstring(L" ") + text;
  return TRUE;
}

// A message box of the add-in would wait for nobody: close it, keep its text.
LRESULT CALLBACK CloseDialogs(int code, WPARAM wparam, LPARAM lparam) {
  if (code == HCBT_ACTIVATE) {
    const auto dialog = reinterpret_cast<HWND>(wparam);
    wchar_t class_name[32] = L"";
    ::GetClassNameW(dialog, class_name, 32);
    if (std::wstring(class_name) == L"#32770") {
      std::wstring texts;
      ::EnumChildWindows(dialog, &AddText, reinterpret_cast<LPARAM>(&texts));
      ToolWindowDllTest::Dialogs().push_back(win::WideToUtf8(texts));
      ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
      ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    }
  }
  return ::CallNextHookEx(nullptr, code, wparam, lparam);
}

// Every setting in its file and a developer known: connecting asks no
// first-run questions.
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

}  // namespace

std::vector<std::string>& ToolWindowDllTest::Dialogs() {
  static std::vector<std::string> dialogs;
  return dialogs;
}

void ToolWindowDllTest::SetUpTestSuite() {
  ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  dll_ = ::LoadLibraryW((ExeFolder() + L"Tavrin.dll").c_str());
  ASSERT_NE(dll_, nullptr);
  ASSERT_EQ(Function<Export>(dll_, "DllRegisterServer")(), S_OK);
  // Wine finds classes registered per machine only.
  ASSERT_EQ(Function<InstallExport>(dll_, "DllInstall")(TRUE, L"machine"), S_OK);
  SeedSettings();
}

void ToolWindowDllTest::TearDownTestSuite() {
  if (dll_) {
    Function<Export>(dll_, "DllUnregisterServer")();
    Function<InstallExport>(dll_, "DllInstall")(FALSE, L"machine");
    ::FreeLibrary(dll_);
    dll_ = nullptr;
  }
  ::CoUninitialize();
}

void ToolWindowDllTest::SetUp() {
  hook_.reset(::SetWindowsHookExW(WH_CBT, &CloseDialogs, nullptr, ::GetCurrentThreadId()));
}

void ToolWindowDllTest::TearDown() {
  PumpMessages();
  EXPECT_TRUE(Dialogs().empty()) << Dialogs().front();
  Dialogs().clear();
}

ToolWindowSession::ToolWindowSession() : files_(std::make_unique<platform::StdFileSystem>()) {
  memory_ = ide::memory::MemoryVbe::Create();
  memory_->SetFileSystem(files_.get());
  auto project = memory_->OpenProject(*files_, TAVRIN_SOURCE_DIR "/sample/Inventory.vbp");
  EXPECT_TRUE(project) << project.error();
  vbe_ = MakeHostVbe(memory_);
  addin_instance_ = MakeHostAddIn(memory_->RegisterAddIn("Tavrin.Connect", "Tavrin", true));
  CLSID clsid{};
  EXPECT_EQ(::CLSIDFromProgID(L"Tavrin.Connect", &clsid), S_OK);
  EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDTExtensibility2),
                               addin_.put_void()),
            S_OK);
  if (addin_) addin_->OnConnection(vbe_.get(), 1, addin_instance_.get(), &custom_);
}

ToolWindowSession::~ToolWindowSession() {
  if (addin_) addin_->OnDisconnection(1, &custom_);
}

std::shared_ptr<HostToolFrame> ToolWindowSession::Frame(const wchar_t* prog_id) {
  for (auto& frame : OpenToolFrames()) {
    if (frame->ProgId() != prog_id) continue;
    frame->Resize(300, 420);
    ::ShowWindow(frame->Frame(), SW_SHOW);
    ::SetForegroundWindow(frame->Frame());
    return frame;
  }
  ADD_FAILURE() << "no window " << win::WideToUtf8(prog_id);
  return nullptr;
}

namespace {

std::wstring TreeText(HWND tree, HTREEITEM item) {
  wchar_t text[256] = L"";
  TVITEMW data{};
  data.mask = TVIF_TEXT;
  data.hItem = item;
  data.pszText = text;
  data.cchTextMax = 256;
  TreeView_GetItem(tree, &data);
  return text;
}

HTREEITEM FindUnder(HWND tree, HTREEITEM item, std::wstring_view path) {
  const std::size_t slash = path.find(L'/', 1);
  const std::wstring_view caption = path.substr(1, slash == path.npos ? path.npos : slash - 1);
  for (; item; item = TreeView_GetNextSibling(tree, item)) {
    if (TreeText(tree, item) != caption) continue;
    if (slash == path.npos) return item;
    return FindUnder(tree, TreeView_GetChild(tree, item), path.substr(slash));
  }
  return nullptr;
}

}  // namespace

HTREEITEM FindTreeItem(HWND tree, std::wstring_view path) {
  return FindUnder(tree, TreeView_GetRoot(tree), path);
}

std::string ActiveComponentName(ide::memory::MemoryVbe& memory) {
  const auto pane = memory.ActiveCodePane();
  return pane ? pane->CodeModule()->Parent()->Name() : std::string();
}

int CaretLine(ide::memory::MemoryVbe& memory) {
  const auto pane = memory.ActiveCodePane();
  return pane ? pane->GetSelection().start_line : 0;
}

void PumpMessages() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace tavrin::test_host
