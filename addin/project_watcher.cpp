#include "addin/project_watcher.h"

#include "addin/toolbar.h"
#include "base/text.h"

namespace tavrin::addin {

void ProjectWatcherTick(ConnectionState& state, ICodeExplorerDocument* explorer,
                        const std::function<void()>& refresh_controls) {
  ide::IVbe& vbe = state.VBInst();
  if (vbe.VBProjects()->Count() == 0) {
    EnableAddin(vbe, false);
    state.current_project_file.clear();
    return;
  }
  EnableAddin(vbe, true);
  if (refresh_controls) refresh_controls();
  const auto project = vbe.ActiveVBProject();
  if (!project) return;
  std::string file_name = project->FileName();
  if (file_name.empty()) file_name = kNewProjectName;
  if (EqualsIgnoreCase(file_name, state.current_project_file)) return;
  state.current_project_file = file_name;
  if (explorer) explorer->Initialize(true);
}

}  // namespace tavrin::addin
