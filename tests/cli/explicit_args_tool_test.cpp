// tavrin explicit-args: the call at the caret named, its procedure in the
// module itself or in the modules of a project.
#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

class ExplicitArgsToolTest : public ToolFixture {
 protected:
  const std::string util_ = Write(
      "basUtil.bas",
      "Attribute VB_Name = \"basUtil\"\r\n"
      "Public Sub Report(text As String, Optional copies As Integer, Optional wide As Boolean)\r\n"
      "End Sub\r\n");
  const std::string main_ = Write(
      "basMain.bas",
      "Attribute VB_Name = \"basMain\"\r\nSub Main()\r\n    Report \"a\", , _\r\n"
      "        True\r\n    Twice 2\r\nEnd Sub\r\n\r\nSub Twice(ByVal n As Long)\r\nEnd Sub\r\n");
  const std::string project_ = Write(
      "Shop.vbp", "Type=Exe\r\nModule=basUtil; basUtil.bas\r\nModule=basMain; basMain.bas\r\n"
                  "Name=\"Shop\"\r\n");
};

TEST_F(ExplicitArgsToolTest, NamesTheArgumentsInPlace) {
  const struct {
    std::vector<std::string> options;
    int status;
    std::string line, err;  // the rewritten line 2 or 4; the error
  } cases[] = {
      {{"--caret", "4:5"}, 0, "    Twice n:=2", ""},
      {{"--caret", "3:5"}, 2, "", "The called procedure is missing"},
      {{"--caret", "3:5", "--project", project_}, 0, "    Report text:=\"a\", _", ""},
      {{}, 2, "", "--insert needs the caret"},
  };
  for (const auto& c : cases) {
    std::vector<std::string> arguments = {"explicit-args", "-i", main_, "--json"};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    const ToolRun run = Run(arguments);
    ASSERT_EQ(run.status, c.status) << run.err;
    if (c.status != 0) {
      EXPECT_NE(run.err.find(c.err), std::string::npos) << run.err;
      continue;
    }
    const auto json = nlohmann::json::parse(run.out);
    const int line = c.line.find("Twice") != std::string::npos ? 3 : 1;
    EXPECT_EQ(json["lines"][line], c.line);
  }
  EXPECT_NE(Read(main_).find("        wide:=True\r\n    Twice n:=2\r\n"), std::string::npos);
}

}  // namespace
}  // namespace tavrin::testing
