// The object model over COM (win/com_ide) against the test host's IDispatch
// IDE: every call crosses IDispatch::Invoke by name, so the adapter and the
// host agree on names, argument order, by-reference parameters and errors
// exactly as the add-in and a real IDE must.
#include "win/com_ide.h"

#include <gtest/gtest.h>

#include <functional>
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

namespace tavrin::test_host {
namespace {

using Lines = std::vector<std::string>;

constexpr char kModule[] =
    "Option Explicit\r\n"
    "\r\n"
    "' Adds two numbers.\r\n"
    "Public Function Add(a As Long, b As Long) As Long\r\n"
    "    Add = a + b\r\n"
    "End Function\r\n"
    "\r\n"
    "Public Property Get Total() As Long\r\n"
    "End Property";

constexpr char kForm[] =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmMain \r\n"
    "   Caption         =   \"Main\"\r\n"
    "   Begin VB.CommandButton cmdOk \r\n"
    "      Caption         =   \"&OK\"\r\n"
    "      TabIndex        =   0\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmMain\"\r\n"
    "Option Explicit\r\n";

int ErrorNumber(const std::function<void()>& action) {
  try {
    action();
  } catch (const ide::Error& error) {
    return error.number();
  }
  return 0;
}

class ComIdeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    baseline_ = LiveHostObjects();
    module_component_ = Fill(*memory_);
    oracle_component_ = Fill(*oracle_);
    host_ = MakeHostVbe(memory_);
    vbe_ = win::MakeComVbe(host_, [this](std::string_view keys) { memory_->SendKeys(keys); });
  }
  void TearDown() override {
    vbe_.reset();
    host_.reset();
    // Whatever the adapter asked the host for, it gave back.
    EXPECT_EQ(LiveHostObjects(), baseline_);
    ::CoUninitialize();
  }

  // The same project in the IDE behind COM and in the oracle, which the
  // tests call directly.
  static std::shared_ptr<ide::memory::MemoryComponent> Fill(ide::memory::MemoryVbe& vbe) {
    auto project = vbe.AddProject("Project1");
    auto component = project->AddComponent(ide::ComponentType::kStdModule, "basMain", kModule);
    EXPECT_TRUE(project->AddSourceFile("frmMain.frm", kForm).ok());
    component->CodeModule()->CodePane()->Show();
    return component;
  }

  std::shared_ptr<ide::ICodeModule> Module() {
    return vbe_->VBProjects()->Item("Project1")->VBComponents()->Item("basMain")->CodeModule();
  }

  std::shared_ptr<ide::memory::MemoryVbe> memory_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryVbe> oracle_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryComponent> module_component_;
  std::shared_ptr<ide::memory::MemoryComponent> oracle_component_;
  ComPtr<IDispatch> host_;
  std::shared_ptr<ide::IVbe> vbe_;
  long baseline_ = 0;
};

TEST_F(ComIdeTest, ReadsTheCodeModuleAsTheIdeDoes) {
  const auto module = Module();
  const auto oracle = oracle_component_->CodeModule();
  EXPECT_EQ(module->CountOfLines(), oracle->CountOfLines());
  EXPECT_EQ(module->CountOfDeclarationLines(), oracle->CountOfDeclarationLines());
  EXPECT_EQ(module->Lines(4, 2), oracle->Lines(4, 2));
  EXPECT_EQ(module->Lines(8, 5), oracle->Lines(8, 5));  // past the end
  for (int line = 1; line <= oracle->CountOfLines(); ++line) {
    const ide::ProcRef expected = oracle->ProcOfLine(line);
    const ide::ProcRef actual = module->ProcOfLine(line);
    EXPECT_EQ(actual.name, expected.name) << line;
    EXPECT_EQ(actual.kind, expected.kind) << line;  // the by-reference argument
  }
  for (auto kind : {ide::ProcKind::kProc, ide::ProcKind::kGet}) {
    const char* name = kind == ide::ProcKind::kProc ? "Add" : "Total";
    EXPECT_EQ(module->ProcStartLine(name, kind), oracle->ProcStartLine(name, kind));
    EXPECT_EQ(module->ProcBodyLine(name, kind), oracle->ProcBodyLine(name, kind));
    EXPECT_EQ(module->ProcCountLines(name, kind), oracle->ProcCountLines(name, kind));
  }
  EXPECT_EQ(module->Parent()->Name(), "basMain");
  EXPECT_EQ(module->Parent()->Project()->Name(), "Project1");
}

