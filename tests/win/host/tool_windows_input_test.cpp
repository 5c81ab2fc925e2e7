// The tool windows of the real Tavrin.dll over forms and projects beyond
// the sample: a form with a frame and a tabbed container, whose controls
// the Tab order window places behind their containers (read through
// VBControl.Container), and a project with a component the IDE cannot
// open, which the Code Explorer lists as such without a message.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/win/host/host_dialogs_fixture.h"
#include "tests/win/host/host_tool_windows.h"
#include "tests/win/host/screenshot.h"
#include "win/tool_panes.h"

namespace tavrin::test_host {
namespace {

// Message boxes of the add-in would wait for nobody: closed, their texts
// kept.
std::vector<std::wstring> g_boxes;
LRESULT CALLBACK CloseBoxes(int code, WPARAM wparam, LPARAM lparam) {
  if (code == HCBT_ACTIVATE) {
    const auto box = reinterpret_cast<HWND>(wparam);
    wchar_t class_name[32] = L"", title[256] = L"";
    ::GetClassNameW(box, class_name, 32);
    if (std::wstring(class_name) == L"#32770") {
      ::GetWindowTextW(box, title, 256);
      g_boxes.push_back(title);
      ::PostMessageW(box, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    }
  }
  return ::CallNextHookEx(nullptr, code, wparam, lparam);
}

std::wstring ListText(HWND list, int row, int column) {
  wchar_t text[256] = L"";
  ListView_GetItemText(list, row, column, text, 256);
  return text;
}

class ToolWindowsInputTest : public HostDialogsTest {
 protected:
  void SetUp() override {
    hook_.reset(::SetWindowsHookExW(WH_CBT, &CloseBoxes, nullptr, ::GetCurrentThreadId()));
    g_boxes.clear();
  }
  void TearDown() override {
    HostDialogsTest::TearDown();
    EXPECT_TRUE(g_boxes.empty()) << win::WideToUtf8(g_boxes.front());
  }
  // Opens the project, lets `prepare` change the IDE, connects the add-in.
  void Open(const char* vbp, const std::function<void(ide::memory::MemoryVbe&)>& prepare) {
    main_window_.reset(::CreateWindowExW(0, L"STATIC", L"Microsoft Visual Basic",
                                         WS_OVERLAPPEDWINDOW, 0, 0, 900, 700, nullptr, nullptr,
                                         nullptr, nullptr));
    memory_ = ide::memory::MemoryVbe::Create();
    memory_->SetFileSystem(&files_);
    const auto project = memory_->OpenProject(files_, vbp);
    ASSERT_TRUE(project) << project.error();
    prepare(*memory_);
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
  std::shared_ptr<ide::memory::MemoryComponent> Component(std::string_view name) {
    return std::dynamic_pointer_cast<ide::memory::MemoryComponent>(
        memory_->VBProjects()->Item(1)->VBComponents()->Item(name));
  }
  std::shared_ptr<HostToolFrame> Frame(const wchar_t* prog_id) {
    for (auto& frame : OpenToolFrames()) {
      if (frame->ProgId() != prog_id) continue;
      frame->Resize(300, 460);
      ::ShowWindow(frame->Frame(), SW_SHOW);
      return frame;
    }
    return nullptr;
  }

  static inline platform::StdFileSystem files_;  // outlives the IDE that uses it
  win::UniqueHhook hook_;
};

TEST_F(ToolWindowsInputTest, TabOrderPlacesChildrenBehindTheirContainers) {
  Open(TAVRIN_SOURCE_DIR "/tests/fixtures/tabs/Tabs.vbp", [](ide::memory::MemoryVbe&) {});
  const auto form = Component("frmTabs");
  ASSERT_NE(form, nullptr);
  memory_->ActivateWindow(form->DesignerWindow());
  Click("&Tab Order...");
  const auto frame = Frame(L"Tavrin.docTabOrder");
  ASSERT_NE(frame, nullptr);
  const HWND control = frame->ControlWindow();
  const HWND list = ::GetDlgItem(control, win::kTabOrderListId);
  ::SendMessageW(control, WM_COMMAND, MAKEWPARAM(win::kByPositionId, BN_CLICKED),
                 reinterpret_cast<LPARAM>(::GetDlgItem(control, win::kByPositionId)));
  // The IDE names no tab of a child: the current tab's stand in place, the
  // others (moved far left) are grouped after them.
  const std::vector<std::wstring> expected = {
      L"lblName", L"txtName", L"fraKind", L"   optKind(0)", L"   optKind(1)", L"tabCustomer",
      L"   [tabCustomer - Tab 1: Address]", L"      txtStreet", L"      fraPost",
      L"         txtCity", L"         txtZip", L"   [tabCustomer - other tabs]",
      L"      txtPhone", L"      txtMail", L"cmdOK"};
  std::vector<std::wstring> shown;
  for (int row = 0; row < ListView_GetItemCount(list); ++row) shown.push_back(ListText(list, row, 0));
  EXPECT_EQ(shown, expected);
  ::SendMessageW(control, WM_COMMAND, MAKEWPARAM(win::kApplyId, BN_CLICKED),
                 reinterpret_cast<LPARAM>(::GetDlgItem(control, win::kApplyId)));
  const struct {
    const char* name;
    const char* tab_index;
  } kWritten[] = {{"lblName", "0"},  {"fraKind", "2"}, {"tabCustomer", "5"}, {"txtStreet", "6"},
                  {"fraPost", "7"},  {"txtCity", "8"}, {"txtZip", "9"},      {"txtPhone", "10"},
                  {"cmdOK", "12"}};
  const auto controls = form->Designer()->VBControls();
  for (const auto& written : kWritten)
    EXPECT_EQ(controls->Item(written.name)->Properties()->Item("TabIndex")->Value(),
              written.tab_index)
        << written.name;
  SaveWindowPng(frame->Frame(), L"tab_order_containers");
}

TEST_F(ToolWindowsInputTest, CodeExplorerListsAComponentItCannotRead) {
  Open(TAVRIN_SOURCE_DIR "/sample/Inventory.vbp", [](ide::memory::MemoryVbe& memory) {
    std::dynamic_pointer_cast<ide::memory::MemoryComponent>(
        memory.VBProjects()->Item(1)->VBComponents()->Item("frmAbout"))
        ->SetUnreadable(true);
  });
  const auto frame = Frame(L"Tavrin.docCodeExplorer");
  ASSERT_NE(frame, nullptr);
  const HWND tree = ::GetDlgItem(frame->ControlWindow(), win::kExplorerTreeId);
  std::vector<std::wstring> forms;
  HTREEITEM folder = TreeView_GetChild(tree, TreeView_GetRoot(tree));
  for (; folder; folder = TreeView_GetNextSibling(tree, folder)) {
    wchar_t text[256] = L"";
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 256;
    item.hItem = folder;
    TreeView_GetItem(tree, &item);
    if (std::wstring(text) != L"Forms") continue;
    for (HTREEITEM form = TreeView_GetChild(tree, folder); form;
         form = TreeView_GetNextSibling(tree, form)) {
      item.hItem = form;
      TreeView_GetItem(tree, &item);
      forms.push_back(text);
    }
  }
  EXPECT_EQ(forms, (std::vector<std::wstring>{L"frmAbout (cannot be read)", L"frmMain"}));
  // An event about it reads it again, quietly.
  memory_->VBProjects()->Item(1)->VBComponents()->Add(ide::ComponentType::kStdModule);
  SaveWindowPng(frame->Frame(), L"code_explorer_unreadable");
}

}  // namespace
}  // namespace tavrin::test_host
