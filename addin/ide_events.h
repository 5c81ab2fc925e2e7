// The IDE's project, component, control and reference events, forwarded to
// what follows them: the library scanner's cache, and the tool windows: the Code Explorer once it has built its tree, the
// Tab order window while it is visible. A rename reaches the explorer as a
// removal under the old name and an addition under the new one.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "addin/tool_windows.h"
#include "ide/events.h"
#include "platform/ui.h"
#include "scan/type_library.h"

namespace tavrin::addin {

// Where the events go: the tool windows of the connection (any may be
// missing).
struct EventTargets {
  ToolWindow* code_explorer = nullptr;
  ToolWindow* tab_order = nullptr;
  // The libraries read for the builders: a reference added or removed drops
  // what was read for it.
  scan::TypeLibraryScanner* type_libraries = nullptr;

  // The explorer's document when its tree is built; nullptr otherwise.
  ICodeExplorerDocument* ReadyExplorer() const;
  // The tab order document while its window is visible; nullptr otherwise.
  ITabOrderDocument* VisibleTabOrder() const;
};

// The forwarding table, one function per event handler of Connect.
void PrjHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IProject> project);
void PrjHandler_ItemRenamed(const EventTargets& targets, std::shared_ptr<ide::IProject> project,
                            std::string_view old_name);
void PrjHandler_ItemRemoved(const EventTargets& targets, std::shared_ptr<ide::IProject> project);
void CmpHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IComponent> component);
void CmpHandler_ItemRemoved(const EventTargets& targets,
                            std::shared_ptr<ide::IComponent> component);
void CmpHandler_ItemRenamed(const EventTargets& targets,
                            std::shared_ptr<ide::IComponent> component, std::string_view old_name);
void CmpHandler_ItemActivated(const EventTargets& targets,
                              std::shared_ptr<ide::IComponent> component);
void CmpHandler_ItemSelected(const EventTargets& targets,
                             std::shared_ptr<ide::IComponent> component);
void CtlHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IControl> control);
void CtlHandler_ItemRenamed(const EventTargets& targets, std::shared_ptr<ide::IControl> control,
                            std::string_view old_name, int old_index);
void CtlHandler_ItemRemoved(const EventTargets& targets, std::shared_ptr<ide::IControl> control);

void RefHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IReference> reference);
void RefHandler_ItemRemoved(const EventTargets& targets,
                            std::shared_ptr<ide::IReference> reference);

// Connects PrjHandler (all projects), CmpHandler (the components of all
// projects), CtlHandler (the controls of all designers) and, when there is
// a library scanner, RefHandler (the references of all projects; an IDE
// that does not raise them is left out); each event runs
// guarded, so an error is reported and the next event still arrives. The
// connections last as long as the returned objects.
std::vector<ide::EventConnection> ConnectIdeEvents(ide::IVbe& vbe, const EventTargets& targets,
                                                   platform::Ui& ui);

}  // namespace tavrin::addin
