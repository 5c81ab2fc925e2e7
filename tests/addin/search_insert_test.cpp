// Declarations in the Code Explorer and the search box: enums and types
// with their members, a declaration area that does not balance, and Enter
// typing a declared name at the caret where a procedure is gone to.
#include <gtest/gtest.h>

#include "addin/tool_documents.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::addin {
namespace {

constexpr std::string_view kDeclarations =
    "Public Enum eColour\r\n    ecRed\r\n    ecGreen = 2\r\nEnd Enum\r\n"
    "Private Type tPoint\r\n    X As Long\r\nEnd Type\r\n"
    "Public Const MAX_ITEMS As Long = 10\r\n\r\n"
    "Public Sub Paint()\r\n    x = \r\nEnd Sub\r\n";
// An Enum without End Enum, then a variable and a procedure: the variable is
// lost in the enum, what follows is still listed.
constexpr std::string_view kUnbalanced =
    "Private Enum eBroken\r\n    ebOne\r\nPrivate mCount As Long\r\n\r\n"
    "Sub Café()\r\nEnd Sub\r\n";

class SearchInsertTest : public ::testing::Test {
 protected:
  SearchInsertTest() {
    paint_ = project_->AddComponent(ide::ComponentType::kStdModule, "basPaint", kDeclarations);
    project_->AddComponent(ide::ComponentType::kStdModule, "basBroken", kUnbalanced);
    search_.Attach(vbe_.get());
  }
  std::string Line(int line) { return paint_->CodeModule()->Lines(line, 1); }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryProject> project_ = vbe_->AddProject("Project1");
  std::shared_ptr<ide::memory::MemoryComponent> paint_;
  SearchDocument search_;
};

TEST_F(SearchInsertTest, TreeListsDeclarationsWithTheirMembers) {
  toolwindows::CodeExplorer explorer(*vbe_);
  explorer.Build();
  EXPECT_EQ(toolwindows::TreeAsText(explorer.Tree()),
            "Project1\n"
            "  Modules\n"
            "    basBroken\n"
            "      eBroken (Enum) Private :1\n"
            "        ebOne :2\n"
            "      Café Public :5\n"
            "    basPaint\n"
            "      eColour (Enum) Public :1\n"
            "        ecRed :2\n"
            "        ecGreen :3\n"
            "      tPoint (Type) Private :5\n"
            "        X :6\n"
            "      MAX_ITEMS (Const) Public :8\n"
            "      Paint Public :10\n");
}

TEST_F(SearchInsertTest, EnterTypesADeclaredNameAndGoesToAProcedure) {
  const auto pane = paint_->CodeModule()->CodePane();
  const struct {
    std::string_view query;
    ide::TextRange caret;
    int line;  // of the pane after Enter
    std::string text;
    ide::TextRange caret_after;
  } cases[] = {
      {"MAX_I", {11, 9, 11, 9}, 11, "    x = MAX_ITEMS", {11, 18, 11, 18}},
      {"ecgr", {11, 9, 11, 18}, 11, "    x = ecGreen", {11, 16, 11, 16}},  // replaces
      {"paint", {1, 1, 1, 1}, 10, "Public Sub Paint()", {10, 1, 10, 1}},    // goes there
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.query));
    pane->Show();
    pane->SetSelection(c.caret);
    search_.Search(c.query);
    ASSERT_FALSE(search_.Results().empty());
    ASSERT_TRUE(search_.Choose(0));
    EXPECT_EQ(Line(c.line), c.text);
    EXPECT_EQ(vbe_->ActiveCodePane()->GetSelection(), c.caret_after);
  }
  EXPECT_FALSE(search_.Choose(99));
}

}  // namespace
}  // namespace tavrin::addin
