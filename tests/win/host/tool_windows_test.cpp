// The three tool windows of the real Tavrin.dll, created by the test host's
// Windows.CreateToolWindow as the IDE creates them: sited and activated in
// real frame windows, with the sample project loaded. The tests look at
// the windows' controls, act on them as a user does, check the code panes,
// and leave a screenshot of each window in build/win64/screenshots.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ide/command_bars.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_command_bars.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"
#include "settings/settings_load.h"
#include "tests/support/fake_ui.h"
#include "tests/win/host/host_command_bars.h"
#include "tests/win/host/host_ide.h"
#include "tests/win/host/host_tool_windows.h"
#include "tests/win/host/screenshot.h"
#include "win/com_values.h"
#include "win/extensibility.h"
#include "win/private_profile_file.h"
#include "win/tool_panes.h"

namespace tavrin::test_host {
namespace {

using Export = HRESULT(STDAPICALLTYPE*)();
using InstallExport = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

std::wstring ExeFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L"\\/") + 1);
}

BOOL CALLBACK AddText(HWND child, LPARAM texts) {
  wchar_t text[512] = L"";
  ::GetWindowTextW(child, text, 512);
  *reinterpret_cast<std::wstring*>(texts) += std::wstring(L" ") + text;
  return TRUE;
}

// A message box of the add-in would wait for nobody: close it, keep its text.
std::vector<std::string> g_dialogs;
LRESULT CALLBACK CloseDialogs(int code, WPARAM wparam, LPARAM lparam) {
  if (code == HCBT_ACTIVATE) {
    const auto dialog = reinterpret_cast<HWND>(wparam);
    wchar_t class_name[32] = L"";
    ::GetClassNameW(dialog, class_name, 32);
    if (std::wstring(class_name) != L"#32770") return ::CallNextHookEx(nullptr, code, wparam, lparam);
    std::wstring texts;
    ::EnumChildWindows(dialog, &AddText, reinterpret_cast<LPARAM>(&texts));
    g_dialogs.push_back(win::WideToUtf8(texts));
    ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
  }
  return ::CallNextHookEx(nullptr, code, wparam, lparam);
}

// The IDE with the sample project and the add-in connected to it.
class Session {
 public:
  Session() {
    memory_ = ide::memory::MemoryVbe::Create();
    memory_->SetFileSystem(&files_);
    auto project = memory_->OpenProject(files_, TAVRIN_SOURCE_DIR "/sample/Inventory.vbp");
    EXPECT_TRUE(project) << project.error();
    vbe_ = MakeHostVbe(memory_);
    addin_instance_ = MakeHostAddIn(memory_->RegisterAddIn("Tavrin.Connect", "Tavrin", true));
    CLSID clsid{};
    EXPECT_EQ(::CLSIDFromProgID(L"Tavrin.Connect", &clsid), S_OK);
    EXPECT_EQ(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER,
                                 __uuidof(IDTExtensibility2), addin_.put_void()),
              S_OK);
    if (addin_) addin_->OnConnection(vbe_.get(), 1, addin_instance_.get(), &custom_);
  }
  ~Session() {
    if (addin_) addin_->OnDisconnection(1, &custom_);
  }

  ide::memory::MemoryVbe& Memory() { return *memory_; }
  std::shared_ptr<ide::IComponent> Component(std::string_view name) {
    return memory_->VBProjects()->Item(1)->VBComponents()->Item(name);
  }
  // The window of that class, shown as the user opens it.
  std::shared_ptr<HostToolFrame> Frame(const wchar_t* prog_id) {
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

 private:
  platform::StdFileSystem files_;
  std::shared_ptr<ide::memory::MemoryVbe> memory_;
  ComPtr<IDispatch> vbe_;
  ComPtr<IDispatch> addin_instance_;
  ComPtr<IDTExtensibility2> addin_;
  SAFEARRAY* custom_ = nullptr;
};

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

