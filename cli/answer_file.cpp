#include "cli/answer_file.h"

#include <nlohmann/json.hpp>

#include "cli/usage_error.h"
#include "platform/std_file_system.h"

namespace tavrin::cli {
namespace {

using Json = nlohmann::ordered_json;
using builders::DialogAction;

std::string ValueText(const std::string& where, const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_boolean()) return value.get<bool>() ? "true" : "false";
  if (value.is_number()) return value.dump();
  throw UsageError(where + " must be a text, a number, true or false");
}

builders::DialogScript ScriptOf(const std::string& title, const Json& showing) {
  if (!showing.is_object())
    throw UsageError("the answers to \"" + title + "\" must be an object of field values");
  builders::DialogScript script;
  std::vector<std::string> pressed;
  DialogAction end = DialogAction::Ok();
  for (auto item = showing.begin(); item != showing.end(); ++item) {
    const std::string& key = item.key();
    const Json& value = item.value();
    const std::string where = "\"" + title + "\"." + key;
    if (key == "press") {
      for (const Json& button : value.is_array() ? value : Json::array({value}))
        pressed.push_back(ValueText(where, button));
    } else if (key == "button") {
      const std::string button = ValueText(where, value);
      if (button != "OK" && button != "Cancel")
        throw UsageError(where + " must be \"OK\" or \"Cancel\", not \"" + button + "\"");
      end = button == "OK" ? DialogAction::Ok() : DialogAction::Cancel();
    } else {
      script.push_back(DialogAction::Set(key, ValueText(where, value)));
    }
  }
  for (std::string& button : pressed) script.push_back(DialogAction::Press(std::move(button)));
  script.push_back(end);
  return script;
}

}  // namespace

void LoadAnswers(std::string_view json, builders::ScriptedDialogHost& host) {
  const Json root = Json::parse(std::string(json), nullptr, /*allow_exceptions=*/false);
  if (root.is_discarded()) throw UsageError("the answer file is not valid JSON");
  if (!root.is_object()) throw UsageError("the answer file must hold an object of dialog titles");
  for (auto item = root.begin(); item != root.end(); ++item) {
    const std::string& title = item.key();
    const Json& answers = item.value();
    if (answers.is_array()) {
      for (const Json& showing : answers) host.Answer(title, ScriptOf(title, showing));
    } else {
      host.Answer(title, ScriptOf(title, answers));
    }
  }
}

void LoadAnswerFile(const std::string& path, builders::ScriptedDialogHost& host) {
  platform::StdFileSystem files;
  const auto text = files.ReadFile(path);
  if (!text) throw UsageError(text.error());
  LoadAnswers(text.value(), host);
}

void CheckAnswered(const builders::ScriptedDialogHost& host, bool confirmed) {
  if (!host.errors.empty()) {
    std::string message = "answers that do not apply: ";
    for (std::size_t i = 0; i < host.errors.size(); ++i)
      message += (i ? "; " : "") + host.errors[i];
    throw UsageError(message);
  }
  if (!confirmed && !host.refusals.empty()) throw UsageError(host.refusals.back());
}

}  // namespace tavrin::cli
