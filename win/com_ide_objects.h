// Inside the object model over COM: the wrappers' common base and the
// factories that wrap an IDE object of each kind, shared by the files that
// implement the model (com_ide, com_command_bars, com_events).
#pragma once

#include <memory>

#include "ide/command_bars.h"
#include "ide/object_model.h"
#include "win/dispatch.h"

namespace tavrin::win {

// Every wrapper holds the IDispatch of its IDE object, which is what must
// be passed when the object is an argument of another call.
class ComWrapper {
 public:
  explicit ComWrapper(Dispatch object) : object_(std::move(object)) {}
  virtual ~ComWrapper() = default;
  const Dispatch& Object() const { return object_; }

 protected:
  Dispatch object_;
};

// The IDispatch behind a wrapper of this model; raises ide::Error (13) for
// an object of another model and gives an empty pointer for nullptr.
template <class T>
ComPtr<IDispatch> DispatchOf(const std::shared_ptr<T>& object) {
  if (!object) return {};
  const auto* wrapper = dynamic_cast<const ComWrapper*>(object.get());
  if (!wrapper) throw ide::Error(13, "Type mismatch");
  return ComPtr<IDispatch>(wrapper->Object().get());
}

std::shared_ptr<ide::IWindow> MakeWindow(Dispatch window);
std::shared_ptr<ide::ICodePane> MakeCodePane(Dispatch pane);
std::shared_ptr<ide::ICodeModule> MakeCodeModule(Dispatch module);
std::shared_ptr<ide::IComponent> MakeComponent(Dispatch component);
std::shared_ptr<ide::IProject> MakeProject(Dispatch project);
std::shared_ptr<ide::IReference> MakeReference(Dispatch reference);
std::shared_ptr<ide::IReferences> MakeReferences(Dispatch references);
std::shared_ptr<ide::IControl> MakeControl(Dispatch control);
std::shared_ptr<ide::ICommandBars> MakeCommandBars(Dispatch bars);
std::shared_ptr<ide::ICommandBarControl> MakeCommandBarControl(Dispatch control);
std::shared_ptr<ide::IEvents> MakeEvents(Dispatch events);
std::shared_ptr<ide::IAddins> MakeAddins(Dispatch add_ins);
std::shared_ptr<ide::IAddIn> MakeAddIn(Dispatch add_in);

}  // namespace tavrin::win
