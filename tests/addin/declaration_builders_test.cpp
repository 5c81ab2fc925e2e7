#include "addin/declaration_builders.h"

#include <gtest/gtest.h>

#include "builders/constant_dialog.h"
#include "builders/property_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "builders/variable_dialog.h"
#include "scan/module_text_scanner.h"
#include "scan/project_scanner.h"
#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;
using scan::DeclScope;

const Lines kModule = {
    "Option Explicit",                    // 1
    "Private mlngTotal As Long",          // 2
    "",                                   // 3
    "Public Sub Count(ByVal n As Long)",  // 4
    "    Dim i As Long",                  // 5
    "    i = n",                          // 6
    "End Sub",                            // 7
};

class DeclarationBuildersTest : public CodePaneTest {
 protected:
  void SetUp() override {
    context_.dialogs = &host_;
    for (const char* row : {"Long,lng", "String,str", "Collection,col", "Double,dbl",
                            "Boolean,bln", "Date,dtm"}) {
      const std::string text(row);
      rows_.push_back(settings::ParseTypePrefixRow(text.substr(0, text.find(',')) + " Prefix",
                                                   text.substr(text.find(',') + 1)));
    }
    settings_.type_prefixes = settings::TypePrefixTable(rows_);
    context_.settings = &settings_;
  }

  // The declaration the scanner reads back with that name.
  const scan::Declaration* ReadBack(const std::string& name) {
    scanned_ = scan::ScanCodeModule(*component_->CodeModule());
    for (const auto* found : scan::DeclarationsInScope(scanned_, 6))
      if (found->name == name) return found;
    return nullptr;
  }

  // Opens a class module holding `lines`, the caret on line 1.
  void OpenClass(const Lines& lines) {
    if (project_) vbe_->RemoveProject(project_);
    project_ = vbe_->AddProject("Project1");
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\r\n") + line;
    component_ = project_->AddComponent(ide::ComponentType::kClassModule, "clsOrder", text);
    pane_ = component_->CodeModule()->CodePane();
    pane_->Show();
    Caret(1, 1);
  }

  builders::ScriptedDialogHost host_;
  std::vector<settings::TypePrefixRow> rows_;
  fragments::Settings settings_;
  scan::ModuleScan scanned_;
};

TEST_F(DeclarationBuildersTest, VariableGoesWhereItsScopeSaysAndReadsBack) {
  const struct {
    std::string scope, type, typed;
    bool is_new, array;
    int at;
    std::string line, name;
  } rows[] = {
      {"Local (Dim)", "Long", "Count", false, false, 6, "    Dim lngCount As Long", "lngCount"},
      {"Local (Dim)", "String", "name", false, false, 6, "    Dim name As String", "name"},
      {"Module (Private)", "Collection", "Items", true, false, 3,
       "Private mcolItems As New Collection", "mcolItems"},
      {"Global (Public)", "Double", "Rates", false, true, 3, "Public gdblRates(1 To 5) As Double",
       "gdblRates"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    Open(kModule, 6, 5);
    builders::DialogScript script = {A::Text("name", row.typed), A::Pick("scope", row.scope),
                                     A::Text("type", row.type)};
    if (row.is_new) script.push_back(A::Check("new"));
    if (row.array) script.push_back(A::Check("array"));
    if (row.array) script.push_back(A::Text("bounds", "1 To 5"));
    script.push_back(A::Ok());
    host_.Answer(std::string(builders::kVariableDialogTitle), script);
    ASSERT_TRUE(AddVariable(context_, ""));
    EXPECT_TRUE(host_.errors.empty());
    const Lines code = Code();
    ASSERT_EQ(code.size(), kModule.size() + 1);
    EXPECT_EQ(code[row.at - 1], row.line);
    EXPECT_EQ(Selection().start_line, 7);  // the caret moved with its line
    const scan::Declaration* back = ReadBack(row.name);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->type, row.type);
    EXPECT_EQ(back->scope, builders::ScopeOfEntry(row.scope));
    EXPECT_EQ(back->is_new, row.is_new);
  }
}

TEST_F(DeclarationBuildersTest, VariableRefusesANameInScopeThenTakesAnother) {
  Open(kModule, 6, 1);
  host_.Answer(std::string(builders::kVariableDialogTitle),
               {A::Text("name", "i"), A::Text("type", "Long"), A::Ok(),
                A::Pick("scope", "Module (Private)"), A::Text("name", "Total"), A::Ok(),
                A::Text("name", "Sum"), A::Ok()});
  ASSERT_TRUE(AddVariable(context_, ""));
  EXPECT_EQ(host_.refusals,
            Lines({"The name 'i' is already used by the variable 'i' on line 5 of Module1.",
                   "The name 'mlngTotal' is already used by the variable 'mlngTotal' on line 2 "
                   "of Module1."}));
  EXPECT_EQ(Code()[2], "Private mlngSum As Long");
}

