#include "ide/memory/memory_events.h"

#include <algorithm>

namespace tavrin::ide::memory {

template <>
std::vector<MemoryEvents::Connection<ICommandBarEventsSink>>& MemoryEvents::ListOf() {
  return clicks_;
}
template <>
std::vector<MemoryEvents::Connection<IVBProjectsEventsSink>>& MemoryEvents::ListOf() {
  return projects_;
}
template <>
std::vector<MemoryEvents::Connection<IVBComponentsEventsSink>>& MemoryEvents::ListOf() {
  return components_;
}
template <>
std::vector<MemoryEvents::Connection<IVBControlsEventsSink>>& MemoryEvents::ListOf() {
  return controls_;
}

template <>
std::vector<MemoryEvents::Connection<IReferencesEventsSink>>& MemoryEvents::ListOf() {
  return references_;
}

// One source object as Events hands it out: it remembers its filter and
// connects sinks under it.
template <class Sink>
class MemoryEventSource : public IEventSource<Sink> {
 public:
  MemoryEventSource(std::shared_ptr<MemoryEvents> events, const void* filter,
                    const void* filter2)
      : events_(std::move(events)), filter_(filter), filter2_(filter2) {}

  EventConnection Advise(std::shared_ptr<Sink> sink) override {
    if (!sink) throw Error(5, "Invalid procedure call or argument");
    const int id = events_->next_id_++;
    events_->ListOf<Sink>().push_back({id, std::move(sink), filter_, filter2_});
    return EventConnection([weak_events = std::weak_ptr<MemoryEvents>(events_), id] {
      if (auto events = weak_events.lock())
        std::erase_if(events->ListOf<Sink>(), [id](const auto& each) { return each.id == id; });
    });
  }

