// A tabbed container (SSTab) in the tab order: each tab is a group of its
// own under the container, and ordering by position keeps a tab's controls
// together. Where the form names no tab of a child (as the IDE's object
// model does not), the current tab's controls stand in place and the rest
// are grouped as the other tabs.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "toolwindows/tab_order.h"

namespace tavrin::toolwindows {
namespace {

using Lines = std::vector<std::string>;

std::string Fixture() {
  std::ifstream file(TAVRIN_SOURCE_DIR "/tests/fixtures/tabs/frmTabs.frm", std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

Lines Shown(const TabOrder& order) {
  Lines shown;
  for (const TabOrderLine& line : order.Lines()) {
    const bool caption = line.stop == TabOrderLine::kCaption;
    shown.push_back(std::string(std::size_t(line.depth) * 2, ' ') +
                    (caption ? "[" + line.text + "]" : line.text));
  }
  return shown;
}

struct Case {
  const char* what;
  bool tabs_listed;  // the SSTab's Tab(n).Control(i) lines kept
  bool by_position;
  Lines shown;
};

const Case kCases[] = {
    {"in tab order", true, false,
     {"cmdOK", "tabCustomer", "  [tabCustomer - Tab 1: Address]", "    fraPost", "      txtZip",
      "      txtCity", "    txtStreet", "  [tabCustomer - Tab 0: General]", "    txtMail",
      "    txtPhone", "fraKind", "  optKind(1)", "  optKind(0)", "txtName", "lblName"}},
    {"by position", true, true,
     {"lblName", "txtName", "fraKind", "  optKind(0)", "  optKind(1)", "tabCustomer",
      "  [tabCustomer - Tab 0: General]", "    txtPhone", "    txtMail",
      "  [tabCustomer - Tab 1: Address]", "    txtStreet", "    fraPost", "      txtCity",
      "      txtZip", "cmdOK"}},
    {"no tab named, by position", false, true,
     {"lblName", "txtName", "fraKind", "  optKind(0)", "  optKind(1)", "tabCustomer",
      "  [tabCustomer - Tab 1: Address]", "    txtStreet", "    fraPost", "      txtCity",
      "      txtZip", "  [tabCustomer - other tabs]", "    txtPhone", "    txtMail", "cmdOK"}},
};

TEST(TabOrderTabsTest, EachTabIsAGroupUnderItsContainer) {
  const std::string fixture = Fixture();
  ASSERT_NE(fixture.find("TabDlg.SSTab"), std::string::npos);
  for (const Case& test : kCases) {
    SCOPED_TRACE(test.what);
    const std::string form =
        test.tabs_listed ? fixture
                         : std::regex_replace(fixture, std::regex(R"( *Tab\(\d+\)\.Control\(\d+\)=[^\r]*\r\n)"), "");
    const auto vbe = ide::memory::MemoryVbe::Create();
    const auto component = vbe->AddProject("Tabs")->AddSourceFile("frmTabs.frm", form).value();
    TabOrder order(*component->Designer());
    if (test.by_position) order.OrderByPosition();
    EXPECT_EQ(Shown(order), test.shown);
    // Written and read again, the form keeps that order and its groups.
    if (!test.by_position) continue;
    order.Apply();
    EXPECT_EQ(Shown(TabOrder(*component->Designer())), test.shown);
  }
}

}  // namespace
}  // namespace tavrin::toolwindows
