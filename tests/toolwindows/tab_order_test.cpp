#include "toolwindows/tab_order.h"

#include <gtest/gtest.h>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::toolwindows {
namespace {

using Names = std::vector<std::string>;

// Two rows of controls whose tab order runs against their positions.
constexpr std::string_view kForm =
    "VERSION 5.00\r\n"
    "Begin VB.Form frmOrder\r\n"
    "   Begin VB.CommandButton cmdOk\r\n"
    "      Height = 375\r\n      Left = 3000\r\n      TabIndex = 0\r\n      Top = 2000\r\n"
    "   End\r\n"
    "   Begin VB.TextBox txtName\r\n"
    "      Height = 375\r\n      Left = 1200\r\n      TabIndex = 1\r\n      Top = 120\r\n"
    "   End\r\n"
    "   Begin VB.Label lblName\r\n"
    "      Height = 255\r\n      Left = 120\r\n      TabIndex = 2\r\n      Top = 180\r\n"
    "   End\r\n"
    "   Begin VB.CommandButton cmdCancel\r\n"
    "      Height = 375\r\n      Left = 120\r\n      TabIndex = 3\r\n      Top = 2010\r\n"
    "   End\r\n"
    "   Begin VB.Timer tmrTick\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmOrder\"\r\n";

class TabOrderTest : public ::testing::Test {
 protected:
  Names Order(const TabOrder& order) {
    Names names;
    for (const auto& stop : order.Stops()) names.push_back(stop.name);
    return names;
  }
  std::string TabIndexOf(std::string_view control) {
    return form_->Designer()->VBControls()->Item(control)->Properties()->Item("TabIndex")->Value();
  }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryComponent> form_ =
      vbe_->AddProject("Project1")->AddSourceFile("frmOrder.frm", kForm).value();
};

TEST_F(TabOrderTest, ListsControlsWithATabIndexInTabOrder) {
  TabOrder order(*form_->Designer());
  EXPECT_EQ(Order(order), (Names{"cmdOk", "txtName", "lblName", "cmdCancel"}));
  EXPECT_FALSE(order.MoveUp(0));
  EXPECT_FALSE(order.MoveDown(3));
  EXPECT_TRUE(order.MoveDown(0));
  EXPECT_TRUE(order.MoveUp(3));
  EXPECT_EQ(Order(order), (Names{"txtName", "cmdOk", "cmdCancel", "lblName"}));
}

TEST_F(TabOrderTest, ByPositionGoesRowByRowAndApplyWritesOnlyWhatChanged) {
  TabOrder order(*form_->Designer());
  order.OrderByPosition();
  EXPECT_EQ(Order(order), (Names{"lblName", "txtName", "cmdCancel", "cmdOk"}));
  EXPECT_EQ(order.Apply(), 3);  // txtName keeps 1
  EXPECT_EQ(TabIndexOf("lblName"), "0");
  EXPECT_EQ(TabIndexOf("txtName"), "1");
  EXPECT_EQ(TabIndexOf("cmdCancel"), "2");
  EXPECT_EQ(TabIndexOf("cmdOk"), "3");
  EXPECT_EQ(order.Apply(), 0);
  EXPECT_EQ(Order(TabOrder(*form_->Designer())), Order(order));
}

}  // namespace
}  // namespace tavrin::toolwindows
