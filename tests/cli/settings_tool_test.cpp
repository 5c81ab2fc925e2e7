// The settings, naming, path and INI commands of the tool, run as a script
// would run them, on an add-in folder of their own.
#include <gtest/gtest.h>

#include <filesystem>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

namespace fs = std::filesystem;

using SettingsToolTest = AddinToolFixture;

TEST_F(SettingsToolTest, FirstUseCreatesTheFilesAndListsEverySetting) {
  const ToolRun run = Run({"settings", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto list = nlohmann::json::parse(run.out);
  ASSERT_EQ(list.size(), 54u);
  EXPECT_EQ(list[0]["key"], "Developer");
  EXPECT_EQ(list[11]["file"], "tvrtp.ini");
  EXPECT_EQ(list[53]["type"], "folder path");
  EXPECT_EQ(list[53]["value"], "\\vbcode\\");
  EXPECT_NE(Read("addin/tvrusr.ini").find("[File Locations]\r\n"), std::string::npos);
  EXPECT_NE(Read("addin/tvrtp.ini").find("Long Prefix=lng"), std::string::npos);
  EXPECT_TRUE(fs::exists(addin_ + "/vbcode/ErrorHandlers/basErrorHandle.bas"));
}

TEST_F(SettingsToolTest, SetThenName) {
  EXPECT_EQ(Run({"name", "Count", "--type", "Long", "--scope", "module"}).out, "mlngCount\n");
  EXPECT_EQ(Run({"name", "MaxItems", "--type", "long", "--scope", "global", "--const"}).out,
            "gclngMaxItems\n");
  ASSERT_EQ(Run({"settings", "set", "prefix module", ""}).status, 0);
  EXPECT_NE(Read("addin/tvrtp.ini").find("Prefix Module=\r\n"), std::string::npos);
  EXPECT_EQ(Run({"name", "Count", "--type", "Long", "--scope", "module"}).out, "lngCount\n");
  ASSERT_EQ(Run({"settings", "set", "Const Tag Before Type Tag", "0"}).status, 0);
  EXPECT_NE(Read("addin/tvrusr.ini").find("Const Tag Before Type Tag=False\r\n"), std::string::npos);

  const ToolRun bad = Run({"settings", "set", "Add Header Method", "maybe"});
  EXPECT_EQ(bad.status, 2);
  EXPECT_EQ(bad.err, "tavrin: 'Add Header Method' takes True or False, not 'maybe'\n");
  EXPECT_EQ(Run({"settings", "set", "No Such Key", "1"}).status, 2);
}

TEST_F(SettingsToolTest, PathsAndFolders) {
  EXPECT_EQ(Run({"path", "<templates>\\CollectionClass\\CollectionClass.cls"}).out,
            addin_ + "/vbcode/Templates/CollectionClass/CollectionClass.cls\n");
  const auto folders = nlohmann::json::parse(Run({"folders", "--json"}).out);
  EXPECT_EQ(folders[3]["pseudoRoot"], "<fragments>");
  EXPECT_EQ(folders[3]["folder"], addin_ + "/vbcode/Fragments");
}

TEST_F(SettingsToolTest, IniCommands) {
  Write("addin/x.ini", "; mine\r\n[A]\r\nk = 1\r\n\r\n[B]\r\nj=2\r\n");
  EXPECT_EQ(Run({"ini", "get", "x.ini", "a", "K"}).out, "1\n");
  EXPECT_EQ(Run({"ini", "get", "x.ini", "a", "missing"}).status, 1);
  ASSERT_EQ(Run({"ini", "set", "x.ini", "B", "n", "3"}).status, 0);
  EXPECT_EQ(Read("addin/x.ini"), "; mine\r\n[A]\r\nk = 1\r\n\r\n[B]\r\nj=2\r\nn=3\r\n");
  ASSERT_EQ(Run({"ini", "remove", "x.ini", "B", "j"}).status, 0);
  ASSERT_EQ(Run({"ini", "delete-section", "x.ini", "A"}).status, 0);
  EXPECT_EQ(Read("addin/x.ini"), "; mine\r\n[A]\r\n\r\n[B]\r\nn=3\r\n");
  const auto dump = nlohmann::json::parse(Run({"ini", "dump", "x.ini", "--json"}).out);
  EXPECT_EQ(dump["sections"][1]["name"], "B");
  EXPECT_EQ(dump["sections"][1]["items"][0]["key"], "n");
  EXPECT_EQ(Run({"ini", "dump", "x.ini"}).out, "[A]\n[B]\nn=3\n");
}

TEST_F(SettingsToolTest, FailuresAreClearAndChangeNothing) {
  fs::create_directory(addin_ + "/dir.ini");
  const ToolRun folder = Run({"ini", "set", "dir.ini", "S", "k", "v"});
  EXPECT_EQ(folder.status, 2);
  EXPECT_TRUE(folder.err.starts_with("tavrin: ")) << folder.err;

  const ToolRun missing = RunTool({"--addin-dir", folder_.File("nowhere"), "settings"},
                                  folder_.path().string());
  EXPECT_EQ(missing.status, 2);
}

}  // namespace
}  // namespace tavrin::testing
