#include "addin/ide_events.h"

#include "addin/error_report.h"
#include "ide/ignore_errors.h"

namespace tavrin::addin {
namespace {

std::string ProjectNameOf(ide::IComponent& component) {
  const auto project = component.Project();
  return project ? project->Name() : std::string();
}

class PrjHandler : public ide::IVBProjectsEventsSink {
 public:
  PrjHandler(const EventTargets& targets, platform::Ui& ui) : targets_(targets), ui_(ui) {}
  void ItemAdded(std::shared_ptr<ide::IProject> project) override {
    Guarded(ui_, "PrjHandler_ItemAdded", [&] { PrjHandler_ItemAdded(targets_, project); });
  }
  void ItemRenamed(std::shared_ptr<ide::IProject> project, std::string_view old_name) override {
    Guarded(ui_, "PrjHandler_ItemRenamed",
            [&] { PrjHandler_ItemRenamed(targets_, project, old_name); });
  }
  void ItemRemoved(std::shared_ptr<ide::IProject> project) override {
    Guarded(ui_, "PrjHandler_ItemRemoved", [&] { PrjHandler_ItemRemoved(targets_, project); });
  }

 private:
  EventTargets targets_;
  platform::Ui& ui_;
};

class CmpHandler : public ide::IVBComponentsEventsSink {
 public:
  CmpHandler(const EventTargets& targets, platform::Ui& ui) : targets_(targets), ui_(ui) {}
  void ItemAdded(std::shared_ptr<ide::IComponent> component) override {
    Guarded(ui_, "CmpHandler_ItemAdded", [&] { CmpHandler_ItemAdded(targets_, component); });
  }
  void ItemRemoved(std::shared_ptr<ide::IComponent> component) override {
    Guarded(ui_, "CmpHandler_ItemRemoved", [&] { CmpHandler_ItemRemoved(targets_, component); });
  }
  void ItemRenamed(std::shared_ptr<ide::IComponent> component,
                   std::string_view old_name) override {
    Guarded(ui_, "CmpHandler_ItemRenamed",
            [&] { CmpHandler_ItemRenamed(targets_, component, old_name); });
  }
  void ItemActivated(std::shared_ptr<ide::IComponent> component) override {
    Guarded(ui_, "CmpHandler_ItemActivated",
            [&] { CmpHandler_ItemActivated(targets_, component); });
  }
  void ItemSelected(std::shared_ptr<ide::IComponent> component) override {
    Guarded(ui_, "CmpHandler_ItemSelected", [&] { CmpHandler_ItemSelected(targets_, component); });
  }

 private:
  EventTargets targets_;
  platform::Ui& ui_;
};

class CtlHandler : public ide::IVBControlsEventsSink {
 public:
  CtlHandler(const EventTargets& targets, platform::Ui& ui) : targets_(targets), ui_(ui) {}
  void ItemAdded(std::shared_ptr<ide::IControl> control) override {
    Guarded(ui_, "CtlHandler_ItemAdded", [&] { CtlHandler_ItemAdded(targets_, control); });
  }
  void ItemRenamed(std::shared_ptr<ide::IControl> control, std::string_view old_name,
                   int old_index) override {
    Guarded(ui_, "CtlHandler_ItemRenamed",
            [&] { CtlHandler_ItemRenamed(targets_, control, old_name, old_index); });
  }
  void ItemRemoved(std::shared_ptr<ide::IControl> control) override {
    Guarded(ui_, "CtlHandler_ItemRemoved", [&] { CtlHandler_ItemRemoved(targets_, control); });
  }

 private:
  EventTargets targets_;
  platform::Ui& ui_;
};

class RefHandler : public ide::IReferencesEventsSink {
 public:
  RefHandler(const EventTargets& targets, platform::Ui& ui) : targets_(targets), ui_(ui) {}
  void ItemAdded(std::shared_ptr<ide::IReference> reference) override {
    Guarded(ui_, "RefHandler_ItemAdded", [&] { RefHandler_ItemAdded(targets_, reference); });
  }
  void ItemRemoved(std::shared_ptr<ide::IReference> reference) override {
    Guarded(ui_, "RefHandler_ItemRemoved", [&] { RefHandler_ItemRemoved(targets_, reference); });
  }

 private:
  EventTargets targets_;
  platform::Ui& ui_;
};

}  // namespace

void RefHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IReference> reference) {
  if (targets.type_libraries && reference) targets.type_libraries->Forget(*reference);
}

