#include "settings/settings_load.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "settings/ini_file.h"
#include "tests/support/fake_ui.h"
#include "tests/support/temp_folder.h"

namespace tavrin::settings {
namespace {

namespace fs = std::filesystem;
using platform::Answer;

class CountingDialog : public SettingsDialog {
 public:
  void ShowModal() override { ++shown; }
  int shown = 0;
};

class SettingsLoadTest : public ::testing::Test {
 protected:
  void Write(std::string_view name, std::string_view bytes) {
    std::ofstream(folder_.File(name), std::ios::binary)
        .write(bytes.data(), std::streamsize(bytes.size()));
  }
  std::string Read(std::string_view name) {
    std::ifstream in(folder_.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  LoadReport Load(bool interactive) { return LoadValueTable(values_, services_, interactive); }
  // A second start: every key present, Developer filled.
  void Started() {
    Load(false);
    ASSERT_TRUE(SaveItem(values_, services_, Item::kDeveloper, std::string("Ann")).ok());
  }

  testing::TempFolder folder_;
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
  testing::FakeUi ui_;
  CountingDialog dialog_;
  SettingsServices services_{profiles_, files_, ui_, dialog_, folder_.path().string()};
  ValueTable values_;
};

TEST(CatalogueTest, MapsItemsToNamesSectionsAndFiles) {
  testing::FakeUi ui;
  EXPECT_EQ(Item2Name(Item::kEachArgumentOnANewLine, ui), "Each Argument on a New Line");
  EXPECT_EQ(Section2Name(Section::kFragmentsReference, ui), "fragments/reference");
  EXPECT_EQ(IniFile2Name(*Section2IniFile(Section::kScopePrefix, ui), ui), "tvrtp.ini");
  EXPECT_EQ(Item2IniItemType(Item::kBaseFolder, ui), IniItemType::kFolderPath);
  EXPECT_EQ(ValueAsText(ItemDefault(Item::kCodeCaseElse)), "Msgbox \"Missing Case\"");
  EXPECT_EQ(ValueAsText(ItemDefault(Item::kAutoPrefixVariableName)), "2");
  EXPECT_TRUE(ui.boxes_shown.empty());
}

TEST(CatalogueTest, UnknownValuesSayMissingCase) {
  testing::FakeUi ui;
  EXPECT_EQ(IniFile2Name(static_cast<IniFile>(9), ui), "");
  EXPECT_EQ(Section2Name(static_cast<Section>(42), ui), "");
  EXPECT_EQ(Item2Name(static_cast<Item>(99), ui), "");
  EXPECT_EQ(Section2IniFile(static_cast<Section>(-1), ui), std::nullopt);
  EXPECT_EQ(ItemInSection(static_cast<Item>(77), ui), std::nullopt);
  std::vector<std::string> texts;
  for (const auto& box : ui.boxes_shown) texts.push_back(box.text);
  EXPECT_EQ(texts, (std::vector<std::string>{
                       "Missing Case in IniFile2Name for IniFile",
                       "Missing Case in Section2Name for Section 42",
                       "Missing Case in Item2Name99",
                       "Missing Case in Section2Name for Section -1",
                       "Missing Case in Section2IniFile for Section ",
                       "Missing Case in Item2Name77",
                       "Missing Case in ItemInSection ",
                   }));
}

TEST(ValueTableTest, ConvertsLikeTheRuntime) {
  struct Case {
    std::string_view text;
    std::optional<bool> yes_no;
    std::optional<int> number;
  };
  const Case cases[] = {
      {"True", true, std::nullopt}, {"false", false, std::nullopt}, {" TRUE ", true, std::nullopt},
      {"0", false, 0},              {"-1", true, -1},               {"2.5", true, 2},
      {"3.5", true, 4},             {"yes", std::nullopt, std::nullopt},
      {"", std::nullopt, std::nullopt}, {"0x10", std::nullopt, std::nullopt},
      {"nan", std::nullopt, std::nullopt}, {"99999999999", true, std::nullopt},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TextToYesNo(c.text), c.yes_no) << c.text;
    EXPECT_EQ(TextToWholeNumber(c.text), c.number) << c.text;
  }
}

TEST_F(SettingsLoadTest, FirstStartWritesEveryKeyAndOpensTheDialog) {
  const LoadReport report = Load(true);
  EXPECT_TRUE(report.defaults_written);
  EXPECT_EQ(dialog_.shown, 1);
  EXPECT_TRUE(ui_.boxes_shown.empty());
  C4_IniFile usr(profiles_, files_, folder_.path().string());
  usr.SetName("tvrusr.ini");
  C4_IniFile tp(profiles_, files_, folder_.path().string());
  tp.SetName("tvrtp.ini");
  for (int i = 0; i < kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    ASSERT_TRUE(ItemInSection(item, ui_)) << i;
    const std::string section = Section2Name(*ItemInSection(item, ui_), ui_);
    const std::string key = Item2Name(item, ui_);
    const C4_IniFile& file = section.ends_with("Prefix") ? tp : usr;
    ASSERT_TRUE(file.ValueExists(section, key)) << key;
    EXPECT_EQ(file.Value(section, key), ValueAsText(ItemDefault(item))) << key;
  }
  EXPECT_NE(Read("tvrusr.ini").find("[Property Builder]\r\n"
                                    "Add Error Handling Property=On Error GoTo ExitLabel\r\n"
                                    "Add Property Constant=\r\n"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(folder_.path() / "tvrrefra.ini"));  // no item lives there

  // The second load writes nothing more.
  const std::string usr_before = Read("tvrusr.ini");
  EXPECT_FALSE(Load(false).defaults_written);
  EXPECT_EQ(Read("tvrusr.ini"), usr_before);
  EXPECT_EQ(values_.Value(Item::kAddPropertyConstant), SettingValue(std::string()));
  EXPECT_FALSE(values_.YesNo(Item::kAddPropertyConstant));
  EXPECT_EQ(values_.Value(Item::kAddHeaderMethod), SettingValue(true));
}

TEST_F(SettingsLoadTest, ReadsValuesByTypeAndKeepsEmptyText) {
  Write("tvrtp.ini", "[scope prefix]\r\nPREFIX MODULE=\r\nPrefix Global = glob \r\n");
  Write("tvrusr.ini",
        "[Other]\r\nAuto Prefix Variable Name=1\r\nView Tavrin Window=-1\r\n"
        "Declaration Indented=\r\n[Const Builder]\r\nConst Tag Before Type Tag=false\r\n");
  Load(false);
  EXPECT_EQ(values_.Text(Item::kPrefixModule), "");  // empty, not "m"
  EXPECT_EQ(values_.Text(Item::kPrefixGlobal), "glob");
  EXPECT_EQ(values_.WholeNumber(Item::kAutoPrefixVariableName), 1);
  EXPECT_TRUE(values_.YesNo(Item::kViewTavrinWindow));
  EXPECT_TRUE(values_.YesNo(Item::kDeclarationIndented));  // empty keeps the default
  EXPECT_FALSE(values_.YesNo(Item::kConstTagBeforeTypeTag));
  // The existing lines stay as they were; missing keys follow them.
  EXPECT_TRUE(Read("tvrtp.ini").starts_with(
      "[scope prefix]\r\nPREFIX MODULE=\r\nPrefix Global=glob\r\n"));
}

TEST_F(SettingsLoadTest, BadValueKeepsItsDefaultAndSaysSo) {
  Write("tvrusr.ini", "[Method Builder]\r\nAdd Header Method=perhaps\r\nAdd Hourglass Method=1\r\n");
  const LoadReport report = Load(false);
  EXPECT_TRUE(values_.YesNo(Item::kAddHeaderMethod));
  EXPECT_TRUE(values_.YesNo(Item::kAddHourglassMethod));  // read after the bad one
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text,
            "The setting 'Add Header Method' in section 'Method Builder' of tvrusr.ini holds "
            "'perhaps', which is not a yes/no value (True or False); its default is used.");
  EXPECT_EQ(report.problems.size(), 1u);
}

TEST_F(SettingsLoadTest, EmptyDeveloperAsksAboutTheWindows) {
  Load(false);
  ui_.box_answers = {Answer::kYes, Answer::kNo};
  Load(true);
  EXPECT_EQ(dialog_.shown, 1);
  ASSERT_EQ(ui_.boxes_shown.size(), 3u);
  EXPECT_TRUE(ui_.boxes_shown[0].text.starts_with("Tavrin Code Explorer is a replacement"));
  EXPECT_TRUE(ui_.boxes_shown[1].text.starts_with("Tavrin Shortcuts and Search is"));
  EXPECT_TRUE(ui_.boxes_shown[1].text.ends_with("window opened?\r\n"));
  EXPECT_EQ(ui_.boxes_shown[2].text, "Don't forget to dock it");
  EXPECT_TRUE(values_.YesNo(Item::kViewCodeExplorerWindow));
  EXPECT_NE(Read("tvrusr.ini").find("View Code Explorer Window=True\r\n"), std::string::npos);
  EXPECT_NE(Read("tvrusr.ini").find("View Tavrin Window=False\r\n"), std::string::npos);

  // Both answered No: no reminder. Both already True: no question.
  ui_.boxes_shown.clear();
  ui_.box_answers = {Answer::kNo};
  Load(true);
  EXPECT_EQ(ui_.boxes_shown.size(), 1u);
}

TEST_F(SettingsLoadTest, KnownDeveloperAsksNothing) {
  Started();
  Load(true);
  EXPECT_EQ(dialog_.shown, 0);
  EXPECT_TRUE(ui_.boxes_shown.empty());
  EXPECT_EQ(values_.Text(Item::kDeveloper), "Ann");
}

TEST_F(SettingsLoadTest, UnwritableFileIsReportedAndDefaultsServe) {
  fs::create_directory(folder_.path() / "tvrusr.ini");
  const LoadReport report = Load(false);
  EXPECT_EQ(values_.Text(Item::kErrorHandler), "HandleError");
  ASSERT_FALSE(report.problems.empty());
  EXPECT_TRUE(report.problems[0].starts_with("Unable to save INI file section 'Developer'"));
  EXPECT_TRUE(ui_.boxes_shown[0].text.starts_with("Unable to save INI file section"));
  EXPECT_FALSE(SaveItem(values_, services_, Item::kDeveloper, std::string("x")).ok());
}

}  // namespace
}  // namespace tavrin::settings
