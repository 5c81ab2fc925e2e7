#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

class SelectEnumToolTest : public AddinToolFixture {
 protected:
  ToolRun Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "select-enum");
    return AddinToolFixture::Run(arguments);
  }

  std::string module_ = Write("basMain.bas",
                              "Attribute VB_Name = \"basMain\"\r\n"
                              "Public Enum eSize\r\n    Small\r\n    Large\r\nEnd Enum\r\n"
                              "Sub Fit(s As eSize)\r\n    \r\nEnd Sub\r\n");
  std::string project_ = Write(
      "Shop.vbp",
      "Type=Exe\r\n"
      "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\stdole2.tlb#OLE "
      "Automation\r\n"
      "Object={BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0; TABCTL32.OCX\r\n"
      "Module=basMain; basMain.bas\r\nName=\"Shop\"\r\n");
};

TEST_F(SelectEnumToolTest, WritesTheBlockAndNamesTheLibrariesItCannotRead) {
  const struct {
    std::vector<std::string> arguments;
    int status;
    std::string out;
    std::string err;
  } rows[] = {
      {{"--project", project_, "--expression", "s", "--no-case-else"}, 0,
       "Select Case s\r\n    Case Small\r\n        \r\n    Case Large\r\n        \r\n"
       "End Select\r\n",
       "tavrin: The type library OLE Automation (stdole2.tlb) cannot be read on this platform: "
       "only the add-in reads type libraries, through Windows. Its classes and enums are not "
       "offered.\ntavrin: The type library TABCTL32 (TABCTL32.OCX) cannot be read"},
      {{module_, "--caret", "6:5", "-i", "--enum", "esize", "--case-else", "Stop"}, 0, "", ""},
      {{module_, "--caret", "6:5", "--enum", "eColour"}, 2, "",
       "no enum eColour is visible here; the enums: eSize"},
      {{"--expression", "s"}, 2, "", "select-enum needs a module file or --project"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.arguments[0]);
    const ToolRun run = Run(row.arguments);
    EXPECT_EQ(run.status, row.status) << run.err;
    if (!row.out.empty()) {
      EXPECT_EQ(run.out, row.out);
    }
    EXPECT_NE(run.err.find(row.err), std::string::npos) << run.err;
  }
  // Each library is named once.
  const ToolRun run = Run({"--project", project_});
  EXPECT_EQ(run.err.find("TABCTL32.OCX"), run.err.rfind("TABCTL32.OCX")) << run.err;
  EXPECT_EQ(Read(module_),
            "Attribute VB_Name = \"basMain\"\r\n"
            "Public Enum eSize\r\n    Small\r\n    Large\r\nEnd Enum\r\n"
            "Sub Fit(s As eSize)\r\n    Select Case \r\n        Case Small\r\n            \r\n"
            "        Case Large\r\n            \r\n        Case Else\r\n            Stop\r\n"
            "    End Select\r\nEnd Sub\r\n");
}

}  // namespace
}  // namespace tavrin::testing
