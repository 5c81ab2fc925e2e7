// The tool's tree, find and tab-order over inputs beyond the sample: a form
// with a tabbed container, and a project of 2,000 modules among which one
// does not balance its declarations and one has accented names in
// Windows-1252.
#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

class ToolWindowsInputToolTest : public ToolFixture {};

TEST_F(ToolWindowsInputToolTest, TabOrderGroupsEachTab) {
  std::filesystem::copy_file(
      std::filesystem::path(TAVRIN_SOURCE_DIR) / "tests" / "fixtures" / "tabs" / "frmTabs.frm",
      folder_.path() / "frmTabs.frm");
  const std::string form = folder_.File("frmTabs.frm");
  const ToolRun listed = Run({"tab-order", "--by-position", form});
  ASSERT_EQ(listed.status, 0) << listed.err;
  EXPECT_EQ(listed.out,
            "0 lblName (was 12)\n1 txtName (was 11)\n2 fraKind (was 8)\n3 optKind(0) (was 10)\n"
            "4 optKind(1) (was 9)\n5 tabCustomer (was 1)\n[tabCustomer - Tab 0: General]\n"
            "6 txtPhone (was 7)\n7 txtMail (was 6)\n[tabCustomer - Tab 1: Address]\n"
            "8 txtStreet (was 5)\n9 fraPost (was 2)\n10 txtCity (was 4)\n11 txtZip (was 3)\n"
            "12 cmdOK (was 0)\n");
  const ToolRun json = Run({"--json", "tab-order", form});
  ASSERT_EQ(json.status, 0) << json.err;
  const auto stops = nlohmann::json::parse(json.out);
  EXPECT_EQ(stops[3]["name"], "txtZip");
  EXPECT_EQ(stops[3]["container"], "fraPost");
  EXPECT_TRUE(stops[3]["tab"].is_null());
  EXPECT_EQ(stops[2]["tab"], 1);
  EXPECT_EQ(stops[2]["group"], "tabCustomer - Tab 1: Address");
  EXPECT_EQ(stops[9]["container"], "fraKind");  // optKind(1)
}

TEST_F(ToolWindowsInputToolTest, TwoThousandModulesWithBrokenAndAccentedOnes) {
  std::string vbp = "Type=Exe\r\n";
  for (int i = 3; i <= 2000; ++i) {
    const std::string name = "Module" + std::to_string(i);
    Write(name + ".bas", "Attribute VB_Name = \"" + name + "\"\r\nPublic Sub Work" +
                             std::to_string(i) + "()\r\nEnd Sub\r\n");
    vbp += "Module=" + name + "; " + name + ".bas\r\n";
  }
  Write("basBroken.bas",
        "Attribute VB_Name = \"basBroken\"\r\nPublic Enum Colors\r\n    Red\r\n"
        "Private Type Point\r\n    X As Long\r\nPublic Sub Lost()\r\n"
        "Public Function Found() As Long\r\nEnd Function\r\n");
  Write("basAccents.bas",
        "Attribute VB_Name = \"basAccents\"\r\nPrivate Const Caf\xE9 = 1\r\n"
        "Public Function Gr\xF6\xDF" "e() As Long\r\nEnd Function\r\n");
  vbp += "Module=basBroken; basBroken.bas\r\nModule=basAccents; basAccents.bas\r\nName=\"Big\"\r\n";
  const std::string project = Write("Big.vbp", vbp);

  const struct {
    std::vector<std::string> arguments;
    std::vector<std::string> shown;
  } kRuns[] = {
      {{"tree", project},
       {"    basAccents\n      Café (Const) Private :1\n      Größe (Function) Public :2\n",
        "    basBroken\n      Colors (Enum) Public :1\n        Red :2\n",
        "    Module2000\n      Work2000 Public :1\n", "      Found (Function) Public :6\n"}},
      {{"find", project, "grö"}, {"basAccents.Größe:2 (function)\n"}},
      {{"find", project, "work1999"}, {"Module1999.Work1999:1 (sub)\n"}},
  };
  for (const auto& run : kRuns) {
    const ToolRun result = Run(run.arguments);
    ASSERT_EQ(result.status, 0) << run.arguments[0] << ": " << result.err;
    for (const std::string& shown : run.shown)
      EXPECT_NE(result.out.find(shown), std::string::npos)
          << run.arguments[0] << ": " << shown << " in\n" << result.out.substr(0, 1500);
  }
}

}  // namespace
}  // namespace tavrin::testing
