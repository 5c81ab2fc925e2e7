#include <filesystem>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

using ProceduresToolTest = AddinToolFixture;

TEST_F(ProceduresToolTest, ProcsGivesOneRecordPerProcedureWithTheModulesLines) {
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

TEST_F(ProceduresToolTest, ADuplicateArgumentIsReportedAndTheOthersListed) {
  const std::string module = Write("M.bas", "Sub A(x, x)\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\n");
  const ToolRun run = Run({"procs", module, "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "tavrin: A: the argument name 'x' is used twice\n");
  const auto json = nlohmann::json::parse(run.out);
  ASSERT_EQ(json.size(), 2u);
  EXPECT_EQ(json[0]["error"], "the argument name 'x' is used twice");
  EXPECT_FALSE(json[1].contains("error"));
}

TEST_F(ProceduresToolTest, DeclReadsALibraryTextWithAnyLineBreaks) {
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

TEST_F(ProceduresToolTest, BadInputIsRefusedAndLeavesTheAddinFolderUnseeded) {
  const ToolRun duplicate = Run({"decl", "Sub X(a, A)"});
  EXPECT_EQ(duplicate.status, 2);
  EXPECT_EQ(duplicate.err, "tavrin: the argument name 'A' is used twice\n");
  EXPECT_EQ(duplicate.out, "");
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"procs", folder_.File("none.bas")},
        {"procedure", "--name", "X", "--arg", "a", "--arg", "a"},
        {"template", folder_.File("missing.bas")},
        {"header", "class", "X"}})
    EXPECT_EQ(Run(arguments).status, 2) << arguments[0];
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(addin_) / "tvrusr.ini"));
  const ToolRun empty = Run({"decl", ""});
  EXPECT_EQ(empty.status, 0) << empty.err;
}

// What `procedure` is given, `procs` reads back from the generated code.
TEST_F(ProceduresToolTest, ProcedureThenProcsIsARoundTrip) {
  const struct {
    std::vector<std::string> options;
    std::string kind_str;
    bool is_public;
    std::string return_type;
    std::vector<std::vector<std::string>> args;  // name, passedBy, type, default
  } cases[] = {
      {{"--name", "Total", "--type", "Function", "--access", "Private", "--returns", "Currency",
        "--arg", "ByVal Price As Currency", "--arg", "Optional Count As Long = 10",
        "--separate-lines", "--error-handler", "--return-line", "--hourglass"},
       "Sub/Function", false, "Currency",
       {{"Price", "ByVal", "Currency", ""}, {"Count", "ByRef", "Long", "10"}}},
      {{"--name", "Value", "--type", "Property", "--property", "Let", "--arg",
        "ByVal NewValue As String", "--name-constant", "--error-handler"},
       "Property Let", true, "", {{"NewValue", "ByVal", "String", ""}}},
      {{"--name", "Go", "--access", "Friend", "--arg", "x", "--arg", "ParamArray Rest()"},
       "Sub/Function", true, "", {{"x", "ByRef", "Variant", ""}, {"Rest", "ByRef", "Variant", ""}}},
  };
  for (const auto& c : cases) {
    std::vector<std::string> arguments = {"procedure"};
    arguments.insert(arguments.end(), c.options.begin(), c.options.end());
    const ToolRun generated = Run(arguments);
    ASSERT_EQ(generated.status, 0) << generated.err;
    const std::string module = Write("Generated.bas", "Option Explicit\r\n\r\n" + generated.out);
    const ToolRun read = Run({"procs", module, "--json"});
    ASSERT_EQ(read.status, 0) << read.err;
    const auto json = nlohmann::json::parse(read.out);
    ASSERT_EQ(json.size(), 1u) << generated.out;
    EXPECT_EQ(json[0]["name"], c.options[1]);
    EXPECT_EQ(json[0]["kindStr"], c.kind_str);
    EXPECT_EQ(json[0]["isPublic"], c.is_public);
    EXPECT_EQ(json[0]["returnType"], c.return_type);
    ASSERT_EQ(json[0]["args"].size(), c.args.size());
    for (std::size_t i = 0; i < c.args.size(); ++i) {
      EXPECT_EQ(json[0]["args"][i]["name"], c.args[i][0]);
      EXPECT_EQ(json[0]["args"][i]["passedBy"], c.args[i][1]);
      EXPECT_EQ(json[0]["args"][i]["type"], c.args[i][2]);
      EXPECT_EQ(json[0]["args"][i]["defaultValue"], c.args[i][3]);
    }
  }
}

