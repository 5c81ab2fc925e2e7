#include "ide/memory/memory_vbe.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_window.h"
#include "tests/support/code_lines.h"
#include "tests/support/ide_error.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

class ProjectTest : public ::testing::Test {
 protected:
  void AddSample() { files_.AddSampleProject("/src"); }

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  testing::MemoryFileSystem files_;
};

TEST_F(ProjectTest, OpensTheSampleProject) {
  AddSample();
  auto project = vbe_->OpenProject(files_, "/src/Inventory.vbp");
  ASSERT_TRUE(project.ok()) << project.error();
  EXPECT_EQ((*project)->Name(), "Inventory");
  EXPECT_EQ((*project)->FileName(), "/src/Inventory.vbp");
  auto components = (*project)->VBComponents();
  ASSERT_EQ(components->Count(), 4);
  struct Expected {
    const char* name;
    ComponentType type;
  };
  const Expected expected[] = {{"frmMain", ComponentType::kVBForm},
                               {"basMain", ComponentType::kStdModule},
                               {"clsStockItem", ComponentType::kClassModule},
                               {"frmAbout", ComponentType::kVBForm}};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(components->Item(i + 1)->Name(), expected[i].name);
    EXPECT_EQ(components->Item(i + 1)->Type(), expected[i].type);
  }
  EXPECT_EQ(components->Item("CLSSTOCKITEM")->Name(), "clsStockItem");
  EXPECT_THROW(components->Item("Missing"), Error);
  EXPECT_EQ(vbe_->VBProjects()->Count(), 1);
  EXPECT_EQ(vbe_->ActiveVBProject(), *project);
}

TEST_F(ProjectTest, SavingAnUnchangedProjectWritesTheSameBytes) {
  AddSample();
  const auto before = files_.files();
  auto project = vbe_->OpenProject(files_, "/src/Inventory.vbp");
  ASSERT_TRUE(project.ok());
  ASSERT_TRUE((*project)->Save(files_).ok());
  EXPECT_EQ(files_.written().size(), 5u);
  EXPECT_EQ(files_.files(), before);
}

TEST_F(ProjectTest, MemberPathsAreRelativeToTheProjectFolderWithBackslashes) {
  files_.AddFile("/p/App.vbp",
                 "Type=Exe\r\nModule=Helpers; lib\\Helpers.bas\r\nForm=forms\\Main.frm\r\n"
                 "Name=\"App\"\r\n[MS Transaction Server]\r\nModule=Ignored; x.bas\r\n");
  files_.AddFile("/p/lib/Helpers.bas", "Attribute VB_Name = \"Helpers\"\r\n");
  files_.AddFile("/p/forms/Main.frm", "VERSION 5.00\r\nBegin VB.MDIForm Main\r\nEnd\r\n");
  auto project = vbe_->OpenProject(files_, "/p/App.vbp");
  ASSERT_TRUE(project.ok()) << project.error();
  const auto& components = (*project)->Components();
  ASSERT_EQ(components.size(), 2u);
  EXPECT_EQ(components[0]->FilePath(), "/p/lib/Helpers.bas");
  EXPECT_EQ(components[1]->Name(), "Main");  // no VB_Name: the file's stem
  EXPECT_EQ(components[1]->Type(), ComponentType::kVBMDIForm);
}

TEST_F(ProjectTest, ComponentTypeFromTheExtension) {
  struct Case {
    const char* file;
    ComponentType type;
  };
  const Case cases[] = {
      {"a.bas", ComponentType::kStdModule},      {"a.cls", ComponentType::kClassModule},
      {"a.frm", ComponentType::kVBForm},         {"a.ctl", ComponentType::kUserControl},
      {"a.pag", ComponentType::kPropPage},       {"a.dob", ComponentType::kDocObject},
      {"a.dsr", ComponentType::kActiveXDesigner}, {"A.BAS", ComponentType::kStdModule},
  };
  auto project = vbe_->AddProject("P");
  for (const auto& test : cases) {
    auto component = project->AddSourceFile(test.file, "' code\r\n");
    ASSERT_TRUE(component.ok());
    EXPECT_EQ((*component)->Type(), test.type) << test.file;
  }
}

TEST_F(ProjectTest, LoadErrorsNameTheFile) {
  files_.AddFile("/p/App.vbp", "Module=M; M.bas\r\nForm=F.frm\r\n");
  files_.AddFile("/p/M.bas", "Attribute VB_Name = \"M\"\r\n");
  files_.AddFile("/p/F.frm", "VERSION 5.00\r\nBegin VB.Form F\r\n");
  auto project = vbe_->OpenProject(files_, "/p/App.vbp");
  ASSERT_FALSE(project.ok());
  EXPECT_EQ(project.error().rfind("/p/F.frm:2:", 0), 0u) << project.error();
  EXPECT_EQ(vbe_->VBProjects()->Count(), 0);

  files_.AddFile("/p/M.bas", std::string("\0\1", 2));
  auto file = vbe_->OpenFile(files_, "/p/M.bas");
  ASSERT_FALSE(file.ok());
  EXPECT_EQ(file.error(), "/p/M.bas: not a Visual Basic source file (it holds binary data)");
  EXPECT_FALSE(vbe_->OpenFile(files_, "/p/none.bas").ok());
}

