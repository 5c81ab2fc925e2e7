// The control builder ("Add C&ontrol..."): names and types typed one a line
// ("OrderDate As TextBox", "Paid As CheckBox") or read from the columns of
// a database table, laid out on the active form as a column of labels and
// a column of inputs below its controls, with a preview of every control's
// name, caption, place and tab index.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "builders/dialog.h"
#include "formtools/column_source.h"
#include "formtools/control_layout.h"
#include "settings/type_prefixes.h"

namespace tavrin::builders {

inline constexpr std::string_view kControlDialogTitle = "Add Controls";

class ControlDialog : public DialogModel {
 public:
  // `columns` reads a table's columns for "From Database"; null hides it.
  ControlDialog(std::string form_name, formtools::FormState form,
                settings::TypePrefixTable prefixes, formtools::ColumnSource* columns);

  std::string Title() const override { return std::string(kControlDialogTitle); }
  std::string HelpTopic() const override { return "tools.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  void Pressed(std::string_view id, DialogHost& host) override;
  std::optional<Refusal> Accept() override;

  // The controls in tab order with the problem of the list or the layout;
  // no controls while there is a problem or the list is empty.
  formtools::ControlLayout Layout() const;

 private:
  void Refresh();

  formtools::FormState form_;
  settings::TypePrefixTable prefixes_;
  formtools::ColumnSource* columns_;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
