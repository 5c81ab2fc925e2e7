#include "builders/scripted_dialog_host.h"

#include <algorithm>
#include <optional>

namespace tavrin::builders {
namespace {

// What giving a value to a field means, by its kind.
std::optional<DialogAction::Op> SetAction(const Field& field, std::string_view value) {
  using Op = DialogAction::Op;
  switch (field.kind) {
    case FieldKind::kCheck:
      if (value == "true" || value == "1" || value == "yes") return Op::kCheck;
      if (value == "false" || value == "0" || value == "no") return Op::kUncheck;
      return std::nullopt;
    case FieldKind::kChoice:
    case FieldKind::kList:
      return Op::kPick;
    case FieldKind::kCombo:
      return std::find(field.items.begin(), field.items.end(), value) != field.items.end()
                 ? Op::kPick
                 : Op::kText;
    default:
      return Op::kText;
  }
}

// Labels, notes and previews show the model's text; nobody types there.
bool IsReadOnly(const Field& field) {
  return field.kind == FieldKind::kLabel || field.kind == FieldKind::kNote ||
         field.kind == FieldKind::kPreview;
}

}  // namespace

void ScriptedDialogHost::Answer(const std::string& title, DialogScript script) {
  scripts_[title].push_back(std::move(script));
}

bool ScriptedDialogHost::Show(DialogModel& model) {
  const std::string title = model.Title();
  shown.push_back(title);
  auto& queue = scripts_[title];
  if (queue.empty()) return false;
  const DialogScript script = std::move(queue.front());
  queue.erase(queue.begin());
  using Op = DialogAction::Op;
  for (DialogAction action : script) {
    if (action.op == Op::kCancel) return false;
    if (action.op == Op::kOk) {
      if (const auto refusal = model.Accept()) {
        refusals.push_back(refusal->message);
        continue;  // the dialog stays open; the script goes on
      }
      return true;
    }
    Field* field = FindField(model.Fields(), action.id);
    if (!field || !field->enabled || !field->visible || IsReadOnly(*field)) {
      errors.push_back(title + ": no usable field " + action.id);
      return false;
    }
    if (action.op == Op::kSet) {
      if (const auto resolved = SetAction(*field, action.value)) {
        action.op = *resolved;
      } else {
        errors.push_back(title + ": " + action.id + " takes true or false, not " + action.value);
        return false;
      }
    }
    switch (action.op) {
      case Op::kText:
        field->text = action.value;
        break;
      case Op::kCheck:
      case Op::kUncheck:
        field->checked = action.op == Op::kCheck;
        break;
      case Op::kPick: {
        const auto found = std::find(field->items.begin(), field->items.end(), action.value);
        if (found == field->items.end()) {
          errors.push_back(title + ": " + action.id + " has no item " + action.value);
          return false;
        }
        field->selected = static_cast<int>(found - field->items.begin());
        field->text = action.value;
        break;
      }
      case Op::kPress:
        model.Pressed(action.id, *this);
        continue;
      default:
        break;
    }
    model.Changed(action.id);
  }
  return false;
}

}  // namespace tavrin::builders
