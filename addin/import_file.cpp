#include "addin/import_file.h"

#include <string>

#include "addin/command_host.h"
#include "addin/pane_command.h"
#include "builders/file_dialog.h"
#include "ide/memory/component_kind.h"

namespace tavrin::addin {
bool ImportFile(Context& context) {
  if (!context.dialogs || !context.files) return false;
  const auto project = context.vbe.ActiveVBProject();
  if (!project) {
    TellExclamation(context, "Open a project to import a file into.");
    return false;
  }
  builders::FileDialog dialog("Import File", "&File:", *context.files);
  if (!context.dialogs->Show(dialog)) return false;
  const std::string path = dialog.Path();
  if (!ide::memory::IsSourceFileName(path)) {
    TellExclamation(context, "'" + path + "' is not a Visual Basic source file.");
    return false;
  }
  try {
    project->VBComponents()->Import(path);
    return true;
  } catch (const ide::Error& error) {
    TellExclamation(context, "Cannot import '" + path + "': " + error.what());
    return false;
  }
}

void RunImportFile(CommandHost& host, std::string_view) { ImportFile(host.CommandContext()); }

}  // namespace tavrin::addin
