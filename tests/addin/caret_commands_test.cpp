// Insert Variable, Explicit Argument and the path constants on the
// in-memory IDE: what they find in the module and the project, and what
// they write at the caret.
#include <gtest/gtest.h>

#include "addin/declaration_builders.h"
#include "addin/explicit_arguments.h"
#include "addin/insert_variable.h"
#include "builders/constant_dialog.h"
#include "builders/file_dialog.h"
#include "builders/list_dialog.h"
#include "builders/names_in_scope.h"
#include "builders/scripted_dialog_host.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;

const Lines kCaller = {
    "Option Explicit",                                        // 1
    "Private mlngTotal As Long",                              // 2
    "Private Const cMAX = 9",                                 // 3
    "Private Sub Add(ByVal n As Long, Optional ByVal k = 1)",  // 4
    "    Dim cur As clsOrder",                                // 5
    "    ",                                                   // 6
    "End Sub",                                                // 7
};

class CaretCommandsTest : public CodePaneTest {
 protected:
  void SetUp() override {
    context_.dialogs = &host_;
    context_.files = &files_;
    Open(kCaller, 6, 5);
    project_->AddComponent(ide::ComponentType::kStdModule, "basData",
                           "Public gstrUser As String\r\nPublic Const gcVERSION = 2\r\n"
                           "Public Sub Save(ByVal id As Long, Optional note As String)\r\nEnd Sub");
    project_->AddComponent(ide::ComponentType::kClassModule, "clsOrder",
                           "Public Total As Long\r\nPublic Sub Ship(ByVal via As String)\r\nEnd Sub");
  }

  void Type(const std::string& text) {
    component_->CodeModule()->ReplaceLine(6, "    " + text);
    Caret(6, 5);
  }

  builders::ScriptedDialogHost host_;
  testing::MemoryFileSystem files_;
};

TEST_F(CaretCommandsTest, InsertVariableOffersTheNamesInScopeNearestFirst) {
  EXPECT_EQ(builders::NamesInScope(DeclarationTargetOf(context_)),
            (Lines{"n", "k", "cur", "mlngTotal", "cMAX", "gstrUser", "gcVERSION"}));
  host_.Answer(std::string(builders::kInsertVariableTitle),
               {A::Text(std::string(builders::kListFilterId), "gstr"), A::Ok()});
  Type("x = ");
  Caret(6, 9);
  ASSERT_TRUE(InsertVariable(context_));
  EXPECT_EQ(Code()[5], "    x = gstrUser");
  EXPECT_EQ(Selection(), CaretAt(6, 17));
}

TEST_F(CaretCommandsTest, ExplicitArgumentFindsTheProcedureInTheModuleOrTheProject) {
  const struct {
    std::string typed, expected;
  } cases[] = {
      {"Add 1, 2", "    Add n:=1, k:=2"},
      {"Call Save(7, \"x\")", "    Call Save(id:=7, note:=\"x\")"},
      {"basData.Save 7", "    basData.Save id:=7"},
      {"cur.Ship \"air\"", "    cur.Ship via:=\"air\""},
      {"Me.Add 1", "    Me.Add n:=1"},
  };
  for (const auto& c : cases) {
    Type(c.typed);
    ASSERT_TRUE(ExplicitArguments(context_)) << c.typed;
    EXPECT_EQ(Code()[5], c.expected);
  }
  Type("Ship \"air\"");  // a method needs its object
  EXPECT_FALSE(ExplicitArguments(context_));
  ASSERT_FALSE(ui_.boxes_shown.empty());
  EXPECT_EQ(ui_.boxes_shown.back().text, "The called procedure is missing");
}

TEST_F(CaretCommandsTest, FilenameWritesThePickedPathAsAStringConstant) {
  files_.AddFile("C:\\Data\\orders.mdb", "");
  host_.Answer(std::string(builders::kSelectFileTitle),
               {A::Text("path", "C:\\Data\\orders.mdb"), A::Ok()});
  host_.Answer(std::string(builders::kConstantDialogTitle), {A::Ok()});
  ASSERT_TRUE(AddPathConstant(context_, builders::FieldKind::kFile));
  EXPECT_EQ(Code()[3], "Private Const mcOrders As String = \"C:\\Data\\orders.mdb\"");
  // A folder that does not exist is refused; cancelling writes nothing.
  host_.Answer(std::string(builders::kSelectFolderTitle),
               {A::Text("path", "C:\\Nowhere"), A::Ok(), A::Cancel()});
  EXPECT_FALSE(AddPathConstant(context_, builders::FieldKind::kFolder));
  EXPECT_EQ(host_.refusals.back(), "The folder 'C:\\Nowhere' does not exist.");
}

}  // namespace
}  // namespace tavrin::addin
