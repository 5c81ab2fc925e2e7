// The events of the in-memory IDE: sinks connected through VBE.Events, and
// the Raise functions through which the model (and tests standing in for the
// user) fire them. A sink's exception is not caught here: the real IDE would
// swallow it, a test wants to see it.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "ide/command_bars.h"
#include "ide/events.h"

namespace tavrin::ide::memory {

class MemoryEvents : public IEvents, public std::enable_shared_from_this<MemoryEvents> {
 public:
  std::shared_ptr<ICommandBarEvents> CommandBarEvents(
      std::shared_ptr<ICommandBarControl> control) override;
  std::shared_ptr<IVBProjectsEvents> VBProjectsEvents() override;
  std::shared_ptr<IVBComponentsEvents> VBComponentsEvents(
      std::shared_ptr<IProject> project) override;
  std::shared_ptr<IVBControlsEvents> VBControlsEvents(std::shared_ptr<IProject> project,
                                                      std::shared_ptr<IDesigner> designer) override;
  std::shared_ptr<IReferencesEvents> ReferencesEvents(std::shared_ptr<IProject> project) override;

  // A click on `control`: every sink connected to it, in connection order.
  void RaiseClick(const std::shared_ptr<ICommandBarControl>& control);

  void RaiseProjectAdded(const std::shared_ptr<IProject>& project);
  void RaiseProjectRemoved(const std::shared_ptr<IProject>& project);
  void RaiseProjectRenamed(const std::shared_ptr<IProject>& project, std::string_view old_name);
  void RaiseProjectActivated(const std::shared_ptr<IProject>& project);

  void RaiseComponentAdded(const std::shared_ptr<IComponent>& component);
  void RaiseComponentRemoved(const std::shared_ptr<IComponent>& component);
  void RaiseComponentRenamed(const std::shared_ptr<IComponent>& component,
                             std::string_view old_name);
  void RaiseComponentSelected(const std::shared_ptr<IComponent>& component);
  void RaiseComponentActivated(const std::shared_ptr<IComponent>& component);

  // `designer` is the form the control is on.
  void RaiseControlAdded(const std::shared_ptr<IDesigner>& designer,
                         const std::shared_ptr<IControl>& control);
  void RaiseControlRemoved(const std::shared_ptr<IDesigner>& designer,
                           const std::shared_ptr<IControl>& control);
  void RaiseControlRenamed(const std::shared_ptr<IDesigner>& designer,
                           const std::shared_ptr<IControl>& control, std::string_view old_name,
                           int old_index);

  // `project` is the project whose References changed.
  void RaiseReferenceAdded(const std::shared_ptr<IProject>& project,
                           const std::shared_ptr<IReference>& reference);
  void RaiseReferenceRemoved(const std::shared_ptr<IProject>& project,
                             const std::shared_ptr<IReference>& reference);

  // Sinks connected now, of every kind.
  int ConnectionCount() const;

  template <class Sink>
  struct Connection {
    int id;
    std::shared_ptr<Sink> sink;
    const void* filter;   // the control, project or designer listened to; null: all
    const void* filter2;  // the designer of a VBControlsEvents source
  };

 private:
  template <class Sink>
  friend class MemoryEventSource;

  template <class Sink>
  std::vector<Connection<Sink>>& ListOf();

  std::vector<Connection<ICommandBarEventsSink>> clicks_;
  std::vector<Connection<IVBProjectsEventsSink>> projects_;
  std::vector<Connection<IVBComponentsEventsSink>> components_;
  std::vector<Connection<IVBControlsEventsSink>> controls_;
  std::vector<Connection<IReferencesEventsSink>> references_;
  int next_id_ = 1;
};

}  // namespace tavrin::ide::memory
