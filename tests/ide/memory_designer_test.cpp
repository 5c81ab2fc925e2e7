#include "ide/memory/memory_designer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

class FormDesignerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    original_ = testing::ReadSourceTreeFile("sample/frmMain.frm");
    form_ = vbe_->AddProject("Inventory")->AddSourceFile("frmMain.frm", original_).value();
    controls_ = form_->Designer()->VBControls();
  }

  std::shared_ptr<IControl> Control(std::string_view name) { return controls_->Item(name); }
  std::string Value(std::string_view control, std::string_view property) {
    return Control(control)->Properties()->Item(property)->Value();
  }
  void Set(std::string_view control, std::string_view property, std::string_view value) {
    Control(control)->Properties()->Item(property)->SetValue(value);
  }

  // The physical lines that differ between the original and the current file.
  std::vector<std::pair<std::string, std::string>> ChangedLines() {
    const auto before = SplitCrLf(original_);
    const std::string now = form_->SourceBytes();
    const auto after = SplitCrLf(now);
    std::vector<std::pair<std::string, std::string>> changed;
    EXPECT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
      if (before[i] != after[i]) changed.emplace_back(before[i], after[i]);
    return changed;
  }

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::string original_;
  std::shared_ptr<MemoryComponent> form_;
  std::shared_ptr<ICollection<IControl>> controls_;
};

TEST_F(FormDesignerTest, ListsEveryControlBelowTheFormInFileOrder) {
  std::vector<std::string> names;
  for (int i = 1; i <= controls_->Count(); ++i)
    names.push_back(controls_->Item(i)->Properties()->Item("Name")->Value());
  EXPECT_EQ(names, (std::vector<std::string>{
                       "tabPages", "lstItems", "fraSearch", "txtSearch", "cmdFind", "lblSearch",
                       "cmdAction", "cmdAction", "cmdClose", "lblStatus", "mnuFile",
                       "mnuFileOpen", "mnuFileSep", "mnuFileExit", "mnuHelp", "mnuHelpAbout"}));
}

TEST_F(FormDesignerTest, ClassNameAndProgId) {
  EXPECT_EQ(Control("cmdFind")->ClassName(), "CommandButton");
  EXPECT_EQ(Control("cmdFind")->ProgId(), "VB.CommandButton");
  EXPECT_EQ(Control("tabPages")->ClassName(), "SSTab");
  EXPECT_EQ(Control("tabPages")->ProgId(), "TabDlg.SSTab");
  EXPECT_EQ(Control("mnuFile")->ClassName(), "Menu");
}

TEST_F(FormDesignerTest, ValuesAsText) {
  EXPECT_EQ(Value("cmdFind", "Caption"), "&Find");
  EXPECT_EQ(Value("cmdFind", "Default"), "-1");  // the 'True comment is not the value
  EXPECT_EQ(Value("cmdFind", "Width"), "1095");
  EXPECT_EQ(Value("lblStatus", "Caption"), "Ready - Caf\xC3\xA9 mode");
  EXPECT_EQ(Value("mnuFileOpen", "Shortcut"), "^O");
}

TEST_F(FormDesignerTest, DoubledQuotesReadAsOneQuote) {
  auto about = vbe_->AddProject("P")
                   ->AddSourceFile("frmAbout.frm", testing::ReadSourceTreeFile("sample/frmAbout.frm"))
                   .value();
  auto label = about->Designer()->VBControls()->Item("lblInfo");
  EXPECT_EQ(label->Properties()->Item("Caption")->Value(),
            "Inventory 1.2 - written for the Caf\xC3\xA9 Lumi\xC3\xA8re \"back office\"");
}

TEST_F(FormDesignerTest, OwnPropertiesOnlyNotNestedOnes) {
  // txtSearch has a Font block whose Name is not the control's.
  EXPECT_EQ(Value("txtSearch", "Name"), "txtSearch");
  EXPECT_THROW(Control("txtSearch")->Properties()->Item("Size"), Error);
  // fraSearch's own Caption, not a child's.
  EXPECT_EQ(Value("fraSearch", "Caption"), "Search");
  EXPECT_THROW(Control("fraSearch")->Properties()->Item("Default"), Error);
}

TEST_F(FormDesignerTest, ControlWithoutCaptionRaises) {
  EXPECT_THROW(Control("txtSearch")->Properties()->Item("Caption"), Error);
  EXPECT_THROW(Control("lstItems")->Properties()->Item("Caption"), Error);
}

TEST_F(FormDesignerTest, ControlArrayMembersHaveIndex) {
  EXPECT_EQ(controls_->Item(7)->Properties()->Item("Index")->Value(), "0");
  EXPECT_EQ(controls_->Item(8)->Properties()->Item("Index")->Value(), "1");
  EXPECT_EQ(controls_->Item(8)->Properties()->Item("Caption")->Value(), "&Options");
  EXPECT_THROW(Control("cmdClose")->Properties()->Item("Index"), Error);
}

TEST_F(FormDesignerTest, TabbedContainerCaptionFollowsTheCurrentTab) {
  EXPECT_EQ(Value("tabPages", "Tabs"), "3");
  EXPECT_EQ(Value("tabPages", "Tab"), "1");
  EXPECT_EQ(Value("tabPages", "Caption"), "&Stock");
  Set("tabPages", "Tab", "2");
  EXPECT_EQ(Value("tabPages", "Caption"), "&Prices");
  Set("tabPages", "Tab", "0");
  EXPECT_EQ(Value("tabPages", "Caption"), "&General");
  EXPECT_EQ(Value("tabPages", "TabCaption(1)"), "&Stock");
}

