// The tool windows on projects that are large, broken or unusual: each
// window's document shows what it can and never raises into the IDE.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "addin/tool_documents.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::addin {
namespace {

using ide::ComponentType;
using ide::memory::MemoryComponent;
using ide::memory::MemoryProject;

std::string Numbered(int n) {
  std::string digits = std::to_string(n);
  return std::string(4 - std::min<std::size_t>(4, digits.size()), '0') + digits;
}

std::string Form(std::string_view name, const std::string& controls) {
  return "VERSION 5.00\r\nBegin VB.Form " + std::string(name) + "\r\n" + controls +
         "End\r\nAttribute VB_Name = \"" + std::string(name) + "\"\r\n";
}

std::string TextBox(std::string_view name, int left, int top, int tab_index,
                    const std::string& children = {}, std::string_view kind = "TextBox") {
  return "Begin VB." + std::string(kind) + " " + std::string(name) + "\r\nHeight = 300\r\nLeft = " +
         std::to_string(left) + "\r\nTabIndex = " + std::to_string(tab_index) +
         "\r\nTop = " + std::to_string(top) + "\r\n" + children + "End\r\n";
}

// 1,000 frames of 9 text boxes each, in reverse tab order.
std::string TenThousandControls() {
  std::string controls;
  int tab_index = 10000;
  for (int frame = 0; frame < 1000; ++frame) {
    std::string boxes;
    for (int box = 0; box < 9; ++box)
      boxes += TextBox("txt" + Numbered(frame) + "_" + std::to_string(box), 100 + box * 50, 200, --tab_index);
    controls += TextBox("fra" + Numbered(frame), 100, 400 * frame, --tab_index, boxes, "Frame");
  }
  return Form("frmBig", controls);
}

struct Case {
  const char* what;
  std::function<std::shared_ptr<MemoryComponent>(MemoryProject&)> build;  // gives the form
  std::vector<std::string> tree_lines;  // in TreeAsText
  const char* query;
  const char* first_found;
  std::size_t tab_stops;
  const char* first_by_position;
};

const Case kCases[] = {
    {"2,000 components",
     [](MemoryProject& project) {
       for (int i = 1; i <= 2000; ++i)
         project.AddComponent(ComponentType::kStdModule, "Module" + Numbered(i),
                              "Public Sub Work" + Numbered(i) + "()\r\nEnd Sub\r\n");
       return std::shared_ptr<MemoryComponent>();
     },
     {"    Module0001\n      Work0001 Public :1\n", "    Module2000\n      Work2000 Public :1\n"},
     "work1999", "Work1999", 0, ""},
    {"a form the IDE cannot open",
     [](MemoryProject& project) {
       auto form = project.AddSourceFile("frmBroken.frm",
                                         Form("frmBroken", TextBox("txtA", 0, 0, 0))).value();
       form->SetUnreadable(true);
       project.AddComponent(ComponentType::kStdModule, "basOk", "Sub Fine()\r\nEnd Sub\r\n");
       return form;
     },
     {"  Forms\n    frmBroken (cannot be read)\n", "    basOk\n      Fine Public :1\n"},
     "fine", "Fine", 0, ""},
    {"unbalanced declarations",
     [](MemoryProject& project) {
       project.AddComponent(ComponentType::kStdModule, "basBroken",
                            "Public Enum Colors\r\n    Red\r\n    Green\r\n"
                            "Private Type Point\r\n    X As Long\r\n"
                            "Public Sub Lost()\r\n    Dim i As Long\r\n"
                            "Public Function Found() As Long\r\nEnd Function\r\n");
       return std::shared_ptr<MemoryComponent>();
     },
     {"      Colors (Enum) Public :1\n        Red :2\n        Green :3\n",
      "      Found (Function) Public :"},
     "found", "Found", 0, ""},
    {"accented names (Windows-1252 text)",
     [](MemoryProject& project) {
       return project
           .AddSourceFile("frmÉtat.frm",
                          "VERSION 5.00\r\nBegin VB.Form frm\xC9tat\r\n" +
                              TextBox("txtGr\xF6\xDF" "e", 0, 0, 1) + TextBox("txtCaf\xE9", 0, 0, 0) +
                              "End\r\nAttribute VB_Name = \"frm\xC9tat\"\r\n"
                              "Public Function Gr\xF6\xDF" "e() As Long\r\nEnd Function\r\n")
           .value();
     },
     {"    frmÉtat\n      Größe (Function) Public :"}, "grö", "Größe", 2, "txtCafé"},
    {"a form with 10,000 controls",
     [](MemoryProject& project) {
       return project.AddSourceFile("frmBig.frm", TenThousandControls()).value();
     },
     {"    frmBig\n"}, "frmbig", "frmBig", 10000, "fra0000"},
};

TEST(ToolWindowsBadInputTest, ShowWhatTheyCanAndRaiseNothing) {
  for (const Case& test : kCases) {
    SCOPED_TRACE(test.what);
    const auto vbe = ide::memory::MemoryVbe::Create();
    const auto form = test.build(*vbe->AddProject("Project1"));

    CodeExplorerDocument explorer;
    SearchDocument search;
    TabOrderDocument tab_order;
    ASSERT_NO_THROW({
      explorer.Attach(vbe.get());
      explorer.Initialize(true);
      search.Attach(vbe.get());
      search.Rebuild();
      search.Search(test.query);
      if (form) vbe->ActivateWindow(form->DesignerWindow());
      tab_order.Attach(vbe.get());
      tab_order.RefreshList(0);
      tab_order.OrderByPosition();
      tab_order.Apply();
    });
    const std::string tree = toolwindows::TreeAsText(explorer.Tree());
    for (const std::string& line : test.tree_lines)
      EXPECT_NE(tree.find(line), std::string::npos) << line << " in\n" << tree.substr(0, 2000);
    ASSERT_FALSE(search.Results().empty());
    EXPECT_EQ(search.Results().front().entry->name, test.first_found);
    EXPECT_EQ(tab_order.Stops().size(), test.tab_stops);
    if (test.tab_stops > 0) {
      EXPECT_EQ(tab_order.Stops().front().name, test.first_by_position);
    }
  }
}

// The frames of a large form keep their children right behind them.
TEST(ToolWindowsBadInputTest, TenThousandControlsKeepTheirContainers) {
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto form =
      vbe->AddProject("Project1")->AddSourceFile("frmBig.frm", TenThousandControls()).value();
  toolwindows::TabOrder order(*form->Designer());
  order.OrderByPosition();
  const auto& stops = order.Stops();
  ASSERT_EQ(stops.size(), 10000u);
  for (std::size_t i = 0; i < stops.size(); ++i) {
    const bool frame = i % 10 == 0;
    ASSERT_EQ(stops[i].depth, frame ? 0 : 1) << i;
    if (!frame) {
      ASSERT_EQ(stops[i].container, stops[i - i % 10].name) << i;
    }
  }
  EXPECT_EQ(stops[1].name, "txt0000_0");
  EXPECT_EQ(stops[10].name, "fra0001");
}

}  // namespace
}  // namespace tavrin::addin
