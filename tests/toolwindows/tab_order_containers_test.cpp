// Containers in the tab order: a frame's children and a nested picture
// box's are listed under it, and ordering by position keeps each
// container's children together right behind it, ordered by their own
// positions (which are relative to the container).
#include <gtest/gtest.h>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "toolwindows/tab_order.h"

namespace tavrin::toolwindows {
namespace {

std::string Control(std::string_view kind, std::string_view name, int left, int top,
                    int tab_index, std::string_view children = {}) {
  return "   Begin VB." + std::string(kind) + " " + std::string(name) + "\r\n      Height = 300\r\n" +
         "      Left = " + std::to_string(left) + "\r\n      TabIndex = " +
         std::to_string(tab_index) + "\r\n      Top = " + std::to_string(top) + "\r\n" +
         std::string(children) + "   End\r\n";
}

TEST(TabOrderContainersTest, ChildrenFollowTheirContainer) {
  // fraAddress (right) holds txtStreet below txtCity and picFlags, which
  // holds chkA right of chkB; txtName stands left of the frame.
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form frmBox\r\n" +
      Control("Frame", "fraAddress", 3000, 100, 0,
              Control("TextBox", "txtStreet", 100, 900, 1) +
                  Control("TextBox", "txtCity", 100, 300, 2) +
                  Control("PictureBox", "picFlags", 100, 1500, 3,
                          Control("CheckBox", "chkA", 900, 50, 4) +
                              Control("CheckBox", "chkB", 50, 60, 5))) +
      Control("TextBox", "txtName", 100, 100, 6) + "End\r\nAttribute VB_Name = \"frmBox\"\r\n";
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto component = vbe->AddProject("Project1")->AddSourceFile("frmBox.frm", form).value();
  TabOrder order(*component->Designer());
  const auto listed = [&] {
    std::vector<std::string> names;
    for (const TabStop& stop : order.Stops())
      names.push_back(std::string(std::size_t(stop.depth), '>') + stop.name + "@" + stop.container);
    return names;
  };
  EXPECT_EQ(listed(), (std::vector<std::string>{"fraAddress@", ">txtStreet@fraAddress",
                                                ">txtCity@fraAddress", ">picFlags@fraAddress",
                                                ">>chkA@picFlags", ">>chkB@picFlags", "txtName@"}));
  order.OrderByPosition();
  EXPECT_EQ(listed(), (std::vector<std::string>{"txtName@", "fraAddress@", ">txtCity@fraAddress",
                                                ">txtStreet@fraAddress", ">picFlags@fraAddress",
                                                ">>chkB@picFlags", ">>chkA@picFlags"}));
}

}  // namespace
}  // namespace tavrin::toolwindows
