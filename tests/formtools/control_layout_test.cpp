#include "formtools/control_layout.h"

#include <gtest/gtest.h>

#include "formtools/access_keys.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::formtools {
namespace {

TEST(ControlLayoutTest, CaptionsAndEntriesFromTheTypedList) {
  const std::pair<std::string, std::string> captions[] = {
      {"OrderDate", "Order Date"}, {"customer_name", "Customer Name"}, {"ID", "ID"},
      {"vatRate", "Vat Rate"}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(CaptionOf(name), caption) << name;

  EXPECT_EQ(ParseControlEntries("Name, Paid As checkbox\r\nKind As ComboBox").entries.size(), 3u);
  EXPECT_EQ(ParseControlEntries("Paid As checkbox").entries[0].type, "CheckBox");
  EXPECT_TRUE(ParseControlEntries(" \r\n , ").entries.empty());
  const std::pair<std::string, std::string> refused[] = {
      {"Photo As Image",
       "The type Image of Photo is not one the builder lays out: TextBox, ComboBox, ListBox, "
       "CheckBox, OptionButton."},
      {"Due date", "'Due date' is not a name for a control."},
      {"Paid, Total, paid As CheckBox", "paid is listed twice."},
  };
  for (const auto& [text, problem] : refused) EXPECT_EQ(ParseControlEntries(text).problem, problem);
}

// Names from the prefix table's rows when it has them; a clash with the
// form is refused by name, and nothing is laid out then.
TEST(ControlLayoutTest, NamesFollowThePrefixTableAndClashesAreRefused) {
  const settings::TypePrefixTable prefixes({settings::ParseTypePrefixRow("TextBox Prefix", "tb")});
  const auto laid = LayOutControls({{"Total", "TextBox"}, {"Paid", "CheckBox"}}, {}, prefixes);
  ASSERT_EQ(laid.controls.size(), 3u);
  EXPECT_EQ(laid.controls[1].name, "tbTotal");
  EXPECT_EQ(laid.controls[2].name, "chkPaid");
  EXPECT_EQ(ControlName("TextBox", "txtTotal", {}), "txtTotal");

  FormState form;
  form.names = {"TXTTOTAL"};
  const auto clash = LayOutControls({{"Paid", "CheckBox"}, {"Total", "TextBox"}}, form);
  EXPECT_EQ(clash.problem, "The form has a control named txtTotal already.");
  EXPECT_TRUE(clash.controls.empty());
}

// Laid out on a real form: below its controls, tab order following the
// list, access keys that no caption of the form uses, read back from the
// designer as the IDE would show them.
TEST(ControlLayoutTest, AddsLabelledInputsBelowTheFormsControls) {
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto form = vbe->AddProject("P")
                        ->AddSourceFile("frmMain.frm",
                                        testing::ReadSourceTreeFile("sample/frmMain.frm"))
                        .value();
  const auto designer = form->Designer();
  const FormState before = FormStateOf(*designer);
  const std::size_t conflicts = FindShortcutConflicts(CollectAccessKeys(*designer)).size();
  AddToForm(*designer, LayOutControls({{"Find", "TextBox"}, {"Paid", "CheckBox"},
                                       {"Kind", "ComboBox"}},
                                      before)
                           .controls);

  const auto controls = designer->VBControls();
  const int first = controls->Count() - 5;
  std::vector<std::string> read;
  int top = 0;
  for (int i = first + 1; i <= controls->Count(); ++i) {
    const auto properties = controls->Item(i)->Properties();
    std::string caption;
    for (int p = 1; p <= properties->Count(); ++p)
      if (properties->Item(p)->Name() == "Caption") caption = properties->Item(p)->Value();
    read.push_back(properties->Item("Name")->Value() + " " + caption + " " +
                   std::to_string(std::stoi(properties->Item("TabIndex")->Value()) -
                                  before.next_tab_index));
    if (i == first + 1) top = std::stoi(properties->Item("Top")->Value());
  }
  // "F" (Find) and "P" (Prices) are taken on this form, "A" (About) too.
  EXPECT_EQ(read, (std::vector<std::string>{"lblFind F&ind: 0", "txtFind  1", "chkPaid Pai&d 2",
                                            "lblKind &Kind: 3", "cboKind  4"}));
  EXPECT_GT(top, before.bottom);
  EXPECT_EQ(FindShortcutConflicts(CollectAccessKeys(*designer)).size(), conflicts);
  EXPECT_TRUE(ide::memory::SourceFile::Parse(form->SourceBytes(), "frmMain.frm"));
}

}  // namespace
}  // namespace tavrin::formtools
