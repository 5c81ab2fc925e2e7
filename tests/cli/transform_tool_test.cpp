// The tool's rewrite, page and access-key commands over source files.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

constexpr std::string_view kModule =
    "Attribute VB_Name = \"Module1\"\r\n"
    "Option Explicit\r\n"               // 1
    "Public Sub Main()\r\n"             // 2
    "    Dim s As String ' caf\xE9\r\n"  // 3, Windows-1252
    "    s = \"it's\"\r\n"              // 4
    "    MsgBox s\r\n"                  // 5
    "End Sub\r\n";                      // 6

constexpr std::string_view kForm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmKeys\r\n"
    "   Caption         =   \"Keys\"\r\n"
    "   Begin VB.CommandButton cmdOpen\r\n"
    "      Caption         =   \"&Open\"\r\n"
    "   End\r\n"
    "   Begin VB.CommandButton cmdKey\r\n"
    "      Caption         =   \"&Options\"\r\n"
    "      Index           =   3\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmKeys\"\r\n"
    "Option Explicit\r\n";

class TransformToolTest : public ToolFixture {
 protected:
  std::vector<std::string> JsonLines(const ToolRun& run) {
    EXPECT_EQ(run.status, 0) << run.err;
    return nlohmann::json::parse(run.out).at("lines").get<std::vector<std::string>>();
  }
};

TEST_F(TransformToolTest, LinesAddAndRemoveKeepTheFileOtherwiseAsItWas) {
  const std::string module = Write("Module1.bas", kModule);
  const ToolRun added = Run({"lines", "add", module, "-i"});
  ASSERT_EQ(added.status, 0) << added.err;
  const std::string numbered = Read(module);
  EXPECT_NE(numbered.find("\r\n50     s = \"it's\"\r\n60     MsgBox s\r\n"), std::string::npos)
      << numbered;
  EXPECT_NE(numbered.find("Dim s As String ' caf\xE9\r\n"), std::string::npos) << "encoding kept";
  ASSERT_EQ(Run({"lines", "add", module, "-i"}).status, 0);
  EXPECT_EQ(Read(module), numbered) << "numbering twice equals numbering once";
  ASSERT_EQ(Run({"lines", "remove", module, "-i"}).status, 0);
  EXPECT_EQ(Read(module), kModule);
}

TEST_F(TransformToolTest, LinesFollowThePositionGiven) {
  const std::string module = Write("Module1.bas", kModule);
  EXPECT_EQ(JsonLines(Run({"lines", "add", module, "--caret", "5:3", "--json"}))[4],
            "100     MsgBox s");
  EXPECT_EQ(JsonLines(Run({"lines", "add", module, "--lines", "4-5", "--json"}))[3],
            "80     s = \"it's\"");
}

TEST_F(TransformToolTest, CommentAddAndRemoveRoundTrip) {
  const std::string module = Write("Module1.bas", kModule);
  const ToolRun added = Run({"comment", "add", module, "--select", "3:5-5:1", "--json"});
  const auto json = nlohmann::json::parse(added.out);
  EXPECT_EQ(json.at("lines")[2], "'    Dim s As String ' caf\xC3\xA9");
  EXPECT_EQ(json.at("lines")[4], "    MsgBox s");
  EXPECT_EQ(json.at("selection"), nlohmann::json({3, 5, 5, 1}));

  ASSERT_EQ(Run({"comment", "add", module, "--lines", "3-4", "-i"}).status, 0);
  const ToolRun removed = Run({"comment", "remove", module, "--lines", "3-4"});
  ASSERT_EQ(removed.status, 0) << removed.err;
  EXPECT_EQ(removed.out, kModule);
}

// A module without code lines: a class, and a form with only its designer
// block. A rewrite over the whole of it leaves the file as it was.
TEST_F(TransformToolTest, RewritesOfAModuleWithoutCodeLinesChangeNothing) {
  constexpr std::string_view kEmptyClass =
      "VERSION 1.0 CLASS\r\n"
      "BEGIN\r\n"
      "  MultiUse = -1  'True\r\n"
      "END\r\n"
      "Attribute VB_Name = \"Empty\"\r\n"
      "Attribute VB_Exposed = False\r\n";
  const std::string designer_only(kForm.substr(0, kForm.find("Option Explicit")));
  const struct {
    const char* file;
    std::string_view text;
  } modules[] = {{"Empty.cls", kEmptyClass}, {"frmKeys.frm", designer_only}};
  for (const auto& [file, text] : modules) {
    const std::string path = Write(file, text);
    for (const char* command : {"comment", "lines"}) {
      for (const char* action : {"add", "remove"}) {
        const ToolRun run = Run({command, action, path, "-i"});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(Read(path), text) << file << ": " << command << " " << action;
      }
    }
  }
}

