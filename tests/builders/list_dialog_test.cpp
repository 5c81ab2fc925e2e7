#include "builders/list_dialog.h"

#include <gtest/gtest.h>

#include "builders/scripted_dialog_host.h"

namespace tavrin::builders {
namespace {

using Strings = std::vector<std::string>;
using A = DialogAction;

TEST(ListDialogTest, FilterPutsPrefixMatchesFirst) {
  const Strings entries = {"rsOrders", "mRecord", "Order", "cnMain", "ORDINAL"};
  EXPECT_EQ(FilterEntries(entries, ""), entries);
  EXPECT_EQ(FilterEntries(entries, " ord "), (Strings{"Order", "ORDINAL", "rsOrders", "mRecord"}));
  EXPECT_EQ(FilterEntries(entries, "MAIN"), (Strings{"cnMain"}));
  EXPECT_EQ(FilterEntries(entries, "x"), Strings{});
}

TEST(ListDialogTest, TypingPickingAndOk) {
  const Strings labels = {"Retry", "HandleExit", "HandleError"};
  const struct {
    std::string name;
    std::string placeholder;
    std::string initial;
    DialogScript script;
    bool accepted;
    std::string choice;
    Strings refusals;
  } cases[] = {
      {"ok takes the first row", "", "", {A::Ok()}, true, "Retry", {}},
      {"ok takes the initial entry", "", "HandleExit", {A::Ok()}, true, "HandleExit", {}},
      {"typing selects the best match", "", "", {A::Text("filter", "err"), A::Ok()}, true,
       "HandleError", {}},
      {"a picked row wins", "", "", {A::Pick("list", "HandleError"), A::Ok()}, true,
       "HandleError", {}},
      {"nothing matches: refused, then cancelled", "", "",
       {A::Text("filter", "zz"), A::Ok(), A::Cancel()}, false, "",
       {"No entry matches \"zz\"."}},
      {"refused, then corrected", "", "",
       {A::Text("filter", "zz"), A::Ok(), A::Text("filter", "ret"), A::Ok()}, true, "Retry",
       {"No entry matches \"zz\"."}},
      {"cancel", "", "", {A::Text("filter", "ret"), A::Cancel()}, false, "", {}},
      {"a script that runs out cancels", "", "", {A::Text("filter", "ret")}, false, "", {}},
      {"the placeholder comes first", "<New Label>", "", {A::Ok()}, true, "", {}},
      {"the placeholder takes the typed text", "<New Label>", "",
       {A::Text("filter", " Again "), A::Ok()}, true, "Again", {}},
      {"a match is preferred to the placeholder", "<New Label>", "",
       {A::Text("filter", "handle"), A::Ok()}, true, "HandleExit", {}},
      {"the placeholder picked while typing", "<New Label>", "",
       {A::Text("filter", "Handle"), A::Pick("list", "<New Label>"), A::Ok()}, true, "Handle",
       {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ListDialog dialog("GoTo", "Label", labels, c.placeholder, c.initial);
    ScriptedDialogHost host;
    host.Answer("GoTo", c.script);
    EXPECT_EQ(host.Show(dialog), c.accepted);
    if (c.accepted) {
      EXPECT_EQ(dialog.Choice(), c.choice);
    }
    EXPECT_EQ(host.refusals, c.refusals);
    EXPECT_TRUE(host.errors.empty());
  }
}

TEST(ListDialogTest, AnEmptyListRefusesOk) {
  ListDialog dialog("With", "Object", {});
  ScriptedDialogHost host;
  host.Answer("With", {A::Ok()});
  EXPECT_FALSE(host.Show(dialog));
  EXPECT_EQ(host.refusals, Strings{"The list is empty."});
}

TEST(ListDialogTest, TheScriptNamesOnlyWhatTheDialogHolds) {
  ListDialog dialog("GoTo", "Label", {"Retry"});
  ScriptedDialogHost host;
  host.Answer("GoTo", {A::Pick("list", "Missing"), A::Ok()});
  host.Answer("GoTo", {A::Text("nowhere", "x"), A::Ok()});
  EXPECT_FALSE(host.Show(dialog));
  EXPECT_FALSE(host.Show(dialog));
  EXPECT_FALSE(host.Show(dialog));  // no script left
  EXPECT_EQ(host.errors,
            (Strings{"GoTo: list has no item Missing", "GoTo: no usable field nowhere"}));
  EXPECT_EQ(host.shown, (Strings{"GoTo", "GoTo", "GoTo"}));
}

}  // namespace
}  // namespace tavrin::builders