TEST_F(ProjectTest, OpenFileMakesAnUnsavedProjectAroundIt) {
  files_.AddFile("/w/Tools.bas", "Attribute VB_Name = \"Tools\"\nSub A()\nEnd Sub");
  auto component = vbe_->OpenFile(files_, "/w/Tools.bas");
  ASSERT_TRUE(component.ok());
  EXPECT_EQ((*component)->Project()->Name(), "Project1");
  EXPECT_EQ((*component)->Project()->FileName(), "");
  EXPECT_EQ((*component)->FilePath(), "/w/Tools.bas");
  (*component)->CodeModule()->InsertLines(4, "' end");
  ASSERT_TRUE((*component)->Save(files_).ok());
  EXPECT_EQ(files_.files().at("/w/Tools.bas"),
            "Attribute VB_Name = \"Tools\"\nSub A()\nEnd Sub\n' end");
}

TEST_F(ProjectTest, NewComponentsGetTheHeaderOfTheirType) {
  auto project = vbe_->AddProject("Project1");
  EXPECT_EQ(project->FileName(), "");
  EXPECT_EQ(project->AddComponent(ComponentType::kStdModule, "Module1", "Option Explicit")
                ->SourceBytes(),
            "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\n");
  auto cls = project->AddComponent(ComponentType::kClassModule, "Class1", "");
  EXPECT_EQ(cls->SourceBytes().rfind("VERSION 1.0 CLASS\r\nBEGIN\r\n", 0), 0u);
  EXPECT_EQ(cls->CodeModule()->CountOfLines(), 0);
  EXPECT_FALSE(cls->Save(files_).ok());  // never saved: no file to write
}

// Windows ------------------------------------------------------------------

class MemoryVbeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    project_ = vbe_->AddProject("Project1");
    module_ = project_->AddComponent(ComponentType::kStdModule, "Module1", "");
    form_ = project_->AddComponent(ComponentType::kVBForm, "Form1", "");
  }

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::shared_ptr<MemoryProject> project_;
  std::shared_ptr<MemoryComponent> module_;
  std::shared_ptr<MemoryComponent> form_;
};

TEST_F(MemoryVbeTest, WindowsOfTheIdeAndOfEachComponent) {
  auto windows = vbe_->Windows();
  EXPECT_EQ(windows->Count(), 4 + 1 + 2);
  EXPECT_EQ(windows->Item("Project1 - Module1 (Code)")->Type(), WindowType::kCodeWindow);
  EXPECT_EQ(windows->Item("Project1 - Form1 (Form)")->Type(), WindowType::kDesigner);
  EXPECT_EQ(vbe_->MainWindow()->Type(), WindowType::kMainWindow);
  EXPECT_EQ(vbe_->ImmediateWindow()->Type(), WindowType::kImmediate);
  EXPECT_EQ(vbe_->ProjectWindow()->Type(), WindowType::kProjectWindow);
  EXPECT_EQ(vbe_->PropertiesWindow()->Type(), WindowType::kPropertyWindow);
  EXPECT_EQ(module_->DesignerWindow(), nullptr);
}

TEST_F(MemoryVbeTest, ShowMakesThePaneAndItsCodeWindowActive) {
  EXPECT_EQ(vbe_->ActiveCodePane(), nullptr);
  EXPECT_EQ(vbe_->ActiveWindow(), nullptr);
  form_->CodeModule()->CodePane()->Show();
  EXPECT_EQ(vbe_->ActiveCodePane(), form_->CodePane());
  EXPECT_EQ(vbe_->ActiveWindow(), form_->CodeWindow());
  EXPECT_EQ(vbe_->ActiveCodePane()->Window()->Caption(), "Project1 - Form1 (Code)");
  EXPECT_EQ(vbe_->ActiveCodePane()->CodeModule()->Parent()->Name(), "Form1");
}

TEST_F(MemoryVbeTest, OtherActiveWindowsKeepTheLastCodePane) {
  module_->CodePane()->Show();
  vbe_->ActivateWindow(form_->DesignerWindow());
  EXPECT_EQ(vbe_->ActiveWindow()->Type(), WindowType::kDesigner);
  EXPECT_EQ(vbe_->ActiveCodePane(), module_->CodePane());
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  EXPECT_EQ(vbe_->ActiveWindow()->Type(), WindowType::kImmediate);
  vbe_->ActivateWindow(nullptr);
  EXPECT_EQ(vbe_->ActiveWindow(), nullptr);
  form_->CodeWindow()->SetFocus();
  EXPECT_EQ(vbe_->ActiveCodePane(), form_->CodePane());
}