// Every item of the tree, depth first, with the path of captions above it.
void CollectTree(HWND tree, HTREEITEM item, const std::wstring& path,
                 std::vector<std::pair<std::wstring, HTREEITEM>>& items) {
  for (; item; item = TreeView_GetNextSibling(tree, item)) {
    const std::wstring here = path + L"/" + TreeText(tree, item);
    items.emplace_back(here, item);
    CollectTree(tree, TreeView_GetChild(tree, item), here, items);
  }
}

HTREEITEM FindItem(HWND tree, const std::wstring& path) {
  std::vector<std::pair<std::wstring, HTREEITEM>> items;
  CollectTree(tree, TreeView_GetRoot(tree), L"", items);
  for (const auto& [item_path, item] : items)
    if (item_path == path) return item;
  return nullptr;
}

std::wstring ListText(HWND list, int row, int column) {
  wchar_t text[256] = L"";
  ListView_GetItemText(list, row, column, text, 256);
  return text;
}

void Pump() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

std::shared_ptr<ide::ICommandBarControl> FindIn(ide::ICommandBarControls& controls,
                                                std::string_view caption) {
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    if (control->Caption() == caption) return control;
    if (control->Type() == ide::ControlType::kPopup)
      if (auto found = FindIn(*control->Controls(), caption)) return found;
  }
  return nullptr;
}
std::shared_ptr<ide::ICommandBarControl> FindMenuEntry(ide::memory::MemoryVbe& memory,
                                                       std::string_view caption) {
  const auto bars = memory.CommandBars();
  for (int i = 1; i <= bars->Count(); ++i)
    if (auto found = FindIn(*bars->Item(i)->Controls(), caption)) return found;
  return nullptr;
}

ide::TextRange Caret(ide::memory::MemoryVbe& memory) {
  const auto pane = memory.ActiveCodePane();
  return pane ? pane->GetSelection() : ide::TextRange{};
}
std::string ActiveComponent(ide::memory::MemoryVbe& memory) {
  const auto pane = memory.ActiveCodePane();
  return pane ? pane->CodeModule()->Parent()->Name() : std::string();
}

int ToStringLine(Session& session) {
  return session.Component("clsStockItem")->CodeModule()->ProcBodyLine("ToString", ide::ProcKind::kProc);
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

class ToolWindowsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    dll_ = ::LoadLibraryW((ExeFolder() + L"Tavrin.dll").c_str());
    ASSERT_NE(dll_, nullptr);
    register_ = Function<Export>("DllRegisterServer");
    unregister_ = Function<Export>("DllUnregisterServer");
    install_ = Function<InstallExport>("DllInstall");
    ASSERT_EQ(register_(), S_OK);
    // Wine finds classes registered per machine only.
    ASSERT_EQ(install_(TRUE, L"machine"), S_OK);
    SeedSettings();
  }
  static void TearDownTestSuite() {
    unregister_();
    install_(FALSE, L"machine");
    ::FreeLibrary(dll_);
    ::CoUninitialize();
  }
  void SetUp() override {
    hook_.reset(::SetWindowsHookExW(WH_CBT, &CloseDialogs, nullptr, ::GetCurrentThreadId()));
  }
  void TearDown() override {
    Pump();
    EXPECT_TRUE(g_dialogs.empty()) << g_dialogs.front();
    g_dialogs.clear();
  }
  template <class F>
  static F Function(const char* name) {
    return reinterpret_cast<F>(reinterpret_cast<void*>(::GetProcAddress(dll_, name)));
  }

  win::UniqueHhook hook_;
  static inline HMODULE dll_ = nullptr;
  static inline Export register_ = nullptr;
  static inline Export unregister_ = nullptr;
  static inline InstallExport install_ = nullptr;
};

