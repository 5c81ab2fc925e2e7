// The columns of a database table, for the control builder's "From
// Database". Reading them is the platform's job: ADO on Windows, an SQLite
// file in the tool. A failure is a message for the user, never a throw.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "formtools/control_layout.h"

namespace tavrin::formtools {

struct Column {
  std::string name;
  std::string type;  // the Visual Basic type that holds it: "String", "Long", "Boolean", ...
};

class ColumnSource {
 public:
  virtual ~ColumnSource() = default;
  // `database` is a connection string or a database file, as the user gave it.
  virtual Result<std::vector<Column>> Columns(std::string_view database,
                                              std::string_view table) = 0;
};

// The input that edits a column: a Boolean gets a CheckBox, the rest a TextBox.
std::string ControlTypeFor(std::string_view vb_type);

// One entry per column, its name without what a control name cannot hold
// ("Order Date" gives OrderDate); a column left without a name is passed over.
std::vector<ControlEntry> EntriesFor(const std::vector<Column>& columns);

}  // namespace tavrin::formtools
