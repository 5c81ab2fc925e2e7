// The fragment commands of the tool and the settings checks it shares with
// the settings dialog, run on an add-in folder of their own.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

namespace fs = std::filesystem;

class FragmentToolTest : public AddinToolFixture {
 protected:
  void SetUp() override {
    ASSERT_EQ(Run({"settings"}).status, 0);  // first use: seeds the folder
    Write("addin/vbcode/Fragments/Loops/ForEach.bas",
          "For Each {Item} In {Items}\r\n    <cursor>\r\nNext\r\n");
    Write("addin/tvrvars.ini", "[Variables]\r\nItems=Orders\r\n");
    Write("Module1.bas", "Attribute VB_Name = \"Module1\"\r\nSub Main()\r\n\r\nEnd Sub\r\n");
  }
};

TEST_F(FragmentToolTest, ListsAndInsertsFragments) {
  const ToolRun listed = Run({"fragments", "--json"});
  ASSERT_EQ(listed.status, 0) << listed.err;
  const auto tree = nlohmann::json::parse(listed.out);
  std::vector<std::string> shown;
  for (const auto& entry : tree) shown.push_back(entry["display"]);
  EXPECT_NE(std::find(shown.begin(), shown.end(), "<fragments>Loops\\ForEach.bas"), shown.end());
  EXPECT_NE(std::find(shown.begin(), shown.end(),
                      "<fragments>Headers And Comments\\ProcedureHeader.bas"),
            shown.end());

  const std::string module = folder_.File("Module1.bas");
  const ToolRun inserted = Run({"fragment", "insert", "ForEach", module, "--caret", "2:5",
                                "--var", "item=Order", "--json"});
  ASSERT_EQ(inserted.status, 0) << inserted.err;
  const auto code = nlohmann::json::parse(inserted.out);
  EXPECT_EQ(code["lines"], nlohmann::json({"Sub Main()", "    For Each Order In Orders", "        ",
                                           "    Next", "End Sub"}));
  EXPECT_EQ(code["selection"], nlohmann::json({3, 9, 3, 9}));

  // A variable neither given nor defined is asked; the answer is remembered.
  const ToolRun asked = Run({"--answer", "Line", "fragment", "insert", "<fragments>Loops\\ForEach.bas",
                             module, "--caret", "2:5", "-i"});
  ASSERT_EQ(asked.status, 0) << asked.err;
  EXPECT_NE(Read("Module1.bas").find("    For Each Line In Orders\r\n"), std::string::npos);
  EXPECT_NE(Read("addin/tvrvars.ini").find("[Last Answers]\r\nItem=Line\r\n"), std::string::npos);

  const ToolRun unknown = Run({"fragment", "insert", "Nothing", module, "--caret", "2:5"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("no fragment 'Nothing'"), std::string::npos);
}

TEST_F(FragmentToolTest, SavesRenamesMovesAndDeletes) {
  const std::string module = folder_.File("Module1.bas");
  const ToolRun saved = Run({"fragment", "save", "<fragments>Loops", "Main", module, "--caret", "2:3"});
  ASSERT_EQ(saved.status, 0) << saved.err;
  EXPECT_EQ(Read("addin/vbcode/Fragments/Loops/Main.bas"), "Sub Main()\r\n\r\nEnd Sub\r\n");
  EXPECT_EQ(Run({"fragment", "save", "<fragments>Loops", "Main", module, "--caret", "2:3"}).status, 2);
  ASSERT_EQ(Run({"fragment", "rename", "Main", "Start"}).status, 0);
  ASSERT_EQ(Run({"fragment", "move", "Start.bas", "<library>"}).status, 0);
  EXPECT_TRUE(fs::exists(folder_.path() / "addin/vbcode/Library/Start.bas"));
  ASSERT_EQ(Run({"fragment", "delete", "<library>Start.bas"}).status, 0);
  EXPECT_FALSE(fs::exists(folder_.path() / "addin/vbcode/Library/Start.bas"));
}

TEST_F(FragmentToolTest, SettingsChecksSayWhatTheDialogSays) {
  const ToolRun mode = Run({"settings", "set", "Auto Prefix Variable Name", "7"});
  EXPECT_EQ(mode.status, 2);
  EXPECT_EQ(mode.err,
            "tavrin: 'Auto Prefix Variable Name' takes 0, 1 or 2 (No Auto Prefix, Always Auto "
            "Prefix, Auto Prefix before capital char), not '7'\n");
  const ToolRun refused = Run({"--no", "settings", "set", "Library Folder", "\\lib\\"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_NE(refused.err.find("of 'Library Folder' does not exist\n"), std::string::npos)
      << refused.err;
  EXPECT_EQ(Run({"--yes", "settings", "set", "Library Folder", "\\lib\\"}).status, 0);
  EXPECT_TRUE(fs::is_directory(folder_.path() / "addin/lib"));
}

}  // namespace
}  // namespace tavrin::testing
