#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include <nlohmann/json.hpp>

#include "tavrin_version.h"
#include "tests/cli/tool_fixture.h"
#include "tests/support/temp_folder.h"

namespace tavrin::testing {
namespace {

namespace fs = std::filesystem;

// Code lines 11 and 12 are an indented statement and an empty line.
constexpr std::string_view kModule1 =
    "Attribute VB_Name = \"Module1\"\r\n"
    "Option Explicit\r\n"                      // 1
    "\r\n"                                     // 2
    "' Prices in \xE9uros\r\n"                 // 3, Windows-1252
    "Private mTotal As Currency\r\n"           // 4
    "\r\n"                                     // 5
    "Public Sub AddItem(ByVal Price As Currency, _\r\n"  // 6
    "                   ByVal Count As Long)\r\n"        // 7
    "    Dim i As Long\r\n"                    // 8
    "\r\n"                                     // 9
    "    mTotal = mTotal + Price * Count\r\n"  // 10
    "    i = Count\r\n"                        // 11
    "\r\n"                                     // 12
    "End Sub\r\n";                             // 13

using ToolTest = ToolFixture;

TEST_F(ToolTest, SnippetAsJsonGivesTheLinesAndTheCaret) {
  const std::string module = Write("Module1.bas", kModule1);
  const ToolRun run = Run({"snippet", "If Then ElseIf Else", module, "--caret", "12:9",
                           "--answer", "1", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const auto json = nlohmann::json::parse(run.out);
  const std::vector<std::string> expected_block = {
      "        If  Then", "            ", "        ElseIf Then", "            ",
      "        Else",     "            ", "        End If"};
  const auto lines = json.at("lines").get<std::vector<std::string>>();
  ASSERT_EQ(lines.size(), 19u);
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 11, lines.begin() + 18), expected_block);
  EXPECT_EQ(lines[2], "' Prices in éuros");
  EXPECT_EQ(lines[18], "End Sub");
  EXPECT_EQ(json.at("selection"), nlohmann::json({12, 12, 12, 12}));
  EXPECT_EQ(Read(module), kModule1) << "--json alone writes no file";
}

TEST_F(ToolTest, OutputGoesToAFileOrReplacesTheSource) {
  const std::string module = Write("Module1.bas", kModule1);
  const std::string copy = folder_.File("Out.bas");
  const ToolRun to_file = Run({"snippet", "While", module, "--caret", "12:5", "-o", copy});
  ASSERT_EQ(to_file.status, 0) << to_file.err;
  EXPECT_EQ(to_file.out, "");
  EXPECT_NE(Read(copy).find("    While \r\n        \r\n    Wend\r\n"), std::string::npos);
  EXPECT_EQ(Read(module), kModule1);

  const ToolRun in_place = Run({"snippet", "While", module, "--caret", "12:5", "-i"});
  ASSERT_EQ(in_place.status, 0) << in_place.err;
  EXPECT_EQ(Read(module), Read(copy));
}

TEST_F(ToolTest, TabWidthSetsTheIndentUnit) {
  const std::string module = Write("Module1.bas", kModule1);
  const ToolRun run =
      Run({"snippet", "If Then", module, "--caret", "12:1", "--tab-width", "2", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto lines = nlohmann::json::parse(run.out).at("lines");
  EXPECT_EQ(lines[11], "    If  Then");
  EXPECT_EQ(lines[12], "      ");
}

// The source with `block` in place of the empty line before "End Sub".
std::string WithBlock(std::string_view source, std::string_view block) {
  std::string text(source);
  return text.replace(text.find("\r\n\r\nEnd Sub") + 2, 2, block);
}

constexpr std::string_view kForm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmMain \r\n"
    "   Caption         =   \"Main\"\r\n"
    "   Begin VB.CommandButton cmdOpen \r\n"
    "      Caption         =   \"&Open\"\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmMain\"\r\n"
    "Private Sub cmdOpen_Click()\r\n"
    "\r\n"
    "End Sub\r\n";

// The whole file comes out with its header, designer block, encoding and
// line ends as they were.
TEST_F(ToolTest, SnippetPrintsTheWholeFile) {
  const struct {
    const char* file;
    std::string text;
    const char* snippet;
    std::vector<std::string> options;
    std::string expected;
  } cases[] = {
      {"Module1.bas", std::string(kModule1), "ForNext", {"--caret", "12:1"},
       WithBlock(kModule1, "    For  To\r\n        \r\n    Next\r\n")},
      {"Lf.bas", "Sub A()\n    x = 1\n\nEnd Sub\n", "If Then", {"--caret", "3:1"},
       "Sub A()\n    x = 1\n    If  Then\n        \n    End If\nEnd Sub\n"},
      {"frmMain.frm", std::string(kForm), "IfDoLoopUntil", {"--caret", "2:1"},
       WithBlock(kForm, "    Do Until \r\n        \r\n    Loop\r\n")},
      // Cancelling the question leaves the file as it was.
      {"Cancel.bas", std::string(kModule1), "If Then Else If",
       {"--caret", "12:1", "--cancel"},
       std::string(kModule1)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    std::vector<std::string> arguments = {"snippet", c.snippet, Write(c.file, c.text)};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    const ToolRun run = Run(arguments);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, c.expected);
  }
}

TEST_F(ToolTest, BadInputGivesStatusTwoOneLineAndWritesNothing) {
  const std::string module = Write("Module1.bas", kModule1);
  const std::string binary = Write("Binary.bas", std::string("MZ\x90\0\x03\0\0\0", 8));
  const std::string text = Write("notes.txt", "Sub A()\r\nEnd Sub\r\n");
  fs::create_directories(folder_.File("Folder.bas"));
  const std::string locked = Write("Locked.bas", kModule1);
  fs::permissions(locked, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);

  const struct {
    std::string name;
    std::vector<std::string> arguments;
    std::string message;
  } cases[] = {
      {"missing file", {"snippet", "If Then", folder_.File("None.bas"), "--caret", "1:1", "-i"},
       "no such file"},
      {"binary file", {"snippet", "If Then", binary, "--caret", "1:1", "-i"}, "binary data"},
      {"folder", {"snippet", "If Then", folder_.File("Folder.bas"), "--caret", "1:1"},
       "it is a folder"},
      {"not a source file", {"snippet", "If Then", text, "--caret", "1:1", "-i"},
       "not a Visual Basic source file"},
      {"caret past the end", {"snippet", "If Then", module, "--caret", "15:1", "-i"},
       "past the end of the module"},
      {"caret column 0", {"snippet", "If Then", module, "--caret", "3:0", "-i"}, "start at 1"},
      {"caret syntax", {"snippet", "If Then", module, "--caret", "12-9", "-i"}, "L:C"},
      {"no caret", {"snippet", "If Then", module, "-i"}, "--caret"},
      {"unknown snippet", {"snippet", "If Else", module, "--caret", "1:1", "-i"},
       "unknown snippet 'If Else'"},
      {"no answer and no terminal",
       {"snippet", "If Then ElseIf Else", module, "--caret", "12:1", "-i"}, "--answer"},
      {"answer that does not fit", {"snippet", "If Then Else If", module, "--caret", "12:1",
                                    "--yes", "-i"}, "--answer"},
      {"tab width out of range",
       {"snippet", "If Then", module, "--caret", "12:1", "--tab-width", "0", "-i"}, "tab-width"},
      {"unknown command", {"frobnicate"}, "frobnicate"},
      {"read-only file", {"snippet", "If Then", locked, "--caret", "12:1", "-i"}, "read-only"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const ToolRun run = Run(c.arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("tavrin: ")) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
  }
  EXPECT_EQ(Read(module), kModule1);
  EXPECT_EQ(Read(locked), kModule1);
}

TEST_F(ToolTest, HelpAndVersion) {
  const ToolRun help = Run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("snippet"), std::string::npos);
  const ToolRun version = Run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "tavrin " TAVRIN_VERSION "\n");
}

}  // namespace
}  // namespace tavrin::testing