void RefHandler_ItemRemoved(const EventTargets& targets,
                            std::shared_ptr<ide::IReference> reference) {
  if (targets.type_libraries && reference) targets.type_libraries->Forget(*reference);
}

ICodeExplorerDocument* EventTargets::ReadyExplorer() const {
  if (!code_explorer) return nullptr;
  auto* document = dynamic_cast<ICodeExplorerDocument*>(code_explorer->document.get());
  return document && document->Initialized() ? document : nullptr;
}

ITabOrderDocument* EventTargets::VisibleTabOrder() const {
  if (!tab_order || !tab_order->window || !tab_order->window->Visible()) return nullptr;
  return dynamic_cast<ITabOrderDocument*>(tab_order->document.get());
}

void PrjHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IProject> project) {
  if (auto* explorer = targets.ReadyExplorer()) explorer->VBProjectAdd(project);
}

void PrjHandler_ItemRenamed(const EventTargets& targets, std::shared_ptr<ide::IProject> project,
                            std::string_view old_name) {
  if (auto* explorer = targets.ReadyExplorer()) {
    explorer->VBProjectRemove(old_name);
    explorer->VBProjectAdd(project);
  }
}

void PrjHandler_ItemRemoved(const EventTargets& targets, std::shared_ptr<ide::IProject> project) {
  if (auto* tab_order = targets.VisibleTabOrder()) tab_order->RefreshList(0);
  if (auto* explorer = targets.ReadyExplorer()) explorer->VBProjectRemove(project->Name());
}

void CmpHandler_ItemAdded(const EventTargets& targets,
                          std::shared_ptr<ide::IComponent> component) {
  if (auto* explorer = targets.ReadyExplorer()) explorer->VBComponentAdd(component);
}

void CmpHandler_ItemRemoved(const EventTargets& targets,
                            std::shared_ptr<ide::IComponent> component) {
  if (auto* explorer = targets.ReadyExplorer())
    explorer->VBComponentRemove(ProjectNameOf(*component), component->Name());
}

void CmpHandler_ItemRenamed(const EventTargets& targets,
                            std::shared_ptr<ide::IComponent> component,
                            std::string_view old_name) {
  if (auto* explorer = targets.ReadyExplorer()) {
    explorer->VBComponentRemove(ProjectNameOf(*component), old_name);
    explorer->VBComponentAdd(component);
  }
}

void CmpHandler_ItemActivated(const EventTargets& targets, std::shared_ptr<ide::IComponent>) {
  if (auto* tab_order = targets.VisibleTabOrder()) tab_order->RefreshList(0);
}

void CmpHandler_ItemSelected(const EventTargets&, std::shared_ptr<ide::IComponent>) {}

void CtlHandler_ItemAdded(const EventTargets& targets, std::shared_ptr<ide::IControl> control) {
  if (auto* tab_order = targets.VisibleTabOrder()) tab_order->ControlAdded(control);
}

void CtlHandler_ItemRenamed(const EventTargets& targets, std::shared_ptr<ide::IControl> control,
                            std::string_view old_name, int old_index) {
  if (auto* tab_order = targets.VisibleTabOrder())
    tab_order->ControlRenamed(control, old_name, old_index);
}

void CtlHandler_ItemRemoved(const EventTargets& targets, std::shared_ptr<ide::IControl> control) {
  if (auto* tab_order = targets.VisibleTabOrder()) tab_order->ControlRemoved(control);
}

std::vector<ide::EventConnection> ConnectIdeEvents(ide::IVbe& vbe, const EventTargets& targets,
                                                   platform::Ui& ui) {
  const auto events = vbe.Events();
  std::vector<ide::EventConnection> connections;
  connections.push_back(
      events->VBProjectsEvents()->Advise(std::make_shared<PrjHandler>(targets, ui)));
  connections.push_back(
      events->VBComponentsEvents(nullptr)->Advise(std::make_shared<CmpHandler>(targets, ui)));
  connections.push_back(events->VBControlsEvents(nullptr, nullptr)
                            ->Advise(std::make_shared<CtlHandler>(targets, ui)));
  if (targets.type_libraries) {
    ide::IgnoreErrors([&] {
      connections.push_back(
          events->ReferencesEvents(nullptr)->Advise(std::make_shared<RefHandler>(targets, ui)));
    });
  }
  return connections;
}

}  // namespace tavrin::addin
