#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_runner.h"
#include "tests/support/temp_folder.h"

namespace tavrin::testing {
namespace {

using nlohmann::json;

std::vector<std::string> Captions(const json& controls) {
  std::vector<std::string> captions;
  for (const json& control : controls) captions.push_back(control["caption"]);
  return captions;
}

const json& Child(const json& controls, std::string_view caption) {
  for (const json& control : controls)
    if (control["caption"] == caption) return control;
  throw std::runtime_error("no control " + std::string(caption));
}

class CommandsTest : public ::testing::Test {
 protected:
  ToolRun Run(const std::vector<std::string>& arguments) {
    return RunTool(arguments, folder_.path().string());
  }
  TempFolder folder_;
};

TEST_F(CommandsTest, JsonGivesTheWholeTreeInScreenOrder) {
  const ToolRun run = Run({"commands", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const json bars = json::parse(run.out);
  ASSERT_EQ(bars.size(), 2u);
  EXPECT_EQ(bars[0]["bar"], "Tavrin");
  EXPECT_EQ(bars[1]["bar"], "Code Window");

  const json& toolbar = bars[0]["controls"];
  EXPECT_EQ(Captions(toolbar),
            (std::vector<std::string>{"&Add Variable...", "&Add Constant...", "&Add Property...",
                                      "Add C&ontrol...", "Insert Varia&ble...",
                                      "Add P&rocedure...", "Add Cl&ass...",
                                      "Insert &Line Of Code...", "Insert Fragme&nt...",
                                      "View &Shortcuts and Search…", "View Code &Explorer…",
                                      "&Tavrin", "Hel&p"}));
  EXPECT_EQ(toolbar[0],
            json::parse(R"({"caption": "&Add Variable...", "identifier": 103, "type": "button",
                            "picture": true, "group": false, "handler": "mnuhAddVariable_Click",
                            "testingOnly": false})"));
  const json& tavrin = Child(toolbar, "&Tavrin");
  EXPECT_EQ(tavrin["type"], "popup");
  EXPECT_EQ(tavrin["handler"], nullptr);
  EXPECT_EQ(tavrin["controls"].size(), 20u);
  EXPECT_EQ(Child(tavrin["controls"], "Add C&ontrol...")["testingOnly"], true);
  const json& error = Child(tavrin["controls"], "&Error");
  const json& handling = Child(error["controls"], "&Add Error Handling");
  EXPECT_EQ(handling["type"], "dropdown");
  EXPECT_EQ(handling["group"], true);
  EXPECT_EQ(Captions(Child(Child(tavrin["controls"], "&For/While")["controls"], "D&o")["controls"]),
            (std::vector<std::string>{"Loop &While", "Loop &Until"}));
  EXPECT_EQ(Child(error["controls"], "&Debug.Print... ")["handler"], "mnuhDebugPrint_Click");

  const json& insert = bars[1]["controls"][0];
  EXPECT_EQ(insert["caption"], "Tavrin Insert");
  EXPECT_EQ(insert["controls"].size(), 5u);
}

TEST_F(CommandsTest, TextListsOneControlALineIndentedByDepth) {
  const ToolRun run = Run({"commands"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(run.out.starts_with("Tavrin\n"
                                  "  &Add Variable... [103, picture] mnuhAddVariable_Click\n"));
  EXPECT_NE(run.out.find("\n  | &Tavrin [122, popup]\n    &Variable [123, popup]\n"),
            std::string::npos);
  EXPECT_NE(run.out.find("      | &Add Error Handling [167, dropdown] mnuhErrorHandling_Click\n"),
            std::string::npos);
  EXPECT_NE(run.out.find("\nCode Window\n  | Tavrin Insert [2011, popup]\n"), std::string::npos);
}

}  // namespace
}  // namespace tavrin::testing