TEST_F(DeclarationBuildersTest, TypedEntryPresetsTheTypeAndDeclarationIndentedIsRespected) {
  settings_.values.Set(settings::Item::kDeclarationIndented, false);
  Open(kModule, 6, 1);
  host_.Answer(std::string(builders::kVariableDialogTitle), {A::Text("name", "Done"), A::Ok()});
  ASSERT_TRUE(AddVariable(context_, "Boolean"));
  EXPECT_EQ(Code()[5], "Dim blnDone As Boolean");
}

TEST_F(DeclarationBuildersTest, CancelWritesNothing) {
  Open(kModule, 2, 1);
  host_.Answer(std::string(builders::kVariableDialogTitle), {A::Text("name", "x"), A::Cancel()});
  EXPECT_FALSE(AddVariable(context_, ""));
  EXPECT_EQ(Code(), kModule);
}

const Lines kWithLiteral = {
    "Option Explicit",                 // 1
    "",                                // 2
    "Sub Warn()",                      // 3
    "    MsgBox \"Out of stock\", 48",  // 4
    "End Sub",                         // 5
};

TEST_F(DeclarationBuildersTest, ConstantPicksUpTheSelectedLiteralByTheNamingSettings) {
  const struct {
    bool ucase, tag_first;
    std::string scope, name;
  } rows[] = {
      {false, true, "Module (Private)", "mcstrOutOfStock"},
      {true, true, "Module (Private)", "mcstrOUTOFSTOCK"},
      {false, false, "Global (Public)", "gstrcOutOfStock"},
      {false, true, "Local (Dim)", "cstrOutOfStock"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    settings_.values.Set(settings::Item::kSetPickedUpNameUcase, row.ucase);
    settings_.values.Set(settings::Item::kConstTagBeforeTypeTag, row.tag_first);
    Open(kWithLiteral, 4, 12);
    pane_->SetSelection({4, 12, 4, 26});  // "Out of stock" with its quotes
    host_.Answer(std::string(builders::kConstantDialogTitle),
                 {A::Pick("scope", row.scope), A::Ok()});
    ASSERT_TRUE(AddConstant(context_, ""));
    const bool local = row.scope.starts_with("Local");
    const std::string keyword = local ? "    " : row.scope.starts_with("Module") ? "Private " : "Public ";
    const Lines code = Code();
    const int at = local ? 4 : 2;
    EXPECT_EQ(code[at - 1], keyword + "Const " + row.name + " As String = \"Out of stock\"");
    EXPECT_EQ(code[4], "    MsgBox " + row.name + ", 48");
    EXPECT_EQ(Selection().start_line, 5);
    EXPECT_EQ(Selection().start_column, 12 + static_cast<int>(row.name.size()));
    scanned_ = scan::ScanCodeModule(*component_->CodeModule());
    const auto visible = scan::DeclarationsInScope(scanned_, 5);
    ASSERT_FALSE(visible.empty());
    EXPECT_EQ(visible.front()->name, row.name);
    EXPECT_EQ(visible.front()->type, "String");
    EXPECT_EQ(visible.front()->scope, builders::ScopeOfEntry(row.scope));
  }
}

TEST_F(DeclarationBuildersTest, ConstantRefusesAValueThatDoesNotFit) {
  Open(kWithLiteral, 2, 1);
  host_.Answer(std::string(builders::kConstantDialogTitle),
               {A::Text("name", "Max"), A::Pick("type", "Byte"), A::Text("value", "300"), A::Ok(),
                A::Text("value", "&HFF"), A::Ok()});
  ASSERT_TRUE(AddConstant(context_, "Integer"));
  EXPECT_EQ(host_.refusals, Lines({"The value 300 does not fit the type Byte."}));
  EXPECT_EQ(Code()[1], "Private Const mcMax As Byte = &HFF");  // no Byte tag in the table
}

TEST_F(DeclarationBuildersTest, PropertyWritesTheMemberAndItsProcedures) {
  OpenClass({"Option Explicit", "", "Private Sub Class_Initialize()", "End Sub"});
  settings_.values.Set(settings::Item::kAddPropertyConstant, true);
  settings_.values.Set(settings::Item::kAddModuleConstantProperty, true);
  host_.Answer(std::string(builders::kPropertyDialogTitle),
               {A::Text("name", "Total"), A::Text("type", "Long"), A::Ok()});
  ASSERT_TRUE(AddProperty(context_, ""));
  const Lines expected = {
      "Option Explicit",
      "Private mlngTotal As Long",
      "Private Const cstrModule = \"clsOrder\"",
      "",
      "Public Property Get Total() As Long",
      "    Const cstrProcedure = \"Total\"",
      "    On Error GoTo ExitLabel",
      "    Total = mlngTotal",
      "ExitLabel:",
      "End Property",
      "",
      "Public Property Let Total(ByVal vlngTotal As Long)",
      "    Const cstrProcedure = \"Total\"",
      "    On Error GoTo ExitLabel",
      "    mlngTotal = vlngTotal",
      "ExitLabel:",
      "End Property",
      "",
      "Private Sub Class_Initialize()",
      "End Sub",
  };
  EXPECT_EQ(Code(), expected);
  EXPECT_EQ(Selection().start_line, 6);
}

TEST_F(DeclarationBuildersTest, PropertyKindsFollowTheTypeAndTheAccess) {
  settings_.values.Set(settings::Item::kAddErrorHandlingProperty, std::string(""));
  const struct {
    std::string type, access;
    std::vector<std::string> kinds;  // the declarations written
  } rows[] = {
      {"Collection", "Read and write", {"Get Items() As Collection", "Set Items(ByVal vcolItems As Collection)"}},
      {"Variant", "Read and write", {"Get Items() As Variant", "Let Items(ByVal vItems As Variant)",
                                     "Set Items(ByVal vItems As Variant)"}},
      {"Long", "Read-only", {"Get Items() As Long"}},
      {"Long", "Write-only", {"Let Items(ByVal vlngItems As Long)"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.type + " " + row.access);
    OpenClass({"Option Explicit"});
    host_.Answer(std::string(builders::kPropertyDialogTitle),
                 {A::Text("name", "Items"), A::Text("type", row.type),
                  A::Pick("access", row.access), A::Ok()});
    ASSERT_TRUE(AddProperty(context_, ""));
    std::vector<std::string> kinds;
    for (const std::string& line : Code())
      if (line.starts_with("Public Property ")) kinds.push_back(line.substr(16));
    EXPECT_EQ(kinds, row.kinds);
  }
}

TEST_F(DeclarationBuildersTest, PropertyInAStandardModuleIsExplained) {
  Open(kModule, 2, 1);
  EXPECT_FALSE(AddProperty(context_, "Long"));
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text, builders::kPropertyInStandardModule);
  EXPECT_TRUE(host_.shown.empty());
  EXPECT_EQ(Code(), kModule);
}

TEST_F(DeclarationBuildersTest, EnumAndTypeBlocksAndTheirItemsReadBack) {
  Open(kModule, 6, 1);
  host_.Answer(std::string(builders::kEnumDialogTitle),
               {A::Text("name", "eSize"), A::Text("members", "esSmall, esLarge = 10, esHuge"),
                A::Check("numbered"), A::Ok()});
  ASSERT_TRUE(AddBlock(context_, builders::BlockKind::kEnum));
  host_.Answer(std::string(builders::kTypeDialogTitle),
               {A::Text("name", "tBox"), A::Pick("scope", "Module (Private)"),
                A::Text("members", "W As Long\r\nTag"), A::Ok()});
  ASSERT_TRUE(AddBlock(context_, builders::BlockKind::kType));
  host_.Answer(std::string(builders::kEnumItemDialogTitle),
               {A::Text("name", "esSmall"), A::Ok(), A::Text("name", "esTiny"),
                A::Text("value", "-1"), A::Ok()});
  ASSERT_TRUE(AddBlockItem(context_, builders::BlockKind::kEnum));
  host_.Answer(std::string(builders::kTypeItemDialogTitle),
               {A::Pick("block", "tBox"), A::Text("name", "H"), A::Text("type", "Long"), A::Ok()});
  ASSERT_TRUE(AddBlockItem(context_, builders::BlockKind::kType));
  EXPECT_EQ(host_.refusals, Lines({"'eSize' already has the member 'esSmall'."}));
  const Lines expected = {
      "Option Explicit",
      "Private mlngTotal As Long",
      "Public Enum eSize",
      "    esSmall = 0",
      "    esLarge = 10",
      "    esHuge = 11",
      "    esTiny = -1",
      "End Enum",
      "Private Type tBox",
      "    W As Long",
      "    Tag As Variant",
      "    H As Long",
      "End Type",
  };
  const Lines code = Code();
  ASSERT_GE(code.size(), expected.size());
  EXPECT_EQ(Lines(code.begin(), code.begin() + expected.size()), expected);
  scanned_ = scan::ScanCodeModule(*component_->CodeModule());
  std::vector<std::string> members;
  for (const scan::Declaration& d : scanned_.declarations)
    if (!d.parent.empty()) members.push_back(d.parent + "." + d.name + ":" + d.type);
  EXPECT_EQ(members, Lines({"eSize.esSmall:eSize", "eSize.esLarge:eSize", "eSize.esHuge:eSize",
                            "eSize.esTiny:eSize", "tBox.W:Long", "tBox.Tag:Variant", "tBox.H:Long"}));
}

TEST_F(DeclarationBuildersTest, AddingToABlockTheModuleLacksIsExplained) {
  Open(kModule, 2, 1);
  EXPECT_FALSE(AddBlockItem(context_, builders::BlockKind::kType));
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text, "This module declares no Type to add an item to.");
}

}  // namespace
}  // namespace tavrin::addin