TEST_F(ComIdeTest, EditsTheCodeModule) {
  const auto over_com = Module();
  const auto oracle = oracle_component_->CodeModule();
  for (ide::ICodeModule* module : {over_com.get(), oracle.get()}) {
    module->InsertLines(2, "Private mCount As Long\r\nPrivate mName As String");
    module->ReplaceLine(1, "Option Compare Text");
    module->DeleteLines(3, 1);
    module->DeleteLines(3);  // the count left out
  }
  EXPECT_EQ(module_component_->SourceBytes(), oracle_component_->SourceBytes());
  EXPECT_EQ(Module()->Lines(1, 3), "Option Compare Text\r\nPrivate mCount As Long\r\n' Adds two numbers.");
}

TEST_F(ComIdeTest, FindsThroughByReferenceArguments) {
  struct Case {
    std::string target;
    ide::TextRange from;
    ide::FindOptions options;
  };
  const Case kCases[] = {
      {"add", {1, 1, -1, -1}, {}},
      {"add", {1, 1, -1, -1}, {.whole_word = true}},
      {"Add", {5, 1, -1, -1}, {.match_case = true}},
      {"Total*Long", {1, 1, -1, -1}, {.pattern_search = true}},
      {"End", {7, 1, 9, 3}, {}},
      {"nowhere", {1, 1, -1, -1}, {}},
  };
  const auto module = Module();
  const auto oracle = oracle_component_->CodeModule();
  for (const auto& c : kCases) {
    ide::TextRange range = c.from;
    ide::TextRange expected = c.from;
    EXPECT_EQ(module->Find(c.target, range, c.options),
              oracle->Find(c.target, expected, c.options))
        << c.target;
    EXPECT_EQ(range, expected) << c.target;
  }
}

TEST_F(ComIdeTest, SelectionWindowsAndPanes) {
  const auto pane = vbe_->ActiveCodePane();
  ASSERT_TRUE(pane);
  pane->SetSelection({5, 9, 5, 12});
  EXPECT_EQ(pane->GetSelection(), (ide::TextRange{5, 9, 5, 12}));
  EXPECT_EQ(module_component_->CodePane()->GetSelection(), (ide::TextRange{5, 9, 5, 12}));
  EXPECT_EQ(pane->CodeModule()->Lines(1, 1), "Option Explicit");
  EXPECT_EQ(vbe_->ActiveWindow()->Type(), ide::WindowType::kCodeWindow);
  EXPECT_EQ(pane->Window()->Caption(), module_component_->CodeWindow()->Caption());
  EXPECT_EQ(vbe_->ActiveVBProject()->Name(), "Project1");

  const auto windows = vbe_->Windows();
  bool saw_immediate = false;
  for (int i = 1; i <= windows->Count(); ++i) {
    saw_immediate = saw_immediate || windows->Item(i)->Type() == ide::WindowType::kImmediate;
  }
  EXPECT_TRUE(saw_immediate);

  memory_->ImmediateWindow()->SetFocus();
  EXPECT_EQ(vbe_->ActiveWindow()->Type(), ide::WindowType::kImmediate);
  const auto window = vbe_->ActiveWindow();
  window->SetVisible(false);
  EXPECT_FALSE(memory_->ImmediateWindow()->Visible());
  EXPECT_FALSE(window->Visible());
}

TEST_F(ComIdeTest, DesignerControlsAndProperties) {
  const auto form = vbe_->VBProjects()->Item(1)->VBComponents()->Item("frmMain");
  EXPECT_EQ(form->Type(), ide::ComponentType::kVBForm);
  EXPECT_EQ(Module()->Parent()->Designer(), nullptr);
  const auto controls = form->Designer()->VBControls();
  ASSERT_EQ(controls->Count(), 1);
  const auto button = controls->Item(1);
  EXPECT_EQ(button->ClassName(), "CommandButton");
  EXPECT_EQ(button->ProgId(), "VB.CommandButton");
  const auto caption = button->Properties()->Item("Caption");
  EXPECT_EQ(caption->Value(), "&OK");
  caption->SetValue("&Save");
  EXPECT_EQ(button->Properties()->Item("caption")->Value(), "&Save");
  EXPECT_EQ(button->Properties()->Item("TabIndex")->Value(), "0");
}

