// How the commands that edit the active code pane run: nothing happens
// without a code pane (or, for a command with a dialog, without a dialog
// host); an IDE error (a read-only module) is shown to the user and ends
// the command, so none escapes to the IDE.
#pragma once

#include <string_view>

#include "addin/code_pane.h"
#include "addin/context.h"

namespace tavrin::addin {

inline void TellUser(Context& context, std::string_view text,
                     platform::Icon icon = platform::Icon::kInformation) {
  context.ui.MessageBox(text, platform::Buttons::kOk, icon, platform::kAppTitle);
}
inline void TellExclamation(Context& context, std::string_view text) {
  TellUser(context, text, platform::Icon::kExclamation);
}

// `steps` answers true when it changed the code.
template <typename Steps>
bool RunPaneCommand(Context& context, bool shows_dialog, Steps steps) {
  if ((shows_dialog && !context.dialogs) || !IsCodePaneReady(context)) return false;
  try {
    return steps();
  } catch (const ide::Error& error) {
    TellUser(context, error.what(), platform::Icon::kExclamation);
    return false;
  }
}

}  // namespace tavrin::addin
