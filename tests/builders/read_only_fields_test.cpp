// What the user reads but cannot answer: labels, notes and previews, and the
// prose they show.
#include <gtest/gtest.h>

#include "builders/about_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "builders/tip_of_the_day.h"

namespace tavrin::builders {
namespace {

using A = DialogAction;

TEST(ReadOnlyFieldsTest, AnAnswerToThemCancelsTheDialog) {
  const struct {
    const char* title;
    A action;
  } cases[] = {
      {"About Tavrin", A::Text("credits", "x")},    // a note
      {"About Tavrin", A::Text("product", "x")},    // a label
      {"Tip of the Day", A::Set("tip", "x")},       // a note
      {"Tip of the Day", A::Text("counter", "x")},  // a label
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.action.id);
    AboutDialog about;
    TipOfTheDayDialog tip(TipSet::kStartup, 0, true);
    DialogModel& model = std::string_view(c.title) == "About Tavrin"
                             ? static_cast<DialogModel&>(about)
                             : static_cast<DialogModel&>(tip);
    ScriptedDialogHost host;
    host.Answer(model.Title(), {c.action, A::Ok()});
    EXPECT_FALSE(host.Show(model));
    EXPECT_EQ(host.errors.size(), 1u);
  }
}

// Tips quote command captions as the user reads them, without access marks.
TEST(ReadOnlyFieldsTest, TipsHaveNoAccessMarks) {
  for (TipSet set : {TipSet::kStartup, TipSet::kVariableBuilder, TipSet::kCodeLineBuilder,
                     TipSet::kFragmentBuilder, TipSet::kProcedureBuilder})
    for (std::string_view tip : TipsOf(set)) EXPECT_EQ(tip.find('&'), tip.npos) << tip;
}

}  // namespace
}  // namespace tavrin::builders
