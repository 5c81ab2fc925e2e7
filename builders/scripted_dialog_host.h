// A dialog host that answers from a script, as a user would: for each
// showing of a dialog (found by its title) it edits fields, presses buttons
// and ends with OK or Cancel. Tests and the tool drive the builders with it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "builders/dialog.h"

namespace tavrin::builders {

struct DialogAction {
  // kSet gives a value as the field takes it: the text of a text box, the
  // item of a list, "true" or "false" for a check box.
  enum class Op { kText, kCheck, kUncheck, kPick, kSet, kPress, kOk, kCancel };
  Op op = Op::kCancel;
  std::string id;
  std::string value;  // the text typed, or the item picked

  static DialogAction Text(std::string id, std::string text) {
    return {Op::kText, std::move(id), std::move(text)};
  }
  static DialogAction Check(std::string id, bool on = true) {
    return {on ? Op::kCheck : Op::kUncheck, std::move(id), ""};
  }
  static DialogAction Pick(std::string id, std::string item) {
    return {Op::kPick, std::move(id), std::move(item)};
  }
  static DialogAction Set(std::string id, std::string value) {
    return {Op::kSet, std::move(id), std::move(value)};
  }
  static DialogAction Press(std::string id) { return {Op::kPress, std::move(id), ""}; }
  static DialogAction Ok() { return {Op::kOk, "", ""}; }
  static DialogAction Cancel() { return {Op::kCancel, "", ""}; }
};

using DialogScript = std::vector<DialogAction>;

class ScriptedDialogHost : public DialogHost {
 public:
  // Queues the answers to the next showing of the dialog with that title.
  void Answer(const std::string& title, DialogScript script);

  // Runs the next script queued for the model's title. A dialog without a
  // script, or a script that runs out, is cancelled; an unknown field id or
  // item is an error of the script and cancels too (recorded in errors).
  bool Show(DialogModel& model) override;

  std::vector<std::string> shown;     // titles, in order
  std::vector<std::string> refusals;  // messages of refused OKs
  std::vector<std::string> errors;    // script steps that did not apply

 private:
  std::map<std::string, std::vector<DialogScript>> scripts_;
};

}  // namespace tavrin::builders
