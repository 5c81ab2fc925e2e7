// The builders in the tool: call, procedure --insert, and answer files.
#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

class BuilderToolTest : public AddinToolFixture {
 protected:
  const std::string util_ = Write(
      "basUtil.bas",
      "Attribute VB_Name = \"basUtil\"\r\n"
      "Public Function Twice(ByVal n As Long) As Long\r\nEnd Function\r\n"
      "Public Sub Report(text As String, Optional copies As Integer, Optional wide As Boolean)\r\n"
      "End Sub\r\n");
  const std::string main_ = Write("basMain.bas",
                                  "Attribute VB_Name = \"basMain\"\r\nSub Main()\r\n"
                                  "    x = 1\r\nEnd Sub\r\n\r\nSub Other()\r\nEnd Sub\r\n");
};

TEST_F(BuilderToolTest, CallPrintsTheCallLine) {
  const struct {
    std::vector<std::string> options;
    std::string out;
  } cases[] = {
      {{"Twice", "--arg", "n=5", "--result", "y"}, "y = Twice(5)\r\n"},
      {{"Report", "--arg", "text=\"a\"", "--arg", "wide=True"}, "Report \"a\", , True\r\n"},
      {{"Report", "--arg", "TEXT=t", "--arg", "wide=True", "--explicit", "--each-line"},
       "Report text:=t, _\r\n       wide:=True\r\n"},
      {{"report", "--arg", "text=t", "--comment"}, "' basUtil.Report\r\nReport t\r\n"},
  };
  for (const auto& c : cases) {
    std::vector<std::string> arguments = {"call", util_};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    const ToolRun run = Run(arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, c.out);
  }
}

TEST_F(BuilderToolTest, CallInsertsAtTheCaret) {
  const ToolRun run =
      Run({"call", util_, "Twice", "--arg", "n=x", "-i", main_, "--caret", "2:5", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto json = nlohmann::json::parse(run.out);
  EXPECT_EQ(json["lines"][2], "     = Twice(x)");
  EXPECT_EQ(json["selection"], nlohmann::json::parse("[3, 5, 3, 5]"));
  EXPECT_NE(Read(main_).find("    x = 1\r\n     = Twice(x)\r\nEnd Sub"), std::string::npos);
}

TEST_F(BuilderToolTest, ProcedureInsertsBelowTheProcedureAtTheCaret) {
  const ToolRun run =
      Run({"procedure", "--name", "Added", "-i", main_, "--caret", "2:5", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto json = nlohmann::json::parse(run.out);
  EXPECT_EQ(json["lines"][3], "");
  EXPECT_EQ(json["lines"][4], "Public Sub Added()");
  EXPECT_EQ(json["selection"], nlohmann::json::parse("[6, 1, 6, 1]"));
  EXPECT_EQ(json["lines"][7], "");
  EXPECT_EQ(json["lines"][8], "Sub Other()");
}

TEST_F(BuilderToolTest, AnswerFilesDriveTheDialogs) {
  const std::string answers = Write("a.json", R"({
    "Add Procedure": {"name": "Total", "kind": "Function", "returns": "Currency",
                      "header": false, "error_handler": false, "press": "add"},
    "Argument": {"name": "price", "type": "Currency", "byval": true}
  })");
  const ToolRun run = Run({"procedure", "--answers", answers});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.substr(0, run.out.find("\r\n")),
            "Public Function Total(ByVal price As Currency) As Currency");

  const std::string call = Write("c.json", R"({"Insert Line Of Code":
      {"procedure": "Report", "arg1": "t", "arg3": "True", "explicit": true}})");
  const ToolRun called = Run({"call", util_, "--answers", call});
  ASSERT_EQ(called.status, 0) << called.err;
  EXPECT_EQ(called.out, "Report text:=t, wide:=True\r\n");
}

TEST_F(BuilderToolTest, BadAnswersAreNamed) {
  const struct {
    std::vector<std::string> arguments;
    std::string error;
  } cases[] = {
      {{"call", util_, "Twice", "--arg", "m=1"},
       "tavrin: Twice has no argument m; its arguments: n\n"},
      {{"call", util_, "Nothing"}, "tavrin: no procedure Nothing to call in " + util_ + "\n"},
      {{"call", util_, "Report"},
       "tavrin: The argument text of Report is not optional: give it a value.\n"},
      {{"call", util_, "--answers", Write("x.json", R"({"Insert Line Of Code": {"colour": "red"}})")},
       "tavrin: answers that do not apply: Insert Line Of Code: no usable field colour\n"},
      {{"call", util_, "--answers", Write("y.json", "[1")},
       "tavrin: the answer file is not valid JSON\n"},
      {{"procedure", "--name", "X", "-i", main_}, "tavrin: --insert needs the caret: --caret L:C\n"},
  };
  for (const auto& c : cases) {
    const ToolRun run = Run(c.arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, c.error);
  }
}

}  // namespace
}  // namespace tavrin::testing
