// The project watcher (the first timer of frmTimer): on each tick it
// enables the add-in's commands while a project is open and disables them
// otherwise, and re-initialises the Code Explorer when the active project
// changes. The Windows build calls the tick from a real timer; tests call it
// directly.
#pragma once

#include <functional>
#include <string_view>

#include "addin/connection_state.h"
#include "addin/tool_windows.h"

namespace tavrin::addin {

// Stands for the file name of a project that has none yet.
inline constexpr std::string_view kNewProjectName = "NewProject";

// `refresh_controls` renews the captions and visibility of the add-in's
// controls; `explorer` may be null.
void ProjectWatcherTick(ConnectionState& state, ICodeExplorerDocument* explorer,
                        const std::function<void()>& refresh_controls);

}  // namespace tavrin::addin
