// The IDE's events (VBE.Events): clicks on command-bar controls and the
// project, component, control and reference events. A caller connects a sink to an
// event source and stays connected while it holds the EventConnection.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "ide/object_model.h"

namespace tavrin::ide {

class ICommandBarControl;

// Keeps one sink connected to its source; destroying it (or Disconnect)
// disconnects, as Unadvise does. Move-only.
class EventConnection {
 public:
  EventConnection() = default;
  explicit EventConnection(std::function<void()> disconnect)
      : disconnect_(std::move(disconnect)) {}
  EventConnection(EventConnection&& other) noexcept : disconnect_(std::move(other.disconnect_)) {
    other.disconnect_ = nullptr;
  }
  EventConnection& operator=(EventConnection&& other) noexcept {
    if (this != &other) {
      Disconnect();
      disconnect_ = std::move(other.disconnect_);
      other.disconnect_ = nullptr;
    }
    return *this;
  }
  EventConnection(const EventConnection&) = delete;
  EventConnection& operator=(const EventConnection&) = delete;
  ~EventConnection() { Disconnect(); }

  bool Connected() const { return static_cast<bool>(disconnect_); }

  // A source that is already gone cannot refuse: failures are dropped.
  void Disconnect() noexcept {
    auto disconnect = std::move(disconnect_);
    disconnect_ = nullptr;
    if (!disconnect) return;
    try {
      disconnect();
    } catch (...) {
    }
  }

 private:
  std::function<void()> disconnect_;
};

// An event source: the object behind Events.CommandBarEvents(control),
// Events.VBProjectsEvents and the like. The source keeps the sink until it
// is disconnected.
template <class Sink>
class IEventSource {
 public:
  virtual ~IEventSource() = default;
  virtual EventConnection Advise(std::shared_ptr<Sink> sink) = 0;
};

// The sinks. Every event has an empty default, as an event nobody handles.
class ICommandBarEventsSink {
 public:
  virtual ~ICommandBarEventsSink() = default;
  // `handled` tells later sinks the click was handled; `cancel_default`
  // suppresses a built-in control's own action.
  virtual void Click(std::shared_ptr<ICommandBarControl> control, bool& handled,
                     bool& cancel_default) {}
};

class IVBProjectsEventsSink {
 public:
  virtual ~IVBProjectsEventsSink() = default;
  virtual void ItemAdded(std::shared_ptr<IProject> project) {}
  virtual void ItemRemoved(std::shared_ptr<IProject> project) {}
  virtual void ItemRenamed(std::shared_ptr<IProject> project, std::string_view old_name) {}
  virtual void ItemActivated(std::shared_ptr<IProject> project) {}
};

class IVBComponentsEventsSink {
 public:
  virtual ~IVBComponentsEventsSink() = default;
  virtual void ItemAdded(std::shared_ptr<IComponent> component) {}
  virtual void ItemRemoved(std::shared_ptr<IComponent> component) {}
  virtual void ItemRenamed(std::shared_ptr<IComponent> component, std::string_view old_name) {}
  virtual void ItemSelected(std::shared_ptr<IComponent> component) {}
  virtual void ItemActivated(std::shared_ptr<IComponent> component) {}
  virtual void ItemReloaded(std::shared_ptr<IComponent> component) {}
};

class IVBControlsEventsSink {
 public:
  virtual ~IVBControlsEventsSink() = default;
  virtual void ItemAdded(std::shared_ptr<IControl> control) {}
  virtual void ItemRemoved(std::shared_ptr<IControl> control) {}
  virtual void ItemRenamed(std::shared_ptr<IControl> control, std::string_view old_name,
                           int old_index) {}
};

// The references of a project as the References dialog (or the object
// model) adds and removes them.
class IReferencesEventsSink {
 public:
  virtual ~IReferencesEventsSink() = default;
  virtual void ItemAdded(std::shared_ptr<IReference> reference) {}
  virtual void ItemRemoved(std::shared_ptr<IReference> reference) {}
};

using ICommandBarEvents = IEventSource<ICommandBarEventsSink>;
using IVBProjectsEvents = IEventSource<IVBProjectsEventsSink>;
using IVBComponentsEvents = IEventSource<IVBComponentsEventsSink>;
using IVBControlsEvents = IEventSource<IVBControlsEventsSink>;
using IReferencesEvents = IEventSource<IReferencesEventsSink>;

// VBE.Events.
class IEvents {
 public:
  virtual ~IEvents() = default;
  // The clicks of one control.
  virtual std::shared_ptr<ICommandBarEvents> CommandBarEvents(
      std::shared_ptr<ICommandBarControl> control) = 0;
  virtual std::shared_ptr<IVBProjectsEvents> VBProjectsEvents() = 0;
  // project nullptr: the components of every project.
  virtual std::shared_ptr<IVBComponentsEvents> VBComponentsEvents(
      std::shared_ptr<IProject> project) = 0;
  // project and designer nullptr: the controls of every designer.
  virtual std::shared_ptr<IVBControlsEvents> VBControlsEvents(
      std::shared_ptr<IProject> project, std::shared_ptr<IDesigner> designer) = 0;
  // project nullptr: the references of every project.
  virtual std::shared_ptr<IReferencesEvents> ReferencesEvents(
      std::shared_ptr<IProject> project) = 0;
};

}  // namespace tavrin::ide
