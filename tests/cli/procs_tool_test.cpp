#include <gtest/gtest.h>

#include <fstream>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_runner.h"
#include "tests/support/temp_folder.h"

namespace tavrin::testing {
namespace {

class ProcsToolTest : public ::testing::Test {
 protected:
  std::string Write(std::string_view name, std::string_view bytes) {
    const std::string path = folder_.File(name);
    std::ofstream(path, std::ios::binary).write(bytes.data(), bytes.size());
    return path;
  }
  ToolRun Run(const std::vector<std::string>& arguments) {
    return RunTool(arguments, folder_.path().string());
  }

  TempFolder folder_;
};

TEST_F(ProcsToolTest, ProcsGivesOneRecordPerProcedureWithTheModulesLines) {
  const std::string module = Write(
      "Module1.bas",
      "Attribute VB_Name = \"Module1\"\r\n"
      "Option Explicit\r\n"
      "\r\n"
      "Public Sub AddItem(ByVal Price As Currency, _\r\n"
      "                   Optional Count As Long = 1)\r\n"
      "End Sub\r\n"
      "Private Function Total&()\r\n"
      "End Function\r\n");
  const ToolRun run = Run({"procs", module, "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto json = nlohmann::json::parse(run.out);
  ASSERT_EQ(json.size(), 2u);
  EXPECT_EQ(json[0]["name"], "AddItem");
  EXPECT_EQ(json[0]["startLine"], 2);
  EXPECT_EQ(json[0]["bodyLine"], 3);
  EXPECT_EQ(json[0]["defCountOfLines"], 2);
  EXPECT_EQ(json[0]["argNameList"], "Price, [Count]");
  EXPECT_EQ(json[0]["args"][1]["defaultValue"], "1");
  EXPECT_EQ(json[0]["procDef"],
            "Public Sub AddItem(ByVal Price As Currency, _\r\n"
            "                   Optional Count As Long = 1)");
  EXPECT_EQ(json[1]["name"], "Total");
  EXPECT_EQ(json[1]["isPublic"], false);
  // The IDE names the function without its type character, so the
  // character gives no return type here (it does in a library text).
  EXPECT_EQ(json[1]["returnType"], "");
  EXPECT_EQ(json[1]["kindStr"], "Sub/Function");

  const ToolRun text = Run({"procs", module});
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_EQ(text.out, "3\tSub/Function\tAddItem\tPrice, [Count]\t\n6\tSub/Function\tTotal\t\t\n");
}

TEST_F(ProcsToolTest, ADuplicateArgumentIsReportedAndTheOthersListed) {
  const std::string module = Write("M.bas", "Sub A(x, x)\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\n");
  const ToolRun run = Run({"procs", module, "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "tavrin: A: the argument name 'x' is used twice\n");
  const auto json = nlohmann::json::parse(run.out);
  ASSERT_EQ(json.size(), 2u);
  EXPECT_EQ(json[0]["error"], "the argument name 'x' is used twice");
  EXPECT_FALSE(json[1].contains("error"));
}

TEST_F(ProcsToolTest, DeclReadsALibraryTextWithAnyLineBreaks) {
  const ToolRun run =
      Run({"decl", "Function Count%(s$, _\nOptional ByVal n = 2)\n  Count = 1\nEnd Function",
           "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto json = nlohmann::json::parse(run.out);
  EXPECT_EQ(json["name"], "Count");
  EXPECT_EQ(json["returnType"], "Integer");
  EXPECT_EQ(json["countLines"], 4);
  EXPECT_EQ(json["oneLineProcDef"], "Function Count%(s$,Optional ByVal n = 2)");
  EXPECT_EQ(json["args"][0]["name"], "s$");
  EXPECT_EQ(json["args"][1]["isByVal"], true);
}

TEST_F(ProcsToolTest, BadInput) {
  const ToolRun duplicate = Run({"decl", "Sub X(a, A)"});
  EXPECT_EQ(duplicate.status, 2);
  EXPECT_EQ(duplicate.err, "tavrin: the argument name 'A' is used twice\n");
  EXPECT_EQ(duplicate.out, "");
  const ToolRun missing = Run({"procs", folder_.File("none.bas")});
  EXPECT_EQ(missing.status, 2);
  const ToolRun empty = Run({"decl", ""});
  EXPECT_EQ(empty.status, 0) << empty.err;
}

}  // namespace
}  // namespace tavrin::testing
