// The control builder ("Add C&ontrol..."): names and types typed one a line
// ("OrderDate As TextBox", "Paid As CheckBox"), laid out on the active form
// as a column of labels and a column of inputs below its controls, with a
// preview of every control's name, caption, place and tab index.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "builders/dialog.h"
#include "formtools/control_layout.h"

namespace tavrin::builders {

inline constexpr std::string_view kControlDialogTitle = "Add Controls";

class ControlDialog : public DialogModel {
 public:
  ControlDialog(std::string form_name, formtools::FormState form);

  std::string Title() const override { return std::string(kControlDialogTitle); }
  std::string HelpTopic() const override { return "tools.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  // The controls in tab order; empty while the list has a problem.
  std::vector<formtools::PlacedControl> Controls() const;

 private:
  formtools::FormState form_;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