TEST_F(TransformToolTest, HtmlGivesTheFragmentOrThePageOfAProcedure) {
  const std::string module = Write("Module1.bas", kModule);
  const ToolRun fragment = Run({"html", module, "--procedure", "main", "--fragment"});
  ASSERT_EQ(fragment.status, 0) << fragment.err;
  EXPECT_EQ(fragment.out.substr(0, 62),
            "<font color=#000080>Public</font>&nbsp;<font color=#000080>Sub");
  EXPECT_TRUE(fragment.out.ends_with("<font color=#000080>End</font>&nbsp;"
                                     "<font color=#000080>Sub</font>"))
      << fragment.out;

  const std::string page_template = Write("t.htm", "<title>[title] of [modulename]</title>[code]");
  const std::string page = folder_.File("page.htm");
  ASSERT_EQ(Run({"html", module, "--template", page_template, "-o", page}).status, 0);
  EXPECT_TRUE(Read(page).starts_with("<title>Module1 of Module1</title>")) << Read(page);
  EXPECT_NE(Read(page).find("caf\xE9"), std::string::npos) << "Windows-1252 bytes";

  EXPECT_EQ(Run({"html", module, "--procedure", "Nope"}).status, 2);
  EXPECT_EQ(Run({"html", module, "--template", folder_.File("missing.htm")}).status, 2);
}

TEST_F(TransformToolTest, AccessKeysReportsConflictsAsTextAndJson) {
  const std::string form = Write("frmKeys.frm", kForm);
  const ToolRun report = Run({"access-keys", form});
  EXPECT_EQ(report.status, 1);
  EXPECT_EQ(report.out, "O: cmdKey(3), cmdOpen\n");
  const ToolRun json = Run({"--json", "access-keys", form});
  EXPECT_EQ(json.status, 1);
  EXPECT_EQ(nlohmann::json::parse(json.out),
            nlohmann::json::parse(R"j([{"key": "O", "controls": ["cmdKey(3)", "cmdOpen"]}])j"));
  EXPECT_EQ(Read(form), kForm);

  const std::string clean = Write("frmClean.frm", "Begin VB.Form F\r\nEnd\r\n");
  const ToolRun ok = Run({"access-keys", clean});
  EXPECT_EQ(ok.status, 0);
  EXPECT_EQ(ok.out, "All shortcuts are ok!\n");
}

TEST_F(TransformToolTest, AccessKeysFixWritesTheNewCaptions) {
  const std::string form = Write("frmKeys.frm", kForm);
  const ToolRun fixed = Run({"access-keys", form, "--fix", "--yes", "--answer", "O&ptions",
                             "--answer", ""});
  EXPECT_EQ(fixed.status, 1) << fixed.err;
  EXPECT_NE(fixed.err.find("Repeat to be sure !"), std::string::npos) << fixed.err;
  std::string expected(kForm);
  expected.replace(expected.find("\"&Options\""), 10, "\"O&ptions\"");
  EXPECT_EQ(Read(form), expected);
  EXPECT_EQ(Run({"access-keys", form}).status, 0);
}

TEST_F(TransformToolTest, BadInputIsRefusedAndNothingIsWritten) {
  const std::string broken = Write("frmBroken.frm", "VERSION 5.00\r\nBegin VB.Form F\r\n"
                                                    "   Begin VB.Label l\r\n   End\r\n");
  const ToolRun run = Run({"access-keys", broken, "--fix", "--yes"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.substr(0, 8), "tavrin: ");
  EXPECT_EQ(Read(broken), "VERSION 5.00\r\nBegin VB.Form F\r\n   Begin VB.Label l\r\n   End\r\n");

  const std::string module = Write("Module1.bas", kModule);
  EXPECT_EQ(Run({"access-keys", module}).status, 2) << "no designer";
  EXPECT_EQ(Run({"lines", "add", module, "--lines", "9-12", "-i"}).status, 2);
  EXPECT_EQ(Run({"comment", "sideways", module}).status, 2);
  EXPECT_EQ(Read(module), kModule);
}

TEST_F(TransformToolTest, AnOpenLiteralAndAHugeLineSurvive) {
  const std::string huge = "x = \"" + std::string(1 << 20, 'y');
  const std::string module = Write("Big.bas", "Sub A()\r\n" + huge + "\r\ns = \"open");
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"lines", "add"}, {"lines", "remove"},
                                             {"comment", "add"}, {"comment", "remove"}}) {
    ASSERT_EQ(Run({command[0], command[1], module, "-i"}).status, 0) << command[0];
  }
  EXPECT_EQ(Read(module), "Sub A()\r\n" + huge + "\r\ns = \"open");
  const ToolRun page = Run({"html", module, "--fragment"});
  ASSERT_EQ(page.status, 0);
  // The open literal of the long line ends at the quote of the next line.
  EXPECT_TRUE(page.out.ends_with("\r\ns = \"<font color=#000080>open</font>"));
}

}  // namespace
}  // namespace tavrin::testing
