#include "builders/scripted_dialog_host.h"

#include <algorithm>

namespace tavrin::builders {

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
  for (const DialogAction& action : script) {
    if (action.op == Op::kCancel) return false;
    if (action.op == Op::kOk) {
      if (const auto refusal = model.Accept()) {
        refusals.push_back(refusal->message);
        continue;  // the dialog stays open; the script goes on
      }
      return true;
    }
    Field* field = FindField(model.Fields(), action.id);
    if (!field || !field->enabled || !field->visible) {
      errors.push_back(title + ": no usable field " + action.id);
      return false;
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
