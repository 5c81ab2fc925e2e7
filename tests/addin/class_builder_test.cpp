#include "addin/class_builder.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "builders/scripted_dialog_host.h"
#include "scan/module_text_scanner.h"
#include "scan/project_scanner.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;

const char kHeader[] = "' Module : {MODULENAME}\r\n' Purpose: {DESCRIPTION}\r\n";

class ClassBuilderTest : public CodePaneTest {
 protected:
  void SetUp() override {
    Open({"Option Explicit"});
    project_->AddComponent(ide::ComponentType::kClassModule, "clsOrder", "");
    context_.dialogs = &host_;
    environment_.read_code_file = [](std::string_view path) -> std::optional<std::string> {
      if (path.ends_with("ModuleHeader.bas")) return std::string(kHeader);
      return std::nullopt;
    };
  }

  builders::ClassTarget Target(bool with_template = true) {
    builders::ClassTarget target = ClassTargetOf(context_, *project_);
    target.template_path = "/addin/vbcode/Templates/CollectionClass/CollectionClass.cls";
    if (with_template)
      target.collection_template = testing::ReadSourceTreeFile(
          "resources/addin/vbcode/Templates/CollectionClass/CollectionClass.cls");
    return target;
  }

  builders::ClassDialog Dialog(const builders::DialogScript& script, bool with_template = true) {
    builders::ClassDialog dialog(Target(with_template), {}, {}, environment_);
    host_.Answer("Add Class", script);
    confirmed_ = host_.Show(dialog);
    return dialog;
  }

  builders::ScriptedDialogHost host_;
  codegen::TemplateEnvironment environment_;
  bool confirmed_ = false;
};

TEST_F(ClassBuilderTest, NamesByTheNamingRulesOrRefuses) {
  const struct {
    std::string typed;
    bool collection;
    std::string declared_or_refusal;
  } rows[] = {
      {"Customer", false, "clsCustomer"},
      {"clsCustomer", false, "clsCustomer"},
      {"Orders", true, "colOrders"},
      {"clsOrders", true, "colOrders"},
      {"customer", false, "customer"},  // lower case: no prefix, as for variables
      {"Order", false, "The project Project1 has a module named clsOrder already."},
      {"module1", false, "The project Project1 has a module named Module1 already."},
      {"2nd", false, "A name must begin with a letter."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed);
    builders::DialogScript script = {A::Text("name", row.typed)};
    if (row.collection) script.push_back(A::Pick("kind", "Collection class"));
    script.push_back(A::Ok());
    host_.refusals.clear();
    const builders::ClassDialog dialog = Dialog(script);
    if (confirmed_) {
      EXPECT_EQ(dialog.DeclaredName(), row.declared_or_refusal);
    } else {
      ASSERT_FALSE(host_.refusals.empty());
      EXPECT_NE(host_.refusals.back().find(row.declared_or_refusal), std::string::npos)
          << host_.refusals.back();
    }
  }
}