TEST_F(MemoryVbeTest, SetSelectionOrdersTheEndsButRejectsZero) {
  auto pane = module_->CodePane();
  pane->SetSelection({7, 40, 3, 2});
  EXPECT_EQ(pane->GetSelection(), (TextRange{3, 2, 7, 40}));
  pane->SetSelection({3, 9, 3, 2});
  EXPECT_EQ(pane->GetSelection(), (TextRange{3, 2, 3, 9}));
  EXPECT_THROW(pane->SetSelection({0, 1, 1, 1}), Error);
  EXPECT_THROW(pane->SetSelection({1, 1, 1, 0}), Error);
  EXPECT_EQ(pane->GetSelection(), (TextRange{3, 2, 3, 9}));
}

// SendKeys -----------------------------------------------------------------

class MemorySendKeysTest : public ::testing::Test {
 protected:
  void Open(std::string_view code, TextRange selection) {
    component_ = vbe_->AddProject("Project1")->AddComponent(ComponentType::kStdModule, "M", code);
    component_->CodePane()->Show();
    component_->CodePane()->SetSelection(selection);
  }
  std::vector<std::string> Code() { return testing::CodeLines(*component_->CodeModule()); }
  TextRange Selection() { return component_->CodePane()->GetSelection(); }

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::shared_ptr<MemoryComponent> component_;
};

using Lines = std::vector<std::string>;

TEST_F(MemorySendKeysTest, OneSequenceEditsTheLineAndMovesTheCaret) {
  const struct {
    std::string name;
    std::string code;
    TextRange selection;
    std::string keys;
    Lines expected;
    TextRange caret;
  } cases[] = {
      {"a blank then backspace leaves the line as it was", "    If  Then\r\nEnd If",
       {1, 8, 1, 8}, " {BACKSPACE}", {"    If  Then", "End If"}, {1, 8, 1, 8}},
      {"typing past the end of a line pads with blanks", "ab\r\ncd", {1, 6, 1, 6}, "x",
       {"ab   x", "cd"}, {1, 7, 1, 7}},
      {"typing on the line after the last appends it", "ab", {2, 1, 2, 1}, "Dim x",
       {"ab", "Dim x"}, {2, 6, 2, 6}},
      {"typing replaces a selection", "Dim Value As Long\r\nx", {1, 5, 1, 10}, "Total",
       {"Dim Total As Long", "x"}, {1, 10, 1, 10}},
      {"backspace deletes a selection across lines, made end to start",
       "abc\r\ndef\r\nghi", {3, 2, 1, 2}, "{BS}", {"ahi"}, {1, 2, 1, 2}},
      {"backspace at column 1 joins with the line above", "ab\r\ncd", {2, 1, 2, 1}, "{BKSP}",
       {"abcd"}, {1, 3, 1, 3}},
      {"enter splits the line keeping its indentation", "    a = 1: b = 2", {1, 15, 1, 15},
       "{ENTER}", {"    a = 1: b =", "    2"}, {2, 5, 2, 5}},
      {"tilde is enter too", "    a = 1: b = 2", {1, 15, 1, 15}, "{ENTER}~",
       {"    a = 1: b =", "    ", "    2"}, {3, 5, 3, 5}},
      {"end, right wraps, left up home, delete joins", "abc\r\nde", {1, 2, 1, 2},
       "{END}{RIGHT}{LEFT}{UP}{HOME}{RIGHT 2}{DEL}{DELETE}", {"abde"}, {1, 3, 1, 3}},
      {"braced characters and a tab to column 9", "", {1, 1, 1, 1}, "a{+}{^}{%}{~}{{}{}}{TAB}b",
       {"a+^%~{} b"}, {1, 10, 1, 10}},
      {"an accented character counts as one column", "' Caf\xC3\xA9", {1, 7, 1, 7},
       "!{LEFT}{BACKSPACE}e", {"' Cafe!"}, {1, 7, 1, 7}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    vbe_ = MemoryVbe::Create();
    Open(c.code, c.selection);
    vbe_->SendKeys(c.keys);
    EXPECT_EQ(Code(), c.expected);
    EXPECT_EQ(Selection(), c.caret);
  }
}

// An unknown key name raises (error 5); without an active code window keys
// go nowhere. Either way nothing is typed.
TEST_F(MemorySendKeysTest, BadKeysAndNoCodeWindowTypeNothing) {
  Open("ab", {1, 1, 1, 1});
  EXPECT_EQ(testing::IdeErrorNumber([&] { vbe_->SendKeys("x{NOSUCHKEY}"); }), 5);
  EXPECT_THROW(vbe_->SendKeys("{LEFT"), Error);
  vbe_->ActivateWindow(vbe_->ImmediateWindow());
  vbe_->SendKeys("x");
  vbe_->ActivateWindow(nullptr);
  vbe_->SendKeys("y");
  EXPECT_EQ(Code(), (Lines{"ab"}));
}

}  // namespace
}  // namespace tavrin::ide::memory
