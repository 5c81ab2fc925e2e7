// The dialogs' answers of the tool: a JSON answer file read into a scripted
// dialog host, and the check that every answer applied.
//
//   { "Add Procedure": { "name": "Total", "kind": "Function", "header": false,
//                        "press": ["add"], "button": "OK" },
//     "Argument": [ { "name": "n", "type": "Long" } ] }
//
// Per dialog title one showing (an object) or several (an array). Each key
// is a field with its value, in the order written: a text, an item of a
// list, true or false for a check box. "press" names the buttons pressed
// after the fields; "button" ends the showing with "OK" (the default) or
// "Cancel".
#pragma once

#include <string>
#include <string_view>

#include "builders/scripted_dialog_host.h"

namespace tavrin::cli {

// Raises UsageError for a file that is not such JSON.
void LoadAnswers(std::string_view json, builders::ScriptedDialogHost& host);
void LoadAnswerFile(const std::string& path, builders::ScriptedDialogHost& host);

// Raises UsageError naming the answers that did not apply (an unknown field,
// an item a list does not have) or the message of a refused OK when the
// dialog was not confirmed.
void CheckAnswered(const builders::ScriptedDialogHost& host, bool confirmed);

}  // namespace tavrin::cli