TEST_F(FormDesignerTest, VisitingEveryTabAndComingBackLeavesTheFileUnchanged) {
  const std::string current = Value("tabPages", "Tab");
  for (int tab = 0; tab < 3; ++tab) Set("tabPages", "Tab", std::to_string(tab));
  Set("tabPages", "Tab", current);
  EXPECT_EQ(form_->SourceBytes(), original_);
}

// A value the file spells in a way no write would (a comment after it, an
// unclosed quote) comes back byte for byte when it is written back.
TEST_F(FormDesignerTest, WritingTheOriginalValueBackRestoresTheLine) {
  struct Case {
    const char* property;
    const char* line;
  };
  for (const Case& c : {Case{"Default", "Default =   -1  'True"}, Case{"Tab", "Tab = \" 1"},
                        Case{"Caption", "Caption = \"&Open"}}) {
    const std::string form = std::string("VERSION 5.00\r\nBegin VB.Form F\r\n   Begin X.Y C\r\n      ") +
                             c.line + "\r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
    auto component = vbe_->AddProject("P")->AddSourceFile("F.frm", form).value();
    auto property = component->Designer()->VBControls()->Item("C")->Properties()->Item(c.property);
    const std::string value = property->Value();
    property->SetValue("2");
    property->SetValue(value);
    EXPECT_EQ(component->SourceBytes(), form) << c.line;
  }
}

TEST_F(FormDesignerTest, WritingACaptionChangesOnlyThatLine) {
  Set("cmdAction", "Caption", "O&pen \"all\"");
  const auto changed = ChangedLines();
  ASSERT_EQ(changed.size(), 1u);
  EXPECT_EQ(changed[0].first, "      Caption         =   \"&Open\"");
  EXPECT_EQ(changed[0].second, "      Caption         =   \"O&pen \"\"all\"\"\"");
  EXPECT_EQ(Value("cmdAction", "Caption"), "O&pen \"all\"");
}

TEST_F(FormDesignerTest, WritingATabCaptionWritesTheCurrentTabsLine) {
  Set("tabPages", "Tab", "2");
  Set("tabPages", "Caption", "P&rices");
  Set("tabPages", "Tab", "1");
  const auto changed = ChangedLines();
  ASSERT_EQ(changed.size(), 1u);
  EXPECT_EQ(changed[0].second, "      TabCaption(2)   =   \"P&rices\"");
}

TEST_F(FormDesignerTest, WritingANumberKeepsItUnquotedAndDropsTheOldComment) {
  Set("cmdFind", "Default", "0");
  const auto changed = ChangedLines();
  ASSERT_EQ(changed.size(), 1u);
  EXPECT_EQ(changed[0].second, "         Default         =   0");
}

TEST_F(FormDesignerTest, SavedFileKeepsItsEncoding) {
  Set("lblStatus", "Caption", "Pr\xC3\xAAt");
  EXPECT_NE(form_->SourceBytes().find("Caption         =   \"Pr\xEAt\""), std::string::npos);
}

TEST_F(FormDesignerTest, MissingTabCaptionIsAddedAfterTheControlsOwnLines) {
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form F\r\n   Begin TabDlg.SSTab T\r\n      Tabs            =   2\r\n"
      "      TabCaption(0)   =   \"One\"\r\n      Begin VB.Label L\r\n         Caption = \"x\"\r\n"
      "      End\r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
  auto component = vbe_->AddProject("P")->AddSourceFile("F.frm", form).value();
  auto tab = component->Designer()->VBControls()->Item("T");
  EXPECT_EQ(tab->Properties()->Item("Tab")->Value(), "0");
  tab->Properties()->Item("Tab")->SetValue("1");
  EXPECT_EQ(tab->Properties()->Item("Caption")->Value(), "");
  tab->Properties()->Item("Caption")->SetValue("&Two");
  tab->Properties()->Item("Tab")->SetValue("0");
  EXPECT_EQ(component->SourceBytes(),
            "VERSION 5.00\r\nBegin VB.Form F\r\n   Begin TabDlg.SSTab T\r\n"
            "      Tabs            =   2\r\n      TabCaption(0)   =   \"One\"\r\n"
            "      TabCaption(1)   =   \"&Two\"\r\n      Begin VB.Label L\r\n"
            "         Caption = \"x\"\r\n      End\r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n");
}

TEST_F(FormDesignerTest, SideFileValueReadsAsWritten) {
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form F\r\n   Begin VB.Label L\r\n"
      "      Caption         =   \"F.frx\":0000\r\n   End\r\nEnd\r\n";
  auto component = vbe_->AddProject("P")->AddSourceFile("F.frm", form).value();
  EXPECT_EQ(component->Designer()->VBControls()->Item("L")->Properties()->Item("Caption")->Value(),
            "\"F.frx\":0000");
}

TEST_F(FormDesignerTest, ComponentsWithoutDesignerHaveNone) {
  auto project = vbe_->AddProject("P");
  EXPECT_EQ(project->AddComponent(ComponentType::kStdModule, "M", "")->Designer(), nullptr);
  EXPECT_EQ(project->AddComponent(ComponentType::kClassModule, "C", "")->Designer(), nullptr);
  auto form = project->AddComponent(ComponentType::kVBForm, "Form1", "");
  ASSERT_NE(form->Designer(), nullptr);
  EXPECT_EQ(form->Designer()->VBControls()->Count(), 0);
}

}  // namespace
}  // namespace tavrin::ide::memory