TEST_F(ClassBuilderTest, CollectionFromTheTemplateKeepsItsAttributesInTheFileOnly) {
  const builders::ClassDialog dialog =
      Dialog({A::Text("name", "Orders"), A::Pick("kind", "Collection class"),
              A::Text("item", "clsOrder"), A::Text("description", "The open orders"), A::Ok()});
  ASSERT_TRUE(confirmed_);
  const std::string file = dialog.FileText();
  for (const char* part :
       {"VERSION 1.0 CLASS\r\n", "Attribute VB_Name = \"colOrders\"\r\n",
        "Attribute VB_Exposed = False\r\n' Module : colOrders\r\n",
        "' Purpose: The open orders\r\nOption Explicit\r\n",
        "Public Function Add(ByVal Item As clsOrder, Optional ByVal Key As String = \"\") As "
        "clsOrder\r\n",
        "Attribute Item.VB_UserMemId = 0\r\n"})
    EXPECT_NE(file.find(part), std::string::npos) << part;
  EXPECT_EQ(file.find("{"), std::string::npos) << "a placeholder is left";

  const auto added = AddClassModule(*project_, dialog);
  const auto module = added->CodeModule();
  EXPECT_EQ(module->Lines(1, 3), "' Module : colOrders\r\n' Purpose: The open orders\r\nOption Explicit");
  EXPECT_EQ(vbe_->ActiveCodePane()->CodeModule()->Parent()->Name(), "colOrders");
  const scan::ModuleScan scan = scan::ScanCodeModule(*module);
  std::vector<std::string> procedures;
  for (const scan::ScannedProc& proc : scan.procedures) procedures.push_back(proc.name);
  EXPECT_EQ(procedures, (std::vector<std::string>{"Class_Initialize", "Class_Terminate", "Add",
                                                  "Item", "Count", "Remove", "NewEnum"}));
  ide::TextRange everywhere{1, 1, -1, -1};
  EXPECT_FALSE(module->Find("Attribute", everywhere)) << "the IDE hides Attribute lines";
}

TEST_F(ClassBuilderTest, PlainClassWithPropertiesReadsBackThroughTheScanners) {
  host_.Answer("Add Class", {A::Text("name", "Invoice"),
                             A::Text("properties", "Number As Long, Customer As clsOrder\nNote"),
                             A::Check("option_explicit"), A::Ok()});
  ASSERT_TRUE(AddClass(context_));
  const auto module = vbe_->ActiveCodePane()->CodeModule();
  EXPECT_EQ(module->Parent()->Name(), "clsInvoice");
  EXPECT_EQ(module->Parent()->Type(), ide::ComponentType::kClassModule);
  const scan::ModuleScan scan = scan::ScanCodeModule(*module);
  std::vector<std::string> members;
  for (const scan::Declaration& d : scan.declarations) members.push_back(d.name + " " + d.type);
  EXPECT_EQ(members, (std::vector<std::string>{"mNumber Long", "mCustomer clsOrder",
                                               "mNote Variant"}));
  std::vector<std::string> procedures;
  for (const scan::ScannedProc& proc : scan.procedures)
    procedures.push_back(proc.name + std::to_string(static_cast<int>(proc.kind)));
  // Get 3, Let 1, Set 2: an object has Set, a Variant both.
  EXPECT_EQ(procedures, (std::vector<std::string>{"Number3", "Number1", "Customer3", "Customer2",
                                                  "Note3", "Note1", "Note2"}));
  const auto symbols = scan::ScanProjects(*vbe_);
  EXPECT_TRUE(std::any_of(symbols.begin(), symbols.end(), [](const scan::ProjectSymbol& s) {
    return s.declaration.kind == scan::DeclKind::kClass && s.module == "clsInvoice";
  }));
}

TEST_F(ClassBuilderTest, RefusesWhatCannotBeBuilt) {
  const struct {
    builders::DialogScript script;
    bool with_template;
    std::string refusal;
  } rows[] = {
      {{A::Text("name", "Orders"), A::Pick("kind", "Collection class"), A::Ok()}, false,
       "The collection class template was not found:\r\n"
       "/addin/vbcode/Templates/CollectionClass/CollectionClass.cls\r\n"},
      {{A::Text("name", "Line"), A::Text("properties", "Total, total As Long"), A::Ok()}, true,
       "The property total is listed twice."},
      {{A::Text("name", "Line"), A::Text("properties", "Price As Cur rency"), A::Ok()}, true,
       "Cur rency"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.refusal);
    host_.refusals.clear();
    Dialog(row.script, row.with_template);
    EXPECT_FALSE(confirmed_);
    ASSERT_FALSE(host_.refusals.empty());
    EXPECT_NE(host_.refusals.back().find(row.refusal), std::string::npos) << host_.refusals.back();
  }
}

}  // namespace
}  // namespace tavrin::addin