TEST_F(ToolWindowsTest, RegistersEachControlAsAnActiveXControl) {
  for (const wchar_t* prog_id :
       {L"Tavrin.docTabOrder", L"Tavrin.docDirectAccess", L"Tavrin.docCodeExplorer"}) {
    CLSID clsid{};
    ASSERT_EQ(::CLSIDFromProgID(prog_id, &clsid), S_OK) << win::WideToUtf8(prog_id);
    LPOLESTR text = nullptr;
    ASSERT_EQ(::StringFromCLSID(clsid, &text), S_OK);
    const std::wstring key = std::wstring(L"Software\\Classes\\CLSID\\") + text;
    ::CoTaskMemFree(text);
    for (const wchar_t* sub : {L"\\Control", L"\\MiscStatus\\1", L"\\InprocServer32",
                               L"\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}"}) {
      HKEY opened = nullptr;
      EXPECT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, (key + sub).c_str(), 0, KEY_READ, &opened),
                ERROR_SUCCESS)
          << win::WideToUtf8(key + sub);
      if (opened) ::RegCloseKey(opened);
    }
  }
}

TEST_F(ToolWindowsTest, CodeExplorerShowsTheProjectAndGoesToMembers) {
  Session session;
  const auto frame = session.Frame(L"Tavrin.docCodeExplorer");
  ASSERT_NE(frame, nullptr);
  const HWND control = frame->ControlWindow();
  const HWND tree = ::GetDlgItem(control, win::kExplorerTreeId);
  ASSERT_NE(tree, nullptr);
  for (const wchar_t* path :
       {L"/Inventory/Modules/basMain/Main", L"/Inventory/Modules/basMain/LoadStock",
        L"/Inventory/Class Modules/clsStockItem/Quantity/Let", L"/Inventory/Forms/frmAbout",
        L"/Inventory/Forms/frmMain/cmdFind_Click"}) {
    EXPECT_NE(FindItem(tree, path), nullptr) << win::WideToUtf8(path);
  }
  // The control fills the frame, also after a resize.
  frame->Resize(360, 500);
  RECT frame_client{}, control_client{};
  ::GetClientRect(frame->Frame(), &frame_client);
  ::GetClientRect(control, &control_client);
  EXPECT_EQ(control_client.right, frame_client.right);
  EXPECT_EQ(control_client.bottom, frame_client.bottom);

  // A double-click on a member.
  TreeView_SelectItem(tree, FindItem(tree, L"/Inventory/Modules/basMain/StockLevel"));
  NMHDR click{tree, static_cast<UINT_PTR>(win::kExplorerTreeId), static_cast<UINT>(NM_DBLCLK)};
  ::SendMessageW(control, WM_NOTIFY, win::kExplorerTreeId, reinterpret_cast<LPARAM>(&click));
  EXPECT_EQ(ActiveComponent(session.Memory()), "basMain");
  const int line = session.Component("basMain")->CodeModule()->ProcBodyLine("StockLevel", ide::ProcKind::kProc);
  EXPECT_EQ(Caret(session.Memory()), (ide::TextRange{line, 1, line, 1}));
  // Enter on another, through the keys the IDE offers the control.
  TreeView_SelectItem(tree, FindItem(tree, L"/Inventory/Class Modules/clsStockItem/ToString"));
  frame->SendKey(tree, VK_RETURN);
  EXPECT_EQ(ActiveComponent(session.Memory()), "clsStockItem");
  EXPECT_EQ(Caret(session.Memory()).start_line, ToStringLine(session));

  // Type-ahead: only what matches, and the nodes above it.
  const HWND filter = ::GetDlgItem(control, win::kExplorerFilterId);
  ::SetWindowTextW(filter, L"stock");
  EXPECT_NE(FindItem(tree, L"/Inventory/Modules/basMain/StockLevel"), nullptr);
  EXPECT_EQ(FindItem(tree, L"/Inventory/Forms/frmAbout"), nullptr);
  ::SetWindowTextW(filter, L"");

  // A module added in the IDE appears in the tree.
  session.Memory().VBProjects()->Item(1)->VBComponents()->Add(ide::ComponentType::kStdModule);
  EXPECT_NE(FindItem(tree, L"/Inventory/Modules/Module1"), nullptr);
  TreeView_SelectItem(tree, FindItem(tree, L"/Inventory/Modules/basMain/LoadStock"));
  frame->Resize(300, 420);
  SaveWindowPng(frame->Frame(), L"code_explorer");
}

