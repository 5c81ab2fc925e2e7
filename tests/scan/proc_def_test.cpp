#include "scan/proc_def.h"

#include <gtest/gtest.h>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::scan {
namespace {

C4_ProcDef Library(std::string_view code) {
  C4_ProcDef def;
  EXPECT_TRUE(def.Init2(code, "Strings"));
  return def;
}

// What the table below leaves out: the library's names and lines. The
// arguments' own parts are ProcArgumentTest's.
TEST(ProcDefTest, ALibraryFunctionWithAnOptionalArgument) {
  const C4_ProcDef def = Library(
      "Public Function Area(ByVal w As Double, Optional h As Double = 1) As Double\r\n"
      "    Area = w * h\r\n"
      "End Function");
  EXPECT_EQ(def.Project(), "Library");
  EXPECT_EQ(def.ModuleName(), "Strings");
  EXPECT_EQ(def.GroupName(), "Strings");
  EXPECT_EQ(def.ProcKindStr(), "Sub/Function");
  EXPECT_TRUE(def.IsLibraryProcedure());
  EXPECT_EQ(def.ProcStartLine(), 1);
  EXPECT_EQ(def.ProcBodyLine(), 1);
  EXPECT_EQ(def.ProcCountLines(), 3);
  EXPECT_EQ(def.ProcDefCountOfLines(), 1);
  EXPECT_EQ(def.ProcArguments().ArgNameList(), "w, [h]");
}

TEST(ProcDefTest, DeclarationsTable) {
  const struct {
    std::string code;
    std::string name;
    bool is_public;
    bool is_static;
    bool is_function;
    std::string return_type;
    int arguments;
  } cases[] = {
      {"Function Count%(s$)", "Count", true, false, true, "Integer", 1},
      {"Sub X(a)", "X", true, false, false, "", 0},
      {"Friend Sub Go()", "Go", true, false, false, "", 0},
      {"Static Sub Go()", "Go", false, true, false, "", 0},
      {"Private Static Sub Go()", "Go", false, false, false, "", 0},
      {"Private Sub Go()", "Go", false, false, false, "", 0},
      // Keywords are matched exactly.
      {"private Sub Go()", "Go", true, false, false, "", 0},
      {"Public Static Function F() As Long", "F", true, false, true, "Long", 0},
      {"Function F()", "F", true, false, true, "", 0},
      {"Function F&()", "F", true, false, true, "Long", 0},
      {"Function F$() As Variant", "F", true, false, true, "Variant", 0},
      // The last ")" closes the argument list, so an array return type opens one.
      {"Function Items() As String()", "Items", true, false, true, "String()", 1},
      {"Public Function F() As Long ' the count", "F", true, false, true, "Long ' the count", 0},
      {"Public Function F() As Long ' note: x", "F", true, false, true, "Long", 0},
      // Joined without a separator, so ") As " is not found (kept on purpose).
      {"Function F(a As Long) _\r\nAs Long", "F", true, false, true, "", 1},
      {"Property Get Value() As Long", "Value", true, false, false, "", 0},
      // The name is the word before the first "(", quoted or not.
      {"Declare Function GetTickCount Lib \"kernel32\" () As Long", "\"kernel32\"", true,
       false, true, "Long", 0},
      {"Sub Go \"(\" x)", "\"", true, false, false, "", 0},
      {"", "", true, false, false, "", 0},
      {"\r\n\r\n", "", true, false, false, "", 0},
      {"Sub Go(", "Go", true, false, false, "", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code);
    C4_ProcDef def;
    (void)def.Init2(c.code, "Group");
    EXPECT_EQ(def.Name(), c.name);
    EXPECT_EQ(def.ProcIsPublic(), c.is_public);
    EXPECT_EQ(def.ProcIsStatic(), c.is_static);
    EXPECT_EQ(def.ProcIsFunction(), c.is_function);
    EXPECT_EQ(def.ProcReturnType(), c.return_type);
    EXPECT_EQ(def.ProcArguments().Count(), c.arguments);
  }
}

TEST(ProcDefTest, ACommentAfterTheDeclarationGoesOnlyWithAColonInIt) {
  EXPECT_EQ(Library("Public Sub Go() ' start: here").OneLineProcDef(), "Public Sub Go()");
  EXPECT_EQ(Library("Public Sub Go() ' start").OneLineProcDef(), "Public Sub Go() ' start");
}

TEST(ProcDefTest, ADeclarationOverThreeLines) {
  const C4_ProcDef def = Library(
      "Public Sub AddItem(ByVal Price As Currency, _\r\n"
      "                   ByVal Count As Long, _\r\n"
      "                   Optional Note As String)\r\n"
      "    x = 1\r\n"
      "End Sub");
  EXPECT_EQ(def.ProcDefCountOfLines(), 3);
  EXPECT_EQ(def.ProcDef(),
            "Public Sub AddItem(ByVal Price As Currency, _\r\n"
            "                   ByVal Count As Long, _\r\n"
            "                   Optional Note As String)");
  EXPECT_EQ(def.OneLineProcDef(),
            "Public Sub AddItem(ByVal Price As Currency,ByVal Count As Long,Optional Note As "
            "String)");
  EXPECT_EQ(def.ProcArguments().ArgNameList(), "Price, Count, [Note]");
}

TEST(ProcDefTest, BlankLinesInsideTheDeclarationCountButAddNothing) {
  const C4_ProcDef def = Library("\r\nSub Go(a As Long, _\r\n\r\nb As Long)\r\nEnd Sub");
  EXPECT_EQ(def.ProcDefCountOfLines(), 4);
  EXPECT_EQ(def.OneLineProcDef(), "Sub Go(a As Long,b As Long)");
}

TEST(ProcDefTest, ADuplicateArgumentNameReachesTheCaller) {
  C4_ProcDef def;
  const Status status = def.Init2("Sub Go(a, b, a)", "G");
  EXPECT_FALSE(status);
  EXPECT_EQ(def.Name(), "Go");
  EXPECT_EQ(def.ProcArguments().Count(), 2);
}

TEST(ProcDefTest, KindTexts) {
  const char* texts[] = {"", "Sub/Function", "Property Let", "Property Set", "Property Get", ""};
  for (int kind = -1; kind <= 4; ++kind) EXPECT_EQ(ProcKindStrOf(kind), texts[kind + 1]) << kind;
}

class ModuleProcDefTest : public ::testing::Test {
 protected:
  void SetUp() override {
    project_ = vbe_->AddProject("Inventory");
    component_ = project_->AddComponent(
        ide::ComponentType::kClassModule, "clsItem",
        "Option Explicit\r\n"                          // 1
        "Private mValue As Long\r\n"                   // 2
        "\r\n"                                         // 3
        "' The value.\r\n"                             // 4
        "Public Property Get Value() As Long\r\n"      // 5
        "    Value = mValue\r\n"                       // 6
        "End Property\r\n"                             // 7
        "\r\n"                                         // 8
        "Public Property Let Value(ByVal v As Long)\r\n"  // 9
        "    mValue = v\r\n"                           // 10
        "End Property\r\n");                           // 11
  }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryProject> project_;
  std::shared_ptr<ide::memory::MemoryComponent> component_;
};

TEST_F(ModuleProcDefTest, APropertyOfAModule) {
  C4_ProcDef def;
  ASSERT_TRUE(def.init(vbe_.get(), "INVENTORY", *component_, "Value", ide::ProcKind::kGet));
  EXPECT_EQ(def.Project(), "INVENTORY");
  EXPECT_EQ(def.ModuleName(), "clsItem");
  EXPECT_EQ(def.GroupName(), "INVENTORY");  // the active project, without regard to case
  EXPECT_EQ(def.ProcKind(), 3);
  EXPECT_EQ(def.ProcKindStr(), "Property Get");
  EXPECT_EQ(def.ProcStartLine(), 3);
  EXPECT_EQ(def.ProcBodyLine(), 5);
  EXPECT_EQ(def.ProcCountLines(), 5);
  EXPECT_EQ(def.ProcDefStartLine(), 5);
  EXPECT_EQ(def.ProcCode(),
            "Public Property Get Value() As Long\r\n    Value = mValue\r\nEnd Property");
  EXPECT_FALSE(def.IsLibraryProcedure());
  // Only "Function " marks a function, so a Property Get keeps no return type.
  EXPECT_FALSE(def.ProcIsFunction());
  EXPECT_EQ(def.ProcReturnType(), "");

  C4_ProcDef let;
  ASSERT_TRUE(let.init(vbe_.get(), "Other", *component_, "Value", ide::ProcKind::kLet));
  EXPECT_EQ(let.GroupName(), "");
  EXPECT_EQ(let.ProcArguments().ArgNameList(), "v");
}

TEST_F(ModuleProcDefTest, AnUnknownProcedureGivesEmptyTexts) {
  C4_ProcDef def;
  ASSERT_TRUE(def.init(nullptr, "Inventory", *component_, "Missing", ide::ProcKind::kProc));
  EXPECT_EQ(def.ProcBodyLine(), 0);
  EXPECT_EQ(def.ProcStartLine(), 0);
  EXPECT_EQ(def.ProcCountLines(), 0);
  EXPECT_EQ(def.ProcCode(), "");
  EXPECT_EQ(def.OneLineProcDef(), "");
  EXPECT_EQ(def.Name(), "Missing");
}

TEST(ProcDefDeclarationSectionTest, TheParseDoesNothing) {
  C4_ProcDef def;
  def.SetIsDeclarationSection(true);
  ASSERT_TRUE(def.Init2("Public Function F() As Long", "G"));
  EXPECT_EQ(def.Name(), "");
  EXPECT_FALSE(def.ProcIsFunction());
}

}  // namespace
}  // namespace tavrin::scan