TEST_F(ComIdeTest, TextOutsideAsciiCrossesUnchanged) {
  const std::string text = "    MsgBox \"caf\xC3\xA9 \xE2\x80\xA6 \xF0\x9F\x98\x80\"";
  const auto module = Module();
  module->InsertLines(5, text);
  EXPECT_EQ(module_component_->CodeModule()->Lines(5, 1), text);
  EXPECT_EQ(module->Lines(5, 1), text);
  ide::TextRange range{1, 1, -1, -1};
  ASSERT_TRUE(module->Find("\xE2\x80\xA6", range));
  EXPECT_EQ(range, (ide::TextRange{5, 18, 5, 19}));  // columns count characters
}

TEST_F(ComIdeTest, IdeErrorsKeepTheirNumberAndText) {
  const auto module = Module();
  struct Case {
    const char* what;
    std::function<void()> action;
    int number;
  };
  const Case kCases[] = {
      {"line past the end", [&] { module->ReplaceLine(99, "x"); }, 9},
      {"unknown procedure", [&] { module->ProcStartLine("Nope", ide::ProcKind::kProc); }, 35},
      {"unknown project", [&] { vbe_->VBProjects()->Item("Nope"); }, 9},
      {"component number 0", [&] { vbe_->VBProjects()->Item(1)->VBComponents()->Item(0); }, 9},
  };
  for (const auto& c : kCases) EXPECT_EQ(ErrorNumber(c.action), c.number) << c.what;

  try {
    module->ProcBodyLine("Nope", ide::ProcKind::kProc);
    FAIL() << "no error";
  } catch (const ide::Error& error) {
    EXPECT_STREQ(error.what(), "Sub or Function not defined");
  }
}

TEST_F(ComIdeTest, MainWindowOwnsTheDialogs) {
  EXPECT_EQ(win::MainWindowHandle(host_), nullptr);  // the host tells 0
  win::UniqueHwnd window(::CreateWindowExW(0, L"STATIC", L"IDE", WS_POPUP, 0, 0, 1, 1, nullptr,
                                           nullptr, nullptr, nullptr));
  if (!window) GTEST_SKIP() << "no display to make windows on";
  EXPECT_EQ(win::MainWindowHandle(MakeHostVbe(memory_, window.get())), window.get());
  // An object that is no IDE gives no owner, and no error.
  EXPECT_EQ(win::MainWindowHandle(MakeHostObject({})), nullptr);
}

TEST_F(ComIdeTest, NothingComesBackAsNull) {
  memory_->ActivateWindow(nullptr);
  EXPECT_EQ(vbe_->ActiveWindow(), nullptr);
}

// A code command runs over COM exactly as over the in-memory IDE.
TEST_F(ComIdeTest, CodeCommandsThroughTheAdapter) {
  const char* kCommands[] = {"If Then", "If Then Else", "ForEachNext", "While"};
  for (const char* command : kCommands) {
    for (auto* component : {module_component_.get(), oracle_component_.get()}) {
      component->CodePane()->SetSelection({5, 5, 5, 5});
    }
    testing::FakeUi ui;
    platform::FixedIdeOptions options(2);
    addin::Context context{*vbe_, ui, options};
    addin::Context oracle_context{*oracle_, ui, options};
    ASSERT_TRUE(addin::InsertCodeLines(context, command));
    ASSERT_TRUE(addin::InsertCodeLines(oracle_context, command));
    EXPECT_EQ(testing::CodeLines(*module_component_->CodeModule()),
              testing::CodeLines(*oracle_component_->CodeModule()))
        << command;
    EXPECT_EQ(module_component_->CodePane()->GetSelection(),
              oracle_component_->CodePane()->GetSelection())
        << command;
  }
}

}  // namespace
}  // namespace tavrin::test_host
