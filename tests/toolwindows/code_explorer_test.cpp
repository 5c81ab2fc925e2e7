#include "toolwindows/code_explorer.h"

#include <gtest/gtest.h>

#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::toolwindows {
namespace {

class CodeExplorerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"Inventory.vbp", "basMain.bas", "clsStockItem.cls", "frmMain.frm",
                             "frmAbout.frm"})
      files_.AddFileFromSourceTree(std::string("sample/") + name, std::string("/src/") + name);
    project_ = vbe_->OpenProject(files_, "/src/Inventory.vbp").value();
    explorer_.Build();
  }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  testing::MemoryFileSystem files_;
  std::shared_ptr<ide::memory::MemoryProject> project_;
  CodeExplorer explorer_{*vbe_};
};

constexpr std::string_view kSampleTree =
    "Inventory\n"
    "  Modules\n"
    "    basMain\n"
    "      APP_TITLE (Const) Public :5\n"
    "      STOCK_FILE (Const) Private :6\n"
    "      GetTickCount (Declare) Private :8\n"
    "      GetPrivateProfileString (Declare) Private :9\n"
    "      gItems Public :15\n"
    "      mLastError Private :16\n"
    "      Main Public :19\n"
    "      LoadStock (Function) Public :29\n"
    "      ParseItem (Function) Private :58\n"
    "      StockLevel (Function) Public :75\n"
    "      StockValue (Function) Public :89\n"
    "      Elapsed (Function) Public :106\n"
    "  Class Modules\n"
    "    clsStockItem\n"
    "      mCode Private :4\n"
    "      mDescription Private :5\n"
    "      mQuantity Private :6\n"
    "      mPrice Private :7\n"
    "      Code (Property)\n"
    "        Get :12\n"
    "        Let :16\n"
    "      Description (Property)\n"
    "        Get :21\n"
    "        Let :25\n"
    "      Quantity (Property)\n"
    "        Get :29\n"
    "        Let :33\n"
    "      Price (Property)\n"
    "        Get :41\n"
    "        Let :45\n"
    "      ToString (Function) Public :51\n"
    "  Forms\n"
    "    frmAbout\n"
    "      cmdOK_Click Private :3\n"
    "    frmMain\n"
    "      cmdAction_Click Private :3\n"
    "      cmdClose_Click Private :12\n"
    "      cmdFind_Click Private :16\n"
    "      Form_Load Private :28\n"
    "      mnuFileExit_Click Private :37\n"
    "      mnuFileOpen_Click Private :41\n"
    "      mnuHelpAbout_Click Private :45\n";

TEST_F(CodeExplorerTest, ListsTheSampleProjectByKindThenNameWithMembersInLineOrder) {
  EXPECT_EQ(TreeAsText(explorer_.Tree()), kSampleTree);
  EXPECT_EQ(explorer_.ComponentReads(), 4);
}

TEST_F(CodeExplorerTest, NodesCarryTheKindForTheIcon) {
  const auto tree = explorer_.Tree();
  const Node& classes = tree[0].children[1];
  EXPECT_EQ(classes.kind, NodeKind::kFolder);
  EXPECT_EQ(classes.component_type, ide::ComponentType::kClassModule);
  const Node& variable = classes.children[0].children[0];
  EXPECT_EQ(variable.kind, NodeKind::kVariable);
  EXPECT_FALSE(variable.is_public);
  const Node& property = classes.children[0].children[4];
  EXPECT_EQ(property.kind, NodeKind::kProperty);
  EXPECT_TRUE(property.is_public);
  EXPECT_EQ(property.children[1].proc_kind, ide::ProcKind::kLet);
}

TEST_F(CodeExplorerTest, RefreshReadsTheChangedComponentAlone) {
  const auto module = project_->VBComponents()->Item("basMain")->CodeModule();
  module->InsertLines(module->CountOfLines() + 1, "\r\nPrivate Sub Added()\r\nEnd Sub");
  explorer_.Refresh(*module->Parent());
  EXPECT_EQ(explorer_.ComponentReads(), 5);
  const auto members = explorer_.Tree()[0].children[0].children[0].children;
  ASSERT_EQ(members.size(), 13u);  // six declarations, seven procedures
  EXPECT_EQ(members.back().caption, "Added");

  explorer_.Rename("Inventory", "frmAbout", "frmZAbout");
  explorer_.Remove("Inventory", "clsStockItem");
  const auto folders = explorer_.Tree()[0].children;
  ASSERT_EQ(folders.size(), 2u);
  EXPECT_EQ(folders[1].children[0].caption, "frmMain");
  EXPECT_EQ(folders[1].children[1].caption, "frmZAbout");
  EXPECT_EQ(explorer_.ComponentReads(), 5);
}

}  // namespace
}  // namespace tavrin::toolwindows
