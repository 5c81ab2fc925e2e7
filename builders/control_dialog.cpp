#include "builders/control_dialog.h"

namespace tavrin::builders {
namespace {

std::string PreviewLine(const formtools::PlacedControl& control) {
  std::string line = std::to_string(control.tab_index) + "  " + control.name + " (" +
                     control.prog_id.substr(control.prog_id.find('.') + 1) + ")";
  if (!control.caption.empty()) line += " \"" + control.caption + "\"";
  return line + "  at " + std::to_string(control.left) + ", " + std::to_string(control.top);
}

std::string TypeList() {
  std::string names;
  for (const std::string& type : formtools::ControlTypes())
    names += (names.empty() ? "" : ", ") + type;
  return names;
}

}  // namespace

ControlDialog::ControlDialog(std::string form_name, formtools::FormState form,
                             settings::TypePrefixTable prefixes, formtools::ColumnSource* columns)
    : form_(std::move(form)), prefixes_(std::move(prefixes)), columns_(columns) {
  Field form_label = MakeField("form", FieldKind::kLabel, "Form:");
  form_label.text = std::move(form_name);
  fields_.push_back(std::move(form_label));
  fields_.push_back(MakeField("controls", FieldKind::kText, "&Controls:"));
  fields_.back().rows = 8;
  fields_.push_back(MakeField("types", FieldKind::kNote));
  fields_.back().text = "One a line: a name, As and a type (" + TypeList() +
                        "); without a type a TextBox.";
  fields_.back().rows = 2;
  for (const auto& [id, caption] :
       {std::pair{"database", "Data&base:"}, std::pair{"table", "&Table:"}}) {
    fields_.push_back(MakeField(id, FieldKind::kText, caption));
    fields_.back().group = "From Database";
    fields_.back().remember = true;
    fields_.back().visible = columns_ != nullptr;
  }
  fields_.push_back(MakeField("read", FieldKind::kButton, "&Read Columns"));
  fields_.push_back(MakeField("status", FieldKind::kNote));
  for (Field* field : {&fields_[fields_.size() - 2], &fields_.back()}) {
    field->group = "From Database";
    field->visible = columns_ != nullptr;
  }
  fields_.back().rows = 2;
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Tab order:"));
  fields_.back().rows = 16;
  Refresh();
}

formtools::ControlLayout ControlDialog::Layout() const {
  const auto parsed = formtools::ParseControlEntries(fields_[1].text);
  if (!parsed.problem.empty()) return {{}, parsed.problem};
  return formtools::LayOutControls(parsed.entries, form_, prefixes_);
}

void ControlDialog::Refresh() {
  const formtools::ControlLayout layout = Layout();
  std::string preview = layout.problem;
  for (const formtools::PlacedControl& control : layout.controls)
    preview += (preview.empty() ? "" : "\r\n") + PreviewLine(control);
  FindField(fields_, "preview")->text = preview;
}

void ControlDialog::Changed(std::string_view) { Refresh(); }

void ControlDialog::Pressed(std::string_view id, DialogHost&) {
  if (id != "read" || !columns_) return;
  const std::string database = FindField(fields_, "database")->text;
  const std::string table = FindField(fields_, "table")->text;
  Field& status = *FindField(fields_, "status");
  if (database.empty() || table.empty()) {
    status.text = "Give the database (a connection string or a file) and the table.";
    return;
  }
  const auto columns = columns_->Columns(database, table);
  if (!columns) {
    status.text = columns.error();
    return;
  }
  const auto entries = formtools::EntriesFor(*columns);
  status.text = std::to_string(entries.size()) + " columns of " + table + " read.";
  fields_[1].text = formtools::EntriesText(entries);
  Refresh();
}

std::optional<Refusal> ControlDialog::Accept() {
  const formtools::ControlLayout layout = Layout();
  if (!layout.problem.empty()) return Refusal{layout.problem, "controls"};
  return std::nullopt;
}

}  // namespace tavrin::builders