// The context bar opens on the node under the pointer, or on the selected
// one from the keyboard, and its entries act on that node.
TEST_F(ToolWindowsTest, CodeExplorerContextMenuOpensOnTheNode) {
  Session session;
  const auto frame = session.Frame(L"Tavrin.docCodeExplorer");
  ASSERT_NE(frame, nullptr);
  const HWND control = frame->ControlWindow();
  const HWND tree = ::GetDlgItem(control, win::kExplorerTreeId);
  const auto popup = std::dynamic_pointer_cast<ide::memory::MemoryCommandBar>(
      session.Memory().CommandBars()->Item("CodeExplorerPopUp"));
  ASSERT_NE(popup, nullptr);
  const HTREEITEM item = FindItem(tree, L"/Inventory/Forms/frmAbout");
  ASSERT_NE(item, nullptr);
  RECT rect{};
  TreeView_GetItemRect(tree, item, &rect, TRUE);
  POINT point{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  ::ClientToScreen(tree, &point);
  ::SetCursorPos(point.x, point.y);
  NMHDR click{tree, static_cast<UINT_PTR>(win::kExplorerTreeId), static_cast<UINT>(NM_RCLICK)};
  ::SendMessageW(control, WM_NOTIFY, win::kExplorerTreeId, reinterpret_cast<LPARAM>(&click));
  EXPECT_EQ(popup->PopupsShown(), 1);
  EXPECT_EQ(TreeView_GetSelection(tree), item) << "the node under the pointer";
  const auto add_module = FindIn(*popup->Controls(), "Add &Module");
  ASSERT_NE(add_module, nullptr);
  add_module->Execute();
  EXPECT_NE(FindItem(tree, L"/Inventory/Modules/Module1"), nullptr);
  EXPECT_EQ(ActiveComponent(session.Memory()), "Module1");
  // The keys that open a context menu, while the tree has the focus.
  ::SetFocus(tree);
  frame->SendKey(tree, VK_APPS);
  EXPECT_EQ(popup->PopupsShown(), 2);
}

TEST_F(ToolWindowsTest, SearchRanksAsYouTypeAndEnterGoesThere) {
  Session session;
  const auto frame = session.Frame(L"Tavrin.docDirectAccess");
  ASSERT_NE(frame, nullptr);
  const HWND control = frame->ControlWindow();
  const HWND edit = ::GetDlgItem(control, win::kSearchEditId);
  const HWND list = ::GetDlgItem(control, win::kSearchListId);
  ASSERT_NE(edit, nullptr);
  ::SetFocus(edit);
  ::SetWindowTextW(edit, L"stock");
  ASSERT_GE(ListView_GetItemCount(list), 4);
  // Prefix matches first, shorter names first, then by name.
  EXPECT_EQ(ListText(list, 0, 0), L"STOCK_FILE");
  EXPECT_EQ(ListText(list, 0, 1), L"Const");
  EXPECT_EQ(ListText(list, 1, 0), L"StockLevel");
  EXPECT_EQ(ListText(list, 1, 2), L"basMain");
  // Down goes into the list, Tab on to the builders' buttons: the control
  // takes these keys before the IDE does.
  frame->SendKey(edit, VK_DOWN);
  EXPECT_EQ(::GetFocus(), list);
  frame->SendKey(list, VK_TAB);
  EXPECT_EQ(::GetFocus(), ::GetDlgItem(control, win::kShortcutFirstId));
  ::SetWindowTextW(edit, L"TS");  // camel humps: ToString
  ASSERT_GE(ListView_GetItemCount(list), 1);
  EXPECT_EQ(ListText(list, 0, 0), L"ToString");
  frame->SendKey(edit, VK_RETURN);
  EXPECT_EQ(ActiveComponent(session.Memory()), "clsStockItem");
  EXPECT_EQ(Caret(session.Memory()).start_line, ToStringLine(session));
  ::SetWindowTextW(edit, L"st");
  SaveWindowPng(frame->Frame(), L"shortcuts_and_search");
}

TEST_F(ToolWindowsTest, TabOrderListsTheActiveFormAndWritesTheOrder) {
  Session session;
  auto form = std::dynamic_pointer_cast<ide::memory::MemoryComponent>(session.Component("frmMain"));
  ASSERT_NE(form, nullptr);
  session.Memory().ActivateWindow(form->DesignerWindow());
  // The user opens the window from the menu: "&Tools", "&Tab Order...".
  const auto menu = FindMenuEntry(session.Memory(), "&Tab Order...");
  ASSERT_NE(menu, nullptr);
  menu->Execute();
  const auto frame = session.Frame(L"Tavrin.docTabOrder");
  ASSERT_NE(frame, nullptr);
  const HWND control = frame->ControlWindow();
  const HWND list = ::GetDlgItem(control, win::kTabOrderListId);
  ASSERT_NE(list, nullptr);
  const int count = ListView_GetItemCount(list);
  ASSERT_GE(count, 3);
  const auto click = [&](int id) {
    ::SendMessageW(control, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                   reinterpret_cast<LPARAM>(::GetDlgItem(control, id)));
  };
  // The last control moved to the top, then written.
  const std::wstring last = ListText(list, count - 1, 0);
  win::SelectRow(list, count - 1);
  for (int i = 0; i < count - 1; ++i) click(win::kMoveUpId);
  EXPECT_EQ(ListText(list, 0, 0), last);
  click(win::kApplyId);
  EXPECT_EQ(ListText(list, 0, 0), last) << "read again from the form";
  SaveWindowPng(frame->Frame(), L"tab_order");
}

// Another container, ATL's, hosts the same control by its ProgID: it sites,
// activates and resizes it its own way.
TEST_F(ToolWindowsTest, AtlContainerHostsTheControl) {
  // Loaded at run time: no header declares these, and not every toolchain
  // has atl.dll's import library.
  using WinInit = BOOL(WINAPI*)();
  using GetControl = HRESULT(WINAPI*)(HWND, IUnknown**);
  const HMODULE atl = ::LoadLibraryW(L"atl.dll");
  ASSERT_NE(atl, nullptr);
  const auto AtlAxWinInit =
      reinterpret_cast<WinInit>(reinterpret_cast<void*>(::GetProcAddress(atl, "AtlAxWinInit")));
  const auto AtlAxGetControl = reinterpret_cast<GetControl>(
      reinterpret_cast<void*>(::GetProcAddress(atl, "AtlAxGetControl")));
  ASSERT_TRUE(AtlAxWinInit && AtlAxGetControl);
  ASSERT_TRUE(AtlAxWinInit());
  const HWND container =
      ::CreateWindowExW(0, L"AtlAxWin", L"Tavrin.docCodeExplorer", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                        60, 60, 280, 360, nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
  ASSERT_NE(container, nullptr);
  HWND window = nullptr;
  {
    ComPtr<IUnknown> control;
    ASSERT_EQ(AtlAxGetControl(container, control.put()), S_OK);
    const auto in_place = control.As<IOleInPlaceObject>();
    ASSERT_TRUE(in_place);
    in_place->GetWindow(&window);
    ASSERT_NE(window, nullptr);
    EXPECT_NE(::GetDlgItem(window, win::kExplorerTreeId), nullptr);
    ::SetWindowPos(container, nullptr, 0, 0, 420, 300, SWP_NOMOVE | SWP_NOZORDER);
    Pump();
    RECT container_client{}, control_client{};
    ::GetClientRect(container, &container_client);
    ::GetClientRect(window, &control_client);
    EXPECT_EQ(control_client.right, container_client.right);
    EXPECT_EQ(control_client.bottom, container_client.bottom);
  }
  ::DestroyWindow(container);
  Pump();
  EXPECT_FALSE(::IsWindow(window));
}

}  // namespace
}  // namespace tavrin::test_host
