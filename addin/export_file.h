// "Export File...": writes a component's source file where the user says,
// as the IDE's own Export File does.
#pragma once

#include <string>
#include <string_view>

#include "addin/context.h"

namespace tavrin::addin {

class CommandHost;

// The name the save dialog offers: the component's name and the extension
// of its kind (.bas .cls .frm .ctl .pag .dob .dsr), in the project's folder
// when the project has a file.
std::string ExportFileName(ide::IComponent& component);

// Asks for the file, asks before replacing one, and exports. False when
// nothing was written; the reason has been shown.
bool ExportFile(Context& context, ide::IComponent& component);

// The component of the active code pane.
void RunExportFile(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
