#include "builders/control_dialog.h"

namespace tavrin::builders {
namespace {

std::string PreviewLine(const formtools::PlacedControl& control) {
  std::string line = std::to_string(control.tab_index) + "  " + control.name + " (" +
                     control.prog_id.substr(control.prog_id.find('.') + 1) + ")";
  if (!control.caption.empty()) line += " \"" + control.caption + "\"";
  return line + "  at " + std::to_string(control.left) + ", " + std::to_string(control.top) +
         "  " + std::to_string(control.width) + " x " + std::to_string(control.height);
}

}  // namespace

ControlDialog::ControlDialog(std::string form_name, formtools::FormState form)
    : form_(std::move(form)) {
  Field form_label = MakeField("form", FieldKind::kLabel, "Form:");
  form_label.text = std::move(form_name);
  fields_.push_back(std::move(form_label));
  fields_.push_back(
      MakeField("controls", FieldKind::kText, "&Controls (OrderDate As TextBox, Paid As CheckBox):"));
  fields_.back().rows = 8;
  Field types = MakeField("types", FieldKind::kLabel, "Types:");
  std::string names;
  for (const std::string& type : formtools::ControlTypes()) names += (names.empty() ? "" : ", ") + type;
  types.text = names;
  fields_.push_back(std::move(types));
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Tab order:"));
  fields_.back().rows = 12;
}

std::vector<formtools::PlacedControl> ControlDialog::Controls() const {
  const auto parsed = formtools::ParseControlEntries(fields_[1].text);
  if (!parsed.problem.empty()) return {};
  return formtools::LayOutControls(parsed.entries, form_);
}

void ControlDialog::Changed(std::string_view) {
  const auto parsed = formtools::ParseControlEntries(fields_[1].text);
  std::string preview = parsed.problem;
  if (preview.empty())
    for (const formtools::PlacedControl& control : Controls())
      preview += (preview.empty() ? "" : "\r\n") + PreviewLine(control);
  FindField(fields_, "preview")->text = preview;
}

std::optional<Refusal> ControlDialog::Accept() {
  const auto parsed = formtools::ParseControlEntries(fields_[1].text);
  if (!parsed.problem.empty()) return Refusal{parsed.problem, "controls"};
  if (parsed.entries.empty())
    return Refusal{"Type the controls to lay out, one a line: a name, As and a type.", "controls"};
  return std::nullopt;
}

}  // namespace tavrin::builders
