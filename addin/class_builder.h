// "Add Cl&ass...": the class builder shown through the context's dialog
// host; on OK a new class module joins the active project with the
// builder's code, and its code pane opens.
#pragma once

#include <memory>
#include <string_view>

#include "addin/command_host.h"
#include "addin/context.h"
#include "builders/class_dialog.h"

namespace tavrin::addin {

// What the class builder knows of `project`: its modules, the symbols of
// the open projects, the collection class template read from the code
// folders.
builders::ClassTarget ClassTargetOf(Context& context, ide::IProject& project);

// Adds the class module `dialog` describes to `project` and opens its code
// pane; the caret stands below the module's top lines. Raises ide::Error,
// leaving no half-made module behind.
std::shared_ptr<ide::IComponent> AddClassModule(ide::IProject& project,
                                                const builders::ClassDialog& dialog);

// True when a class was added.
bool AddClass(Context& context);

void RunAddClass(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
