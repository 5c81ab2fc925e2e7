// "Add C&ontrol...": the control builder shown through the context's dialog
// host over the active form designer; on OK its labels and inputs are added
// to the form.
#pragma once

#include <string_view>

#include "addin/command_host.h"
#include "addin/context.h"

namespace tavrin::addin {

// True when controls were added. Without an active form the user is told
// "You must select a form!", as by the shortcut check.
bool AddControls(Context& context);

void RunAddControls(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
