#include <filesystem>
#include <memory>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

#ifdef TAVRIN_HAVE_SQLITE
#include <sqlite3.h>
#endif

namespace tavrin::testing {
namespace {

using ControlsToolTest = AddinToolFixture;

// Names and classes of the controls a --json run reports.
std::vector<std::string> Placed(const std::string& out) {
  std::vector<std::string> placed;
  const nlohmann::json json = nlohmann::json::parse(out);
  for (const auto& control : json["controls"])
    placed.push_back(control["name"].get<std::string>() + " " +
                     std::to_string(control["tabIndex"].get<int>()));
  return placed;
}

TEST_F(ControlsToolTest, InsertsIntoAFormBelowItsControlsAndRefusesAClash) {
  const std::string frm = Write("frmOrder.frm", ReadWholeFile(std::string(TAVRIN_SOURCE_DIR) +
                                                              "/sample/frmMain.frm"));
  ToolRun run = Run({"controls", "--controls", "Customer, Paid As CheckBox", "-i", frm, "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto placed = Placed(run.out);
  ASSERT_EQ(placed.size(), 3u);
  EXPECT_TRUE(placed[0].starts_with("lblCustomer ")) << placed[0];
  EXPECT_NE(Read(frm).find("Begin VB.CheckBox chkPaid"), std::string::npos);

  run = Run({"controls", "--controls", "Customer", "-i", frm});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("The form has a control named lblCustomer already."), std::string::npos)
      << run.err;
  run = Run({"controls", "--sqlite", folder_.File("missing.db"), "--table", "T"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("missing.db"), std::string::npos) << run.err;
}

#ifdef TAVRIN_HAVE_SQLITE
TEST_F(ControlsToolTest, ReadsTheColumnsOfAnSqliteTable) {
  const std::string db = folder_.File("shop.db");
  sqlite3* opened = nullptr;
  ASSERT_EQ(sqlite3_open(db.c_str(), &opened), SQLITE_OK);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> owner(opened, &sqlite3_close);
  ASSERT_EQ(sqlite3_exec(opened,
                         "CREATE TABLE Orders (Id INTEGER, \"Order Date\" DATETIME, "
                         "Paid BOOLEAN, Note VARCHAR(40))",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  ToolRun run = Run({"controls", "--sqlite", db, "--table", "Orders", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Placed(run.out), (std::vector<std::string>{"lblId 0", "txtId 1", "lblOrderDate 2",
                                                        "txtOrderDate 3", "chkPaid 4", "lblNote 5",
                                                        "txtNote 6"}));
  EXPECT_NE(nlohmann::json::parse(run.out)["text"].get<std::string>().find(
                "Begin VB.TextBox txtOrderDate"),
            std::string::npos);
  run = Run({"controls", "--sqlite", db, "--table", "Items"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("has no table Items"), std::string::npos) << run.err;
}
#endif

}  // namespace
}  // namespace tavrin::testing
