#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

class ToolWindowsToolTest : public ToolFixture {
 protected:
  // The sample project, copied so that a write leaves the source tree alone.
  void SetUp() override {
    for (const char *name :
         {"Inventory.vbp", "basMain.bas", "clsStockItem.cls", "frmMain.frm", "frmAbout.frm"})
      std::filesystem::copy_file(std::filesystem::path(TAVRIN_SOURCE_DIR) / "sample" / name,
                                 folder_.path() / name);
  }
  std::string project_ = folder_.File("Inventory.vbp");
};

TEST_F(ToolWindowsToolTest, TreeAsTextAndJson) {
  const ToolRun text = Run({"tree", project_});
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_EQ(text.out.substr(0, 70),
            "Inventory\n  Modules\n    basMain\n      APP_TITLE (Const) Public :5\n    ");
  EXPECT_NE(text.out.find("      mPrice Private :7\n      Code "
                          "(Property)\n        Get :12\n"),
            std::string::npos);

  const ToolRun json = Run({"--json", "tree", project_});
  ASSERT_EQ(json.status, 0) << json.err;
  const auto tree = nlohmann::json::parse(json.out);
  const auto &forms = tree[0]["children"][2];
  EXPECT_EQ(forms["caption"], "Forms");
  EXPECT_EQ(forms["children"][1]["caption"], "frmMain");
  EXPECT_EQ(forms["children"][1]["children"][0],
            (nlohmann::json{
                {"caption", "cmdAction_Click"}, {"kind", "sub"}, {"line", 3}, {"public", false}}));
}

TEST_F(ToolWindowsToolTest, FindRanksMatches) {
  const ToolRun text = Run({"find", project_, "sl"});
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_EQ(text.out, "basMain.StockLevel:75 (function)\n");

  const ToolRun json = Run({"--json", "find", project_, "ls"});
  ASSERT_EQ(json.status, 0) << json.err;
  const auto results = nlohmann::json::parse(json.out);
  ASSERT_EQ(results.size(), 2u);
  EXPECT_EQ(results[0]["name"], "LoadStock");
  EXPECT_EQ(results[0]["match"], "camel-hump");
  EXPECT_EQ(results[1]["name"], "clsStockItem");
  EXPECT_EQ(results[1]["match"], "substring");

  EXPECT_EQ(Run({"find", project_, "zzz"}).status, 1);
}

TEST_F(ToolWindowsToolTest, TabOrderListsAndWritesByPosition) {
  const std::string form = Write("frmOrder.frm",
                                 "VERSION 5.00\r\n"
                                 "Begin VB.Form frmOrder\r\n"
                                 "   Begin VB.CommandButton cmdOk\r\n"
                                 "      Height = 375\r\n      Left = 3000\r\n      "
                                 "TabIndex = 0\r\n      Top = 2000\r\n"
                                 "   End\r\n"
                                 "   Begin VB.TextBox txtName\r\n"
                                 "      Height = 375\r\n      Left = 1200\r\n      "
                                 "TabIndex = 1\r\n      Top = 120\r\n"
                                 "   End\r\n"
                                 "End\r\n"
                                 "Attribute VB_Name = \"frmOrder\"\r\n");
  const ToolRun list = Run({"tab-order", folder_.File("frmMain.frm")});
  ASSERT_EQ(list.status, 0) << list.err;
  EXPECT_EQ(list.out.substr(0, 36), "0 fraSearch\n1 lblSearch\n2 txtSearch\n");

  EXPECT_EQ(Run({"tab-order", "--by-position", form}).out, "0 txtName (was 1)\n1 cmdOk (was 0)\n");
  const ToolRun written = Run({"tab-order", "--by-position", "-i", form});
  ASSERT_EQ(written.status, 0) << written.err;
  EXPECT_EQ(Run({"tab-order", form}).out, "0 txtName\n1 cmdOk\n");
  EXPECT_NE(Read(form).find("TabIndex = 1\r\n      Top = 2000"), std::string::npos);
}

}  // namespace
}  // namespace tavrin::testing
