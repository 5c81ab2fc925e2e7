// The tool windows' documents over the in-memory IDE: what each shows, what
// the user's actions do in the IDE, that every change reaches the view, and
// that a detached document holds nothing of the IDE.
#include "addin/tool_documents.h"

#include <gtest/gtest.h>

#include "ide/command_bars.h"
#include "ide/events.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::addin {
namespace {

constexpr std::string_view kModule =
    "Option Explicit\r\n\r\nPublic Sub Main()\r\nEnd Sub\r\n\r\n"
    "Private Function GetCustomerName() As String\r\nEnd Function\r\n";
constexpr std::string_view kForm =
    "VERSION 5.00\r\nBegin VB.Form frmOrder\r\n"
    "   Begin VB.TextBox txtName\r\n      TabIndex = 0\r\n      Top = 900\r\n   End\r\n"
    "   Begin VB.CommandButton cmdOk\r\n      TabIndex = 1\r\n      Top = 100\r\n   End\r\n"
    "End\r\nAttribute VB_Name = \"frmOrder\"\r\n";

struct CountingView : DocumentView {
  void DocumentChanged() override { ++changes; }
  int changes = 0;
};

class ToolDocumentsTest : public ::testing::Test {
 protected:
  ToolDocumentsTest() {
    module_ = project_->AddComponent(ide::ComponentType::kStdModule, "basMain", kModule);
    form_ = project_->AddSourceFile("frmOrder.frm", kForm).value();
  }
  ide::TextRange Caret() { return vbe_->ActiveCodePane()->GetSelection(); }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryProject> project_ = vbe_->AddProject("Project1");
  std::shared_ptr<ide::memory::MemoryComponent> module_;
  std::shared_ptr<ide::memory::MemoryComponent> form_;
  CountingView view_;
};

TEST_F(ToolDocumentsTest, ExplorerShowsTheTreeAndGoesToAMember) {
  CodeExplorerDocument explorer;
  explorer.SetView(&view_);
  explorer.Initialize(true);
  EXPECT_FALSE(explorer.Initialized()) << "nothing to read before it is attached";
  explorer.Attach(vbe_.get());
  explorer.Initialize(true);
  ASSERT_TRUE(explorer.Initialized());
  // Depth first: project, folder, module, its two members, folder, form.
  const auto& places = explorer.Places();
  ASSERT_EQ(places.size(), 7u);
  EXPECT_EQ(places[4].component, "basMain");
  EXPECT_EQ(places[4].line, 6);
  explorer.GoTo(places[4]);
  EXPECT_EQ(vbe_->ActiveCodePane()->CodeModule()->Parent()->Name(), "basMain");
  EXPECT_EQ(Caret(), (ide::TextRange{6, 1, 6, 1}));

  // Type-ahead: "gcn" keeps the function and the nodes above it.
  explorer.SetFilter("gcn");
  EXPECT_EQ(TreeAsText(explorer.Tree()),
            "Project1\n  Modules\n    basMain\n      GetCustomerName (Function) Private :6\n");
  explorer.SetFilter("");

  project_->AddComponent(ide::ComponentType::kClassModule, "clsNew", "");
  explorer.VBComponentAdd(project_->VBComponents()->Item("clsNew"));
  explorer.VBComponentRemove("Project1", "frmOrder");
  EXPECT_EQ(TreeAsText(explorer.Tree()).find("frmOrder"), std::string::npos);
  EXPECT_NE(TreeAsText(explorer.Tree()).find("clsNew"), std::string::npos);
  EXPECT_EQ(view_.changes, 6) << "attached, built, filtered twice, one added, one removed";

  explorer.Attach(nullptr);
  EXPECT_FALSE(explorer.Initialized());
  EXPECT_NO_THROW(explorer.GoTo(places[4]));
}

TEST_F(ToolDocumentsTest, SearchFindsAsYouTypeAndGoesToTheResult) {
  SearchDocument search;
  search.SetView(&view_);
  search.Attach(vbe_.get());
  search.Search("gcn");
  ASSERT_EQ(search.Results().size(), 1u);
  EXPECT_EQ(search.Results()[0].entry->name, "GetCustomerName");
  EXPECT_TRUE(search.GoTo(0));
  EXPECT_EQ(Caret().start_line, 6);
  EXPECT_FALSE(search.GoTo(1));
  search.Search("");
  EXPECT_TRUE(search.Results().empty());

  // A shortcut clicks the toolbar's button of that builder.
  EXPECT_FALSE(search.RunShortcut(kShortcutCaptionIds[0])) << "no toolbar";
  struct Clicks : ide::ICommandBarEventsSink {
    void Click(std::shared_ptr<ide::ICommandBarControl>, bool&, bool&) override { ++count; }
    int count = 0;
  };
  const auto clicks = std::make_shared<Clicks>();
  const auto button = vbe_->CommandBars()
                          ->Add("Tavrin", ide::BarPosition::kTop, false, true)
                          ->Controls()
                          ->Add(ide::ControlType::kButton);
  button->SetCaption("Add P&rocedure...");
  const auto connection = vbe_->Events()->CommandBarEvents(button)->Advise(clicks);
  EXPECT_TRUE(search.RunShortcut(101));
  EXPECT_EQ(clicks->count, 1);
  search.Attach(nullptr);
  EXPECT_FALSE(search.GoTo(0));
}

TEST_F(ToolDocumentsTest, TabOrderFollowsTheActiveFormAndWritesTheOrder) {
  TabOrderDocument tab_order;
  tab_order.SetView(&view_);
  tab_order.Attach(vbe_.get());
  tab_order.RefreshList(0);
  EXPECT_TRUE(tab_order.Stops().empty()) << "no form designer active";
  vbe_->ActivateWindow(form_->DesignerWindow());
  tab_order.RefreshList(0);
  ASSERT_EQ(tab_order.Stops().size(), 2u);
  tab_order.OrderByPosition();
  EXPECT_EQ(tab_order.Stops()[0].name, "cmdOk");
  EXPECT_EQ(tab_order.Apply(), 2);
  EXPECT_EQ(
      form_->Designer()->VBControls()->Item("cmdOk")->Properties()->Item("TabIndex")->Value(), "0");
  tab_order.Attach(nullptr);
  EXPECT_TRUE(tab_order.Stops().empty()) << "the controls are let go";
}

}  // namespace
}  // namespace tavrin::addin
