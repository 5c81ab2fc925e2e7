#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

using ClassToolTest = AddinToolFixture;

TEST_F(ClassToolTest, WritesTheClassBesideTheProjectAndListsIt) {
  const std::string vbp = Write("Shop.vbp",
                                "Type=Exe\r\nClass=clsStockItem; clsStockItem.cls\r\n"
                                "Name=\"Shop\"\r\n\r\n[MS Transaction Server]\r\nAutoRefresh=1\r\n");
  Write("clsStockItem.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
                            "Attribute VB_Name = \"clsStockItem\"\r\nOption Explicit\r\n");
  ToolRun run = Run({"class", "--name", "StockItems", "--kind", "collection", "--no-header",
                     "--project", vbp, "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(nlohmann::json::parse(run.out)["name"], "colStockItems");
  EXPECT_EQ(Read(vbp), "Type=Exe\r\nClass=clsStockItem; clsStockItem.cls\r\n"
                       "Class=colStockItems; colStockItems.cls\r\nName=\"Shop\"\r\n\r\n"
                       "[MS Transaction Server]\r\nAutoRefresh=1\r\n");
  const std::string cls = Read(folder_.File("colStockItems.cls"));
  EXPECT_NE(cls.find("Attribute VB_Exposed = False\r\nOption Explicit\r\n"), std::string::npos);
  EXPECT_NE(cls.find("Public Property Get Item(ByVal Index As Variant) As clsStockItem\r\n"
                     "Attribute Item.VB_UserMemId = 0\r\n"),
            std::string::npos);

  run = Run({"class", "--name", "clsStockItem", "--project", vbp});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("has a module named clsStockItem already"), std::string::npos) << run.err;
}

TEST_F(ClassToolTest, PrintsAPlainClassFileFromOptionsOrAnswers) {
  ToolRun run = Run({"class", "--name", "Point", "--properties", "X As Long", "--no-header"});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("Attribute VB_Name = \"clsPoint\"\r\n"), std::string::npos);
  EXPECT_NE(run.out.find("Option Explicit\r\n\r\nPrivate mlngX As Long\r\n\r\n"
                         "Public Property Get X() As Long\r\n"),
            std::string::npos)
      << run.out;
  const std::string answers =
      Write("answers.json", R"({"Add Class": {"name": "Point", "kind": "Collection class"}})");
  run = Run({"class", "--answers", answers});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("Choose the class of the collection's items."), std::string::npos)
      << run.err;
}

}  // namespace
}  // namespace tavrin::testing
