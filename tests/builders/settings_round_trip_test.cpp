// Every catalogue item edited through the settings dialog, saved and read
// back; the files keep every line that was not edited, and a file that
// refuses leaves both files as they were.
#include <filesystem>

#include "base/text.h"
#include "tests/builders/settings_dialog_fixture.h"

namespace tavrin::builders {
namespace {

using settings::Item;
using A = DialogAction;
namespace fs = std::filesystem;

class SettingsRoundTripTest : public SettingsDialogFixture {
 protected:
  void SetUp() override {
    SettingsDialogFixture::SetUp();
    // A user's own lines around the catalogue's.
    Write("tvrusr.ini", "; mine\r\n\r\n" + Read("tvrusr.ini") + "\r\n[Mine]\r\nkeep = this  \r\n");
    Write("tvrtp.ini", "# types\r\n" + Read("tvrtp.ini"));
  }
};

TEST_F(SettingsRoundTripTest, EveryItemEditedIsSavedAndReadBack) {
  ASSERT_TRUE(fs::create_directories(folder_.path() / "code" / "Lib"));
  SettingsDialogModel shown(services_);
  DialogScript script;
  std::vector<std::pair<Item, std::string>> expected;  // the text each key gets
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    const std::string id = SettingsDialogModel::FieldId(item);
    const settings::SettingValue old = settings::ItemDefault(item);
    std::string text;
    if (item == Item::kAutoPrefixVariableName) {
      script.push_back(A::Pick(id, "Always Auto Prefix"));
      text = "1";
    } else if (item == Item::kBaseFolder) {
      text = "\\code\\";
    } else if (item == Item::kLibraryFolder) {
      text = "\\code\\Lib\\";
    } else if (item == Item::kPrefixStandardsFile) {
      continue;  // the type-prefix table's own file: kept
    } else if (FindField(shown.Fields(), id)->kind == FieldKind::kCheck) {
      const bool on = std::holds_alternative<bool>(old) && std::get<bool>(old);
      script.push_back(A::Check(id, !on));
      text = on ? "False" : "True";
    } else {
      text = "x " + id;
    }
    if (script.empty() || script.back().id != id) script.push_back(A::Text(id, text));
    expected.emplace_back(item, text);
  }
  const std::string usr = Read("tvrusr.ini"), tp = Read("tvrtp.ini");
  script.push_back(A::Ok());
  ASSERT_TRUE(Run(script)) << ::testing::PrintToString(host_.refusals)
                           << ::testing::PrintToString(host_.errors);
  EXPECT_EQ(applied_, 1);

  const settings::ValueTable values = Reloaded();
  std::string usr_expected = usr;
  for (const auto& [item, text] : expected) {
    const std::string key = SettingsDialogModel::FieldId(item);
    EXPECT_EQ(settings::ValueAsText(values.Value(item)), text) << key;
    const std::string old = settings::ValueAsText(settings::ItemDefault(item));
    usr_expected = ReplaceAll(usr_expected, "\n" + key + "=" + old + "\r", "\n" + key + "=" + text + "\r");
  }
  // The prefix keys live in tvrtp.ini, the rest in tvrusr.ini; only the
  // edited lines differ.
  std::string tp_expected = tp;
  for (const char* key : {"Prefix Module", "Prefix Global", "Prefix ByRef", "Prefix ByVal"}) {
    const std::string line = "\n" + std::string(key) + "=";
    const auto at = tp_expected.find(line) + line.size();
    tp_expected.replace(at, tp_expected.find('\r', at) - at, "x " + std::string(key));
  }
  EXPECT_EQ(Read("tvrusr.ini"), usr_expected);
  EXPECT_EQ(Read("tvrtp.ini"), tp_expected);
}

// Whichever file refuses, the dialog stays open and neither file changes.
TEST_F(SettingsRoundTripTest, AFileThatRefusesLeavesEveryFileAsItWas) {
  const std::string usr = Read("tvrusr.ini"), tp = Read("tvrtp.ini");
  const DialogScript edits = {A::Text("Developer", "Ann"), A::Text("Prefix Module", "mod"),
                              A::Ok()};
  // tvrusr.ini takes its change first: when tvrtp.ini refuses, it is undone.
  for (const auto& [file, section] :
       {std::pair{"tvrusr.ini", "Developer"}, std::pair{"tvrtp.ini", "Scope Prefix"}}) {
    SCOPED_TRACE(file);
    host_.refusals.clear();
    ReadOnly(file, true);
    DialogScript script = edits;
    script.push_back(A::Cancel());
    EXPECT_FALSE(Run(script));
    ReadOnly(file, false);
    ASSERT_EQ(host_.refusals.size(), 1u);
    EXPECT_TRUE(host_.refusals[0].starts_with("Unable to save INI file section '" +
                                              std::string(section) + "'"))
        << host_.refusals[0];
    EXPECT_EQ(Read("tvrusr.ini"), usr);
    EXPECT_EQ(Read("tvrtp.ini"), tp);
    EXPECT_EQ(applied_, 0);
  }
  // Writable again, the same edits go through.
  ASSERT_TRUE(Run(edits));
  EXPECT_EQ(Reloaded().Text(Item::kPrefixModule), "mod");
  EXPECT_EQ(Reloaded().Text(Item::kDeveloper), "Ann");
  EXPECT_EQ(applied_, 1);
}

}  // namespace
}  // namespace tavrin::builders