 private:
  std::shared_ptr<MemoryEvents> events_;
  const void* filter_;
  const void* filter2_;
};

namespace {

// Calls `fire` on every sink whose filters let the event through. The list
// is copied first: a sink may connect or disconnect sinks while it runs.
template <class Sink, class Fire>
void RaiseTo(const std::vector<MemoryEvents::Connection<Sink>>& list, const void* subject,
             const void* subject2, Fire fire) {
  const auto snapshot = list;
  for (const auto& each : snapshot) {
    if (each.filter && each.filter != subject) continue;
    if (each.filter2 && each.filter2 != subject2) continue;
    fire(*each.sink);
  }
}

const void* ProjectOf(const std::shared_ptr<IComponent>& component) {
  return component ? component->Project().get() : nullptr;
}

}  // namespace

std::shared_ptr<ICommandBarEvents> MemoryEvents::CommandBarEvents(
    std::shared_ptr<ICommandBarControl> control) {
  if (!control) throw Error(5, "Invalid procedure call or argument");
  return std::make_shared<MemoryEventSource<ICommandBarEventsSink>>(shared_from_this(),
                                                                    control.get(), nullptr);
}

std::shared_ptr<IVBProjectsEvents> MemoryEvents::VBProjectsEvents() {
  return std::make_shared<MemoryEventSource<IVBProjectsEventsSink>>(shared_from_this(), nullptr,
                                                                    nullptr);
}

std::shared_ptr<IVBComponentsEvents> MemoryEvents::VBComponentsEvents(
    std::shared_ptr<IProject> project) {
  return std::make_shared<MemoryEventSource<IVBComponentsEventsSink>>(shared_from_this(),
                                                                      project.get(), nullptr);
}

std::shared_ptr<IVBControlsEvents> MemoryEvents::VBControlsEvents(
    std::shared_ptr<IProject> project, std::shared_ptr<IDesigner> designer) {
  // Controls are told apart by their designer only: a designer belongs to
  // one project.
  return std::make_shared<MemoryEventSource<IVBControlsEventsSink>>(shared_from_this(), nullptr,
                                                                    designer.get());
}

std::shared_ptr<IReferencesEvents> MemoryEvents::ReferencesEvents(
    std::shared_ptr<IProject> project) {
  return std::make_shared<MemoryEventSource<IReferencesEventsSink>>(shared_from_this(),
                                                                    project.get(), nullptr);
}

void MemoryEvents::RaiseClick(const std::shared_ptr<ICommandBarControl>& control) {
  bool handled = false;
  bool cancel_default = false;
  RaiseTo(clicks_, control.get(), nullptr,
          [&](ICommandBarEventsSink& sink) { sink.Click(control, handled, cancel_default); });
}

void MemoryEvents::RaiseProjectAdded(const std::shared_ptr<IProject>& project) {
  RaiseTo(projects_, nullptr, nullptr, [&](auto& sink) { sink.ItemAdded(project); });
}
void MemoryEvents::RaiseProjectRemoved(const std::shared_ptr<IProject>& project) {
  RaiseTo(projects_, nullptr, nullptr, [&](auto& sink) { sink.ItemRemoved(project); });
}
void MemoryEvents::RaiseProjectRenamed(const std::shared_ptr<IProject>& project,
                                       std::string_view old_name) {
  RaiseTo(projects_, nullptr, nullptr, [&](auto& sink) { sink.ItemRenamed(project, old_name); });
}
void MemoryEvents::RaiseProjectActivated(const std::shared_ptr<IProject>& project) {
  RaiseTo(projects_, nullptr, nullptr, [&](auto& sink) { sink.ItemActivated(project); });
}

void MemoryEvents::RaiseComponentAdded(const std::shared_ptr<IComponent>& component) {
  RaiseTo(components_, ProjectOf(component), nullptr,
          [&](auto& sink) { sink.ItemAdded(component); });
}
void MemoryEvents::RaiseComponentRemoved(const std::shared_ptr<IComponent>& component) {
  RaiseTo(components_, ProjectOf(component), nullptr,
          [&](auto& sink) { sink.ItemRemoved(component); });
}
void MemoryEvents::RaiseComponentRenamed(const std::shared_ptr<IComponent>& component,
                                         std::string_view old_name) {
  RaiseTo(components_, ProjectOf(component), nullptr,
          [&](auto& sink) { sink.ItemRenamed(component, old_name); });
}
void MemoryEvents::RaiseComponentSelected(const std::shared_ptr<IComponent>& component) {
  RaiseTo(components_, ProjectOf(component), nullptr,
          [&](auto& sink) { sink.ItemSelected(component); });
}
void MemoryEvents::RaiseComponentActivated(const std::shared_ptr<IComponent>& component) {
  RaiseTo(components_, ProjectOf(component), nullptr,
          [&](auto& sink) { sink.ItemActivated(component); });
}

void MemoryEvents::RaiseControlAdded(const std::shared_ptr<IDesigner>& designer,
                                     const std::shared_ptr<IControl>& control) {
  RaiseTo(controls_, nullptr, designer.get(), [&](auto& sink) { sink.ItemAdded(control); });
}
void MemoryEvents::RaiseControlRemoved(const std::shared_ptr<IDesigner>& designer,
                                       const std::shared_ptr<IControl>& control) {
  RaiseTo(controls_, nullptr, designer.get(), [&](auto& sink) { sink.ItemRemoved(control); });
}
void MemoryEvents::RaiseControlRenamed(const std::shared_ptr<IDesigner>& designer,
                                       const std::shared_ptr<IControl>& control,
                                       std::string_view old_name, int old_index) {
  RaiseTo(controls_, nullptr, designer.get(),
          [&](auto& sink) { sink.ItemRenamed(control, old_name, old_index); });
}

void MemoryEvents::RaiseReferenceAdded(const std::shared_ptr<IProject>& project,
                                       const std::shared_ptr<IReference>& reference) {
  RaiseTo(references_, project.get(), nullptr, [&](auto& sink) { sink.ItemAdded(reference); });
}
void MemoryEvents::RaiseReferenceRemoved(const std::shared_ptr<IProject>& project,
                                         const std::shared_ptr<IReference>& reference) {
  RaiseTo(references_, project.get(), nullptr, [&](auto& sink) { sink.ItemRemoved(reference); });
}

int MemoryEvents::ConnectionCount() const {
  return static_cast<int>(clicks_.size() + projects_.size() + components_.size() +
                          controls_.size() + references_.size());
}

}  // namespace tavrin::ide::memory
