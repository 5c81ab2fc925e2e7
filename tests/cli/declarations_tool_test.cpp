#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

using BuildersToolTest = AddinToolFixture;

TEST_F(BuildersToolTest, PrintsTheDeclarationOrRefusesIt) {
  const struct {
    std::vector<std::string> arguments;
    int status;
    std::string out_or_err;
  } rows[] = {
      {{"variable", "--name", "Count", "--type", "Long", "--scope", "module"}, 0,
       "Private mlngCount As Long\r\n"},
      {{"variable", "--name", "Items", "--type", "Collection", "--new", "--scope", "global"}, 0,
       "Public gcolItems As New Collection\r\n"},
      {{"constant", "--name", "Max", "--type", "Byte", "--value", "300"}, 2,
       "The value 300 does not fit the type Byte."},
      {{"constant", "--name", "Title", "--value", "Stock"}, 0,
       "Private Const mcstrTitle As String = \"Stock\"\r\n"},
      {{"property", "--name", "Total", "--type", "Long"}, 2, "A property can only be added"},
      {{"variable", "--name", "x", "--scope", "nowhere"}, 2, "--scope must be"},
      {{"enum", "--name", "eColour", "--members", "Red, Green", "--numbered"}, 0,
       "Public Enum eColour\r\n    Red = 0\r\n    Green = 1\r\nEnd Enum\r\n"},
      {{"type", "--name", "tPoint", "--members", "X As Long, 1Y"}, 2, "(1Y)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.arguments[0] + " " + row.arguments[2]);
    const ToolRun run = Run(row.arguments);
    EXPECT_EQ(run.status, row.status) << run.err;
    if (row.status == 0)
      EXPECT_EQ(run.out, row.out_or_err);
    else
      EXPECT_NE(run.err.find(row.out_or_err), std::string::npos) << run.err;
  }
}

TEST_F(BuildersToolTest, WritesIntoAFileAtTheCaret) {
  const std::string module = Write("Module1.bas",
                                   "Attribute VB_Name = \"Module1\"\r\n"
                                   "Option Explicit\r\n"
                                   "Sub Warn()\r\n"
                                   "    MsgBox \"Out of stock\"\r\n"
                                   "End Sub\r\n");
  ToolRun run = Run({"constant", "--name", "OutOfStock", module, "--select", "3:12-3:26", "-i"});
  ASSERT_EQ(run.status, 0) << run.err;
  run = Run({"variable", "--name", "Done", "--type", "Boolean", module, "--caret", "4:1",
             "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto json = nlohmann::json::parse(run.out);
  EXPECT_EQ(json["lines"][0], "Option Explicit");
  EXPECT_EQ(json["lines"][1], "Private Const mcstrOutOfStock As String = \"Out of stock\"");
  EXPECT_EQ(json["lines"][3], "    Dim blnDone As Boolean");
  EXPECT_EQ(json["lines"][4], "    MsgBox mcstrOutOfStock");
}

}  // namespace
}  // namespace tavrin::testing
