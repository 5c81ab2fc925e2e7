#include "builders/settings_dialog.h"

#include <filesystem>
#include <map>
#include <set>

#include "base/text.h"
#include "tests/builders/settings_dialog_fixture.h"

namespace tavrin::builders {
namespace {

using settings::Item;
using A = DialogAction;

using SettingsDialogTest = SettingsDialogFixture;

TEST_F(SettingsDialogTest, ShowsEveryItemWithTheFieldItsTypeAsks) {
  SettingsDialogModel model(services_);
  struct Row {
    Item item;
    FieldKind kind;
    std::string page, group;
  };
  const Row rows[] = {
      {Item::kDeveloper, FieldKind::kText, "Developer", ""},
      {Item::kMakeModuleConstantTrue, FieldKind::kCheck, "Error Handling", ""},
      {Item::kBaseFolder, FieldKind::kFolder, "File Locations", ""},
      {Item::kProcedureHeaderFile, FieldKind::kFile, "File Locations", ""},
      {Item::kPrefixByVal, FieldKind::kText, "Naming", "Argument Prefix"},
      {Item::kConstTagBeforeTypeTag, FieldKind::kCheck, "Naming", "Const Builder"},
      {Item::kAddReturnStatement, FieldKind::kCheck, "Procedure Builder", ""},
      {Item::kCodeCaseElse, FieldKind::kText, "Select Case From Enum Builder", ""},
      {Item::kAutoPrefixVariableName, FieldKind::kChoice, "Other", ""},
      {Item::kViewTipOfTheDay, FieldKind::kCheck, "Other", "Windows"},
  };
  for (const Row& row : rows) {
    const Field* field = FindField(model.Fields(), SettingsDialogModel::FieldId(row.item));
    ASSERT_NE(field, nullptr) << SettingsDialogModel::FieldId(row.item);
    EXPECT_EQ(field->kind, row.kind) << field->id;
    EXPECT_EQ(field->page, row.page) << field->id;
    EXPECT_EQ(field->group, row.group) << field->id;
  }
  // Every item is there, on a page, and no page repeats an access key.
  std::map<std::string, std::set<char>> keys;
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Field* field =
        FindField(model.Fields(), SettingsDialogModel::FieldId(static_cast<Item>(i)));
    ASSERT_NE(field, nullptr);
    EXPECT_FALSE(field->page.empty());
  }
  for (const Field& field : model.Fields()) {
    const auto amp = field.caption.find('&');
    if (amp == std::string::npos) continue;
    EXPECT_TRUE(keys[field.page].insert(ToLowerAscii(field.caption[amp + 1])).second)
        << field.caption;
  }
  const Field* modes = FindField(model.Fields(), "Auto Prefix Variable Name");
  EXPECT_EQ(modes->items, (std::vector<std::string>{"No Auto Prefix", "Always Auto Prefix",
                                                    "Auto Prefix before capital char"}));
  EXPECT_EQ(modes->selected, 2);
  EXPECT_EQ(model.HelpTopic(), "settings.html");
}

TEST_F(SettingsDialogTest, SavingChangesOnlyTheEditedLines) {
  // A user's file: comments, spacing, an unknown key and blank lines.
  std::string usr = Read("tvrusr.ini");
  usr = "; my settings\r\n\r\n" + ReplaceAll(usr, "Initials=", "Initials =  ") +
        "\r\n[Mine]\r\nkeep = this  \r\n";
  Write("tvrusr.ini", usr);
  const std::string tp = Read("tvrtp.ini");

  ASSERT_TRUE(Run({A::Text("Developer", "Ann Lee"), A::Check("Add Header Procedure", false),
                   A::Pick("Auto Prefix Variable Name", "No Auto Prefix"),
                   A::Text("Initials", "AL"), A::Ok()}));

  std::string expected = ReplaceAll(usr, "Developer=\r\n", "Developer=Ann Lee\r\n");
  expected = ReplaceAll(expected, "Initials =  \r\n", "Initials=AL\r\n");  // the line written
  expected = ReplaceAll(expected, "Add Header Procedure=True", "Add Header Procedure=False");
  expected = ReplaceAll(expected, "Auto Prefix Variable Name=2", "Auto Prefix Variable Name=0");
  EXPECT_EQ(Read("tvrusr.ini"), expected);
  EXPECT_EQ(Read("tvrtp.ini"), tp);
  EXPECT_EQ(applied_, 1);
  const settings::ValueTable values = Reloaded();
  EXPECT_EQ(values.Text(Item::kDeveloper), "Ann Lee");
  EXPECT_FALSE(values.YesNo(Item::kAddHeaderProcedure));
  EXPECT_EQ(values.WholeNumber(Item::kAutoPrefixVariableName), 0);

  // Shown again and confirmed unchanged: nothing is written.
  ASSERT_TRUE(Run({A::Ok()}));
  EXPECT_EQ(Read("tvrusr.ini"), expected);
  EXPECT_EQ(applied_, 1);
}

TEST_F(SettingsDialogTest, KeepsEmptyYesNoValuesAndRewritesUnreadableOnes) {
  std::string usr = ReplaceAll(Read("tvrusr.ini"), "Add Hourglass Method=False",
                               "Add Hourglass Method=perhaps");
  Write("tvrusr.ini", usr);
  ASSERT_TRUE(Run({A::Ok()})) << ::testing::PrintToString(host_.refusals);
  // "Add Property Constant=" stays empty; the unreadable value becomes the
  // default the dialog showed.
  EXPECT_EQ(Read("tvrusr.ini"), ReplaceAll(usr, "=perhaps", "=False"));
  EXPECT_NE(Read("tvrusr.ini").find("Add Property Constant=\r\n"), std::string::npos);
}

TEST_F(SettingsDialogTest, AMissingFolderIsOfferedToBeCreated) {
  const std::string usr = Read("tvrusr.ini");
  ui_.box_answers = {platform::Answer::kNo, platform::Answer::kYes};
  // No: refused, nothing written; Yes: created and written.
  ASSERT_TRUE(Run({A::Text("Library Folder", "\\mylib\\"), A::Ok(), A::Ok()}));
  ASSERT_EQ(host_.refusals.size(), 1u);
  EXPECT_EQ(host_.refusals[0], "The folder '" +
                                   (folder_.path() / "mylib" / "").string() +
                                   "' of 'Library Folder' does not exist");
  EXPECT_TRUE(std::filesystem::is_directory(folder_.path() / "mylib"));
  EXPECT_EQ(Read("tvrusr.ini"),
            ReplaceAll(usr, "Library Folder=\\vbcode\\Library\\", "Library Folder=\\mylib\\"));
}

TEST_F(SettingsDialogTest, ExamplesFollowTheFieldsAsTheUserTypes) {
  SettingsDialogModel model(services_);
  auto& fields = model.Fields();
  auto set = [&](std::string_view id, std::string text) {
    FindField(fields, id)->text = std::move(text);
    model.Changed(id);
  };
  set("Prefix Module", "mod");
  set("Developer", "Ann Lee");
  const std::string names = FindField(fields, kNamingExample)->text;
  EXPECT_NE(names.find("\"Count\": modlngCount"), std::string::npos) << names;
  EXPECT_NE(names.find("\"MaxItems\": gclngMaxItems"), std::string::npos) << names;
  EXPECT_NE(names.find("\"count\": count"), std::string::npos) << names;
  const std::string header = FindField(fields, kHeaderExample)->text;
  EXPECT_NE(header.find("' Procedure : CalculateTotal"), std::string::npos) << header;
  EXPECT_NE(header.find("Ann Lee"), std::string::npos) << header;

  // A browsed path is shown with its pseudo-root, and resolved beside it.
  const auto fragments = folder_.path() / "vbcode" / "Fragments" / "Mine" / "Header.bas";
  set("Procedure Header File", fragments.string());
  EXPECT_EQ(FindField(fields, "Procedure Header File")->text, "<fragments>Mine\\Header.bas");
  EXPECT_EQ(FindField(fields, "Procedure Header File.resolved")->text, fragments.string());
  EXPECT_EQ(FindField(fields, kHeaderExample)->text,
            "(The procedure header file gives no text.)");
}

TEST_F(SettingsDialogTest, EditsTheTypePrefixTable) {
  const std::string tp = Read("tvrtp.ini");
  ASSERT_TRUE(Run({A::Pick(std::string(kPrefixRows), "Long = lng,,,Long (32-bit)"),
                   A::Text(std::string(kPrefixTags), "lg,,,Long"),
                   A::Press(std::string(kPrefixSet)), A::Text(std::string(kPrefixType), "Widget"),
                   A::Text(std::string(kPrefixTags), "wdg"), A::Press(std::string(kPrefixSet)),
                   A::Ok()}));
  // A new row goes after the section's last row, before the blank line.
  std::string expected = ReplaceAll(tp, "Long Prefix=lng,,,Long (32-bit)", "Long Prefix=lg,,,Long");
  expected = ReplaceAll(expected, "Enum Prefix=enm,,,Enum\r\n",
                        "Enum Prefix=enm,,,Enum\r\nWidget Prefix=wdg\r\n");
  EXPECT_EQ(Read("tvrtp.ini"), expected);
}

TEST_F(SettingsDialogTest, FirstRunOpensTheModelAndLoadsWhatItWrote) {
  std::filesystem::remove(folder_.path() / "tvrusr.ini");
  ModelSettingsDialog dialog(fallback_, {[this] { return services_; }, [this] { return &host_; },
                                         nullptr, nullptr});
  settings::SettingsServices services{profiles_, files_, ui_, dialog, folder_.path().string()};
  host_.Answer(std::string(kSettingsDialogTitle), {A::Text("Developer", "Ann"), A::Ok()});
  settings::ValueTable values;
  EXPECT_TRUE(settings::LoadValueTable(values, services, true).defaults_written);
  EXPECT_EQ(values.Text(Item::kDeveloper), "Ann");
  EXPECT_EQ(fallback_.shown, 0);

  // Without a dialog host the host's own settings dialog serves.
  ModelSettingsDialog without(fallback_, {[this] { return services_; }, [] {
                                            return static_cast<DialogHost*>(nullptr);
                                          }, nullptr, nullptr});
  without.ShowModal();
  EXPECT_EQ(fallback_.shown, 1);
}

}  // namespace
}  // namespace tavrin::builders
