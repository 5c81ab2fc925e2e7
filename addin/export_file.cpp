#include "addin/export_file.h"

#include "addin/command_host.h"
#include "addin/pane_command.h"
#include "builders/file_dialog.h"

namespace tavrin::addin {
namespace {

using ide::ComponentType;

std::string_view Extension(ComponentType type) {
  switch (type) {
    case ComponentType::kStdModule: return ".bas";
    case ComponentType::kClassModule: return ".cls";
    case ComponentType::kUserControl: return ".ctl";
    case ComponentType::kPropPage: return ".pag";
    case ComponentType::kDocObject: return ".dob";
    case ComponentType::kActiveXDesigner: return ".dsr";
    default: return ".frm";
  }
}

std::string FolderOf(std::string_view path) {
  const auto slash = path.find_last_of("\\/");
  return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash + 1));
}

}  // namespace

std::string ExportFileName(ide::IComponent& component) {
  std::string folder;
  try {
    folder = FolderOf(component.Project()->FileName());
  } catch (const ide::Error&) {
    // A project the IDE cannot tell the file of: the name alone.
  }
  return folder + component.Name() + std::string(Extension(component.Type()));
}

bool ExportFile(Context& context, ide::IComponent& component) {
  if (!context.dialogs || !context.files) return false;
  builders::FileDialog dialog("Export File", "&File:", *context.files, builders::FieldKind::kFile,
                              "import-export.html", builders::FileDialog::Purpose::kSave);
  dialog.SetPath(ExportFileName(component));
  if (!context.dialogs->Show(dialog)) return false;
  const std::string path = dialog.Path();
  if (context.files->FileExists(path) &&
      context.ui.MessageBox("'" + path + "' already exists. Do you want to replace it?",
                            platform::Buttons::kYesNo, platform::Icon::kQuestion,
                            platform::kAppTitle) != platform::Answer::kYes) {
    return false;
  }
  try {
    component.Export(path);
    return true;
  } catch (const ide::Error& error) {
    TellExclamation(context, "Cannot export " + component.Name() + " to '" + path + "': " + error.what());
    return false;
  }
}

void RunExportFile(CommandHost& host, std::string_view) {
  Context& context = host.CommandContext();
  const auto pane = context.vbe.ActiveCodePane();
  if (!pane) {
    TellExclamation(context, "Open the code of the component to export.");
    return;
  }
  ExportFile(context, *pane->CodeModule()->Parent());
}

}  // namespace tavrin::addin