TEST_F(ProceduresToolTest, ProcedureRefusesBadInput) {
  const struct {
    std::vector<std::string> arguments;
    std::string error;
  } cases[] = {
      {{"procedure", "--name", "X", "--arg", "Optional a", "--arg", "b"},
       "tavrin: After the optional argument all subsequent arguments must also be optional. "
       "Please reorder the arguments list.\n"},
      {{"procedure", "--name", "X", "--arg", "ParamArray a()", "--arg", "b"},
       "tavrin: ParamArray argument is used only as the last argument. Please reorder the "
       "arguments list.\n"},
      {{"procedure", "--name", "X", "--arg", "a", "--arg", "A As Long"},
       "tavrin: the argument name 'A' is used twice\n"},
      {{"procedure", "--name", "X", "--arg", " "}, "tavrin: argument 1 has no name: ' '\n"},
      {{"procedure", "--name", "X", "--type", "Macro"},
       "tavrin: --type must be Sub, Function or Property\n"},
      {{"procedure", "--name", "X", "--type", "Property"},
       "tavrin: a Property needs --property Get, Let or Set\n"},
  };
  for (const auto& c : cases) {
    const ToolRun run = Run(c.arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, c.error);
    EXPECT_EQ(run.out, "");
  }
}

TEST_F(ProceduresToolTest, HeadersAndTemplatesFromTheAddinFolder) {
  Write("addin/vbcode/Fragments/Headers And Comments/ProcedureHeader.bas",
        "' {PROCEDURENAME}: {DESCRIPTION}\n");
  Write("addin/vbcode/Fragments/Headers And Comments/ModuleHeader.bas",
        "' Module {MODULENAME}\r\n");
  Write("addin/vbcode/inc.bas", "[{MODULENAME}]");

  const ToolRun procedure_header =
      Run({"header", "procedure", "Calc", "--description", "Adds."});
  ASSERT_EQ(procedure_header.status, 0) << procedure_header.err;
  EXPECT_EQ(procedure_header.out, "    ' Calc: Adds.\r\n");
  const ToolRun module_header = Run({"header", "module", "basMain"});
  EXPECT_EQ(module_header.out, "' Module basMain\r\n");

  const std::string file = Write("t.bas", "    x = {INCLUDE inc.bas} ' {PROCEDURETYPE}\n");
  const ToolRun expanded = Run({"template", file, "--module", "basX", "--type", "Function",
                                "--tab-width", "2"});
  ASSERT_EQ(expanded.status, 0) << expanded.err;
  EXPECT_EQ(expanded.out, "  x = [basX] ' Function\r\n");

  const ToolRun with_header =
      Run({"procedure", "--name", "Go", "--header"});
  EXPECT_EQ(with_header.out, "Public Sub Go()\r\n    ' Go: \r\n\r\nEnd Sub\r\n");
}

TEST_F(ProceduresToolTest, SnippetRunsTheCodeLineCommands) {
  const std::string module = Write(
      "M.bas", "Attribute VB_Name = \"M\"\r\nFunction F() As Boolean\r\n    x = 1\r\nEnd Function\r\n");
  const ToolRun select =
      Run({"snippet", "Select Case", module, "--caret", "2:5", "--answer", "x", "--json"});
  ASSERT_EQ(select.status, 0) << select.err;
  const auto json = nlohmann::json::parse(select.out);
  EXPECT_EQ(json["lines"][3], "        Case True");
  EXPECT_EQ(json["selection"], nlohmann::json::parse("[5, 13, 5, 13]"));

  const ToolRun handler = Run({"snippet", "ErrorHandling", module, "--caret", "2:5", "--json"});
  ASSERT_EQ(handler.status, 0) << handler.err;
  EXPECT_EQ(nlohmann::json::parse(handler.out)["lines"][7], "    ErrorHandle \"M\", \"F\"");
  EXPECT_NE(handler.err.find("has no module basErrorHandle"), std::string::npos);

  const ToolRun exit = Run({"snippet", "Exit", module, "--caret", "2:5"});
  EXPECT_NE(exit.out.find("    Exit Function\r\n"), std::string::npos);
}

TEST_F(ProceduresToolTest, TheSeededFolderGivesTheDefaultHeadersAndHandler) {
  const ToolRun header = Run({"header", "procedure", "Calc", "--description", "Adds."});
  ASSERT_EQ(header.status, 0) << header.err;
  EXPECT_NE(header.out.find("    ' Procedure : Calc\r\n"), std::string::npos) << header.out;
  EXPECT_NE(header.out.find("    ' Purpose   : Adds.\r\n"), std::string::npos) << header.out;
  // The default template was seeded and is the one merged.
  EXPECT_TRUE(std::filesystem::exists(addin_ + "/vbcode/ErrorHandlers/ErrorHandler.bas"));
  const ToolRun handler = Run({"procedure", "--name", "Go", "--error-handler"});
  EXPECT_NE(handler.out.find("    ErrorHandle \"\", \"Go\"\r\n"), std::string::npos)
      << handler.out;
}

TEST_F(ProceduresToolTest, SettingsReachTheGenerator) {
  ASSERT_EQ(Run({"settings", "set", "ExitHandler", "ExitHere"}).status, 0);
  ASSERT_EQ(Run({"settings", "set", "Procedure Name Constant", "PROCNAME"}).status, 0);
  ASSERT_EQ(Run({"settings", "set", "Developer", "Ann"}).status, 0);
  const ToolRun run =
      Run({"procedure", "--name", "Go", "--error-handler", "--name-constant", "--header"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("ExitHere:\r\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("Resume ExitHere\r\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("    Const PROCNAME = \"Go\"\r\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("Ann"), std::string::npos) << run.out;
}

}  // namespace
}  // namespace tavrin::testing
