#include "builders/control_dialog.h"

#include <gtest/gtest.h>

#include "builders/scripted_dialog_host.h"

namespace tavrin::builders {
namespace {

// One table, "Orders"; any other database or table is the source's message.
class FakeColumns : public formtools::ColumnSource {
 public:
  Result<std::vector<formtools::Column>> Columns(std::string_view database,
                                                 std::string_view table) override {
    if (database != "shop.mdb") return Error{"The database could not be opened: no provider."};
    if (table != "Orders") return Error{"The columns of " + std::string(table) + " could not be read."};
    return std::vector<formtools::Column>{
        {"Order Date", "Date"}, {"Paid", "Boolean"}, {"1st", "Long"}, {"Total", "Currency"}};
  }
};

// "Read Columns" fills the list or shows the source's message in the
// dialog; OK lays out what the list says, and an empty list lays out nothing.
TEST(ControlDialogTest, ReadsColumnsIntoTheListOrSaysWhyNot) {
  struct Case {
    std::string database, table, status, controls;
  };
  const Case cases[] = {
      {"shop.mdb", "Orders", "3 columns of Orders read.",
       "OrderDate As TextBox\r\nPaid As CheckBox\r\nTotal As TextBox"},
      {"other.mdb", "Orders", "The database could not be opened: no provider.", ""},
      {"shop.mdb", "Items", "The columns of Items could not be read.", ""},
      {"", "Orders", "Give the database (a connection string or a file) and the table.", ""},
  };
  for (const Case& c : cases) {
    FakeColumns columns;
    ControlDialog dialog("Project1 - frmOrder (Form)", {}, {}, &columns);
    ScriptedDialogHost host;
    host.Answer(std::string(kControlDialogTitle),
                {DialogAction::Text("database", c.database), DialogAction::Text("table", c.table),
                 DialogAction::Press("read"), DialogAction::Ok()});
    EXPECT_TRUE(host.Show(dialog)) << c.table;
    EXPECT_EQ(FindField(dialog.Fields(), "status")->text, c.status);
    EXPECT_EQ(FindField(dialog.Fields(), "controls")->text, c.controls);
    EXPECT_EQ(dialog.Layout().controls.size(), c.controls.empty() ? 0u : 5u);
  }
}

TEST(ControlDialogTest, RefusesAClashAndHidesTheDatabaseWithoutASource) {
  formtools::FormState form;
  form.names = {"txtTotal"};
  ControlDialog dialog("Form1", form, {}, nullptr);
  EXPECT_FALSE(FindField(dialog.Fields(), "database")->visible);
  ScriptedDialogHost host;
  host.Answer(std::string(kControlDialogTitle),
              {DialogAction::Text("controls", "Total"), DialogAction::Ok(), DialogAction::Cancel()});
  EXPECT_FALSE(host.Show(dialog));
  ASSERT_EQ(host.refusals.size(), 1u);
  EXPECT_EQ(host.refusals[0], "The form has a control named txtTotal already.");
  EXPECT_EQ(FindField(dialog.Fields(), "preview")->text, host.refusals[0]);
}

}  // namespace
}  // namespace tavrin::builders
