#include <gtest/gtest.h>

#include <algorithm>

#include "addin/select_enum_command.h"
#include "builders/scripted_dialog_host.h"
#include "builders/select_enum_dialog.h"
#include "ide/memory/memory_references.h"
#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

using builders::DialogAction;
using builders::DialogScript;

// A platform that reads stdole (two enums) and fails on anything else.
class OneLibrary : public scan::TypeLibraryReader {
 public:
  Result<scan::TypeLibrary> Read(const scan::LibraryReference& reference) override {
    ++reads;
    if (reference.name != "stdole") return Error{"cannot read " + reference.Label()};
    scan::TypeLibrary library{"stdole", "OLE Automation", {}};
    const auto add = [&](scan::DeclKind kind, std::string name, std::string parent) {
      scan::Declaration member;
      member.kind = kind;
      member.scope = scan::DeclScope::kGlobal;
      member.name = std::move(name);
      member.parent = std::move(parent);
      library.members.push_back(std::move(member));
    };
    add(scan::DeclKind::kClass, "StdFont", "");
    add(scan::DeclKind::kEnum, "OLE_TRISTATE", "");
    for (const char* member : {"Unchecked", "Checked", "Gray"})
      add(scan::DeclKind::kEnumMember, member, "OLE_TRISTATE");
    return library;
  }
  int reads = 0;
};

class SelectEnumTest : public CodePaneTest {
 protected:
  void SetUp() override {
    Open({"Private Enum eSize", "    Small", "    Large", "End Enum", "",
          "Function Label(v As Long) As String", "    ", "End Function"},
         7, 5);
    project_->AddComponent(ide::ComponentType::kStdModule, "basColours",
                           "Public Enum eColour\r\n    Red\r\n    Green\r\nEnd Enum\r\n"
                           "Private Enum eHidden\r\n    Nope\r\nEnd Enum");
    for (const char* line : {"stdole2.tlb", "TABCTL32.OCX"}) {
      ide::memory::VbpReference reference;
      reference.guid = std::string("{0000000") + line[0] + "-0000-0000-0000-000000000000}";
      reference.path = line;
      project_->AddReference(std::make_shared<ide::memory::MemoryReference>(
          reference, std::string(line) == "stdole2.tlb" ? "stdole" : "TabDlg"));
    }
    pane_->Show();
    context_.dialogs = &host_;
    context_.type_libraries = &libraries_;
  }

  OneLibrary reader_;
  scan::TypeLibraryScanner libraries_{reader_};
  builders::ScriptedDialogHost host_;
};

TEST_F(SelectEnumTest, WritesOneCasePerMemberWithTheOptions) {
  const std::string title(builders::kSelectEnumDialogTitle);
  const struct {
    DialogScript script;
    Lines inserted;  // the lines that replace the caret's blank line
    ide::TextRange caret;
  } rows[] = {
      // The module's own Private enum first; the settings' Case Else.
      {{DialogAction::Text("expression", "v"), DialogAction::Ok()},
       {"    Select Case v", "        Case Small", "            ", "        Case Large",
        "            ", "        Case Else", "            Msgbox \"Missing Case\"",
        "    End Select"},
       {9, 13, 9, 13}},
      // A library's enum, return values in a String function, no Case Else.
      {{DialogAction::Pick("enum", "OLE_TRISTATE (stdole)"), DialogAction::Text("expression", "v"),
        DialogAction::Check("case_else", false), DialogAction::Check("return_values"),
        DialogAction::Ok()},
       {"    Select Case v", "        Case Unchecked", "            Label = \"\"",
        "        Case Checked", "            Label = \"\"", "        Case Gray",
        "            Label = \"\"", "    End Select"},
       {9, 22, 9, 22}},
      // Another module's public enum, no expression: the caret goes there.
      {{DialogAction::Pick("enum", "eColour (basColours)"), DialogAction::Ok()},
       {"    Select Case ", "        Case Red", "            ", "        Case Green",
        "            ", "        Case Else", "            Msgbox \"Missing Case\"",
        "    End Select"},
       {7, 17, 7, 17}},
  };
  for (const auto& row : rows) {
    host_.Answer(title, row.script);
    ASSERT_TRUE(SelectFromEnum(context_)) << (host_.errors.empty() ? "" : host_.errors[0]);
    Lines expected = {"Private Enum eSize", "    Small", "    Large", "End Enum", "",
                      "Function Label(v As Long) As String"};
    expected.insert(expected.end(), row.inserted.begin(), row.inserted.end());
    expected.push_back("End Function");
    EXPECT_EQ(Code(), expected);
    EXPECT_EQ(Selection(), row.caret);
    component_->CodeModule()->DeleteLines(7, static_cast<int>(row.inserted.size()));
    component_->CodeModule()->InsertLines(7, "    ");
    pane_->Show();
    Caret(7, 5);
  }
  // Each library was read once, and the one that failed was told once.
  EXPECT_EQ(reader_.reads, 2);
  int told = 0;
  for (const auto& box : ui_.boxes_shown) told += box.text.find("TABCTL32.OCX") != std::string::npos;
  EXPECT_EQ(told, 1);
}

TEST_F(SelectEnumTest, OffersTheVisibleEnumsAndRefusesOneWithoutMembers) {
  builders::DeclarationTarget target;
  target.module_name = "Module1";
  target.project = scan::ScanProjects(*vbe_);
  target.libraries = libraries_.Scan(*vbe_).symbols;
  builders::SelectEnumDialog dialog(target, {}, "");
  std::vector<std::string> entries;
  for (const auto& choice : dialog.Enums()) entries.push_back(choice.Entry());
  EXPECT_EQ(entries, (std::vector<std::string>{"eSize (Module1)", "eColour (basColours)",
                                                "OLE_TRISTATE (stdole)"}));
  EXPECT_TRUE(builders::IsClassType(target, "StdFont"));
  EXPECT_FALSE(builders::IsClassType(target, "OLE_TRISTATE"));
  const auto types = builders::TypeChoices(target);
  EXPECT_NE(std::find(types.begin(), types.end(), "StdFont"), types.end());

  target.project.clear();
  target.libraries.clear();
  scan::ProjectSymbol empty{"Project1", "Module1", {}};
  empty.declaration.kind = scan::DeclKind::kEnum;
  empty.declaration.name = "eEmpty";
  target.project.push_back(empty);
  builders::SelectEnumDialog nothing(target, {}, "");
  const auto refusal = nothing.Accept();
  ASSERT_TRUE(refusal);
  EXPECT_EQ(refusal->message, "The enum eEmpty has no members to test.");
}

}  // namespace
}  // namespace tavrin::addin
