// The Tip of the Day and the About box.
#include <gtest/gtest.h>

#include "builders/about_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "builders/tip_of_the_day.h"
#include "tavrin_version.h"

namespace tavrin::builders {
namespace {

using A = DialogAction;

TEST(TipOfTheDayTest, EverySetHasItsTipsUnderItsMenuName) {
  for (const char* name :
       {"Tavrin_Startup", "VarBuilder", "CodelineBuilder", "FragmentBuilder", "ProcBuilder"}) {
    SCOPED_TRACE(name);
    const auto set = TipSetOf(name);
    ASSERT_TRUE(set);
    EXPECT_GE(TipsOf(*set).size(), 8u);
    EXPECT_LE(TipsOf(*set).size(), 15u);
  }
  EXPECT_FALSE(TipSetOf("Startup"));
}

TEST(TipOfTheDayTest, NextAndPreviousGoRound) {
  const int count = static_cast<int>(TipsOf(TipSet::kProcedureBuilder).size());
  const struct {
    int first;
    DialogScript script;
    int index;
    bool startup;
  } cases[] = {
      {0, {A::Press("next"), A::Press("next")}, 2, true},
      {0, {A::Press("previous")}, count - 1, true},
      {count - 1, {A::Press("next"), A::Check("startup", false)}, 0, false},
      {count + 3, {}, 3, true},
  };
  for (const auto& c : cases) {
    TipOfTheDayDialog dialog(TipSet::kProcedureBuilder, c.first, true);
    ScriptedDialogHost host;
    auto script = c.script;
    script.push_back(A::Ok());
    host.Answer(std::string(kTipDialogTitle), script);
    EXPECT_TRUE(host.Show(dialog));
    EXPECT_EQ(dialog.Index(), c.index);
    EXPECT_EQ(dialog.ShowAtStartup(), c.startup);
    EXPECT_EQ(FindField(dialog.Fields(), "tip")->text, TipsOf(TipSet::kProcedureBuilder)[c.index]);
    EXPECT_EQ(FindField(dialog.Fields(), "counter")->caption,
              "Tip " + std::to_string(c.index + 1) + " of " + std::to_string(count));
  }
}

TEST(AboutDialogTest, NamesTheProductAndItsVersion) {
  AboutDialog dialog;
  EXPECT_EQ(FindField(dialog.Fields(), "product")->caption, "Tavrin " TAVRIN_VERSION);
  EXPECT_NE(AboutText().find("Tavrin " TAVRIN_VERSION), std::string::npos);
  EXPECT_FALSE(dialog.Accept());
}

}  // namespace
}  // namespace tavrin::builders
