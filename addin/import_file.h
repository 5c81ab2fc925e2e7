// "I&mport File...": adds a module file to the active project.
#pragma once

#include <string_view>

#include "addin/context.h"

namespace tavrin::addin {

class CommandHost;

// Asks for a .bas, .cls, .frm or .ctl file and imports it into the active
// project. False when nothing was imported; the reason has been shown.
bool ImportFile(Context& context);

void RunImportFile(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
