// "I&mport File...": the file dialog, then the component in the project.
#include "addin/import_file.h"

#include <gtest/gtest.h>

#include "builders/scripted_dialog_host.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;

class ImportFileTest : public CodePaneTest {
 protected:
  void SetUp() override {
    files_.AddFileFromSourceTree("sample/clsStockItem.cls", "/in/clsStockItem.cls");
    files_.AddFile("/in/notes.txt", "Sub NotCode()\r\nEnd Sub\r\n");
    vbe_->SetFileSystem(&files_);
    context_.files = &files_;
    context_.dialogs = &host_;
    Open({"Sub Main()", "End Sub"});
  }
  testing::MemoryFileSystem files_;
  builders::ScriptedDialogHost host_;
};

TEST_F(ImportFileTest, AddsTheChosenFileOrExplainsWhyNot) {
  const struct {
    builders::DialogScript script;
    bool imported;
    const char* refusal;  // of the dialog's OK
    const char* message;  // shown after the dialog
  } cases[] = {
      {{A::Text("path", "/in/clsStockItem.cls"), A::Ok()}, true, "", ""},
      {{A::Cancel()}, false, "", ""},
      {{A::Ok(), A::Cancel()}, false, "Choose a file.", ""},
      {{A::Text("path", "/in/none.bas"), A::Ok(), A::Cancel()},
       false,
       "The file '/in/none.bas' does not exist.",
       ""},
      {{A::Text("path", "/in/notes.txt"), A::Ok()},
       false,
       "",
       "'/in/notes.txt' is not a Visual Basic source file."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.refusal + std::string(c.message));
    host_.Answer("Import File", c.script);
    ui_.boxes_shown.clear();
    const int before = project_->VBComponents()->Count();
    EXPECT_EQ(ImportFile(context_), c.imported);
    EXPECT_EQ(project_->VBComponents()->Count(), before + (c.imported ? 1 : 0));
    EXPECT_EQ(host_.refusals.empty() ? "" : host_.refusals.back(), c.refusal);
    host_.refusals.clear();
    EXPECT_EQ(ui_.boxes_shown.empty() ? "" : ui_.boxes_shown.back().text, c.message);
  }
  EXPECT_EQ(project_->VBComponents()->Item("clsStockItem")->Type(),
            ide::ComponentType::kClassModule);
  // A second import of the same module: the IDE refuses the name.
  host_.Answer("Import File", {A::Text("path", "/in/clsStockItem.cls"), A::Ok()});
  EXPECT_FALSE(ImportFile(context_));
  ASSERT_FALSE(ui_.boxes_shown.empty());
  EXPECT_EQ(ui_.boxes_shown.back().text.rfind("Cannot import '/in/clsStockItem.cls': ", 0), 0u);
}

}  // namespace
}  // namespace tavrin::addin
