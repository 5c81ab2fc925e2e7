#include "tests/win/host/host_command_bars.h"

#include <string>
#include <utility>

#include "ide/command_bars.h"
#include "ide/events.h"
#include "tests/win/host/host_events.h"
#include "tests/win/host/host_ide.h"
#include "tests/win/host/host_popup_menu.h"
#include "win/bitmap_picture.h"

namespace tavrin::test_host {
namespace {

using namespace ide;
using memory::MemoryVbe;

ComPtr<IDispatch> MakeBar(std::shared_ptr<ICommandBar> bar, std::shared_ptr<MemoryVbe> vbe);
ComPtr<IDispatch> MakeControl(std::shared_ptr<ICommandBarControl> control,
                              std::shared_ptr<MemoryVbe> vbe);

Variant Nothing() { return Variant::Object(nullptr); }

Variant Done() { return Variant(); }

template <class T, class Make>
Variant ObjectOr(std::shared_ptr<T> object, Make make) {
  if (!object) return Nothing();
  return Variant::Object(make(std::move(object)).get());
}

std::optional<ControlType> OptionalType(HostCall& call, std::size_t index) {
  if (call.Missing(index)) return std::nullopt;
  return static_cast<ControlType>(call.Long(index));
}
std::optional<int> OptionalInt(HostCall& call, std::size_t index) {
  if (call.Missing(index)) return std::nullopt;
  return static_cast<int>(call.Long(index));
}
std::string OptionalString(HostCall& call, std::size_t index) {
  return call.Missing(index) ? std::string() : call.String(index);
}

// Picture and Mask: OLE pictures over the model's bitmap files.
HostMember PictureProperty(std::wstring name, std::shared_ptr<ICommandBarControl> control,
                           bool mask) {
  return Property(
      std::move(name),
      [control, mask] {
        const Picture picture = mask ? control->GetMask() : control->GetPicture();
        return Variant::Object(win::PictureFromBmp(picture.bmp).get());
      },
      [control, mask](const VARIANT& value) {
        const auto object = win::VariantToObject(value);
        ComPtr<IPictureDisp> picture;
        if (object) object->QueryInterface(IID_IPictureDisp, picture.put_void());
        const Picture face{"", win::BmpFromPicture(picture.get())};
        if (face.bmp.empty()) throw HostFailure{DISP_E_TYPEMISMATCH};
        mask ? control->SetMask(face) : control->SetPicture(face);
      });
}

HostMember TextProperty(std::wstring name, std::function<std::string()> get,
                        std::function<void(std::string_view)> set) {
  return Property(
      std::move(name), [get = std::move(get)] { return Variant::String(get()); },
      [set = std::move(set)](const VARIANT& value) { set(win::VariantToString(value)); });
}
HostMember BoolProperty(std::wstring name, std::function<bool()> get,
                        std::function<void(bool)> set) {
  return Property(
      std::move(name), [get = std::move(get)] { return Variant::Bool(get()); },
      [set = std::move(set)](const VARIANT& value) { set(win::VariantToBool(value)); });
}
HostMember LongProperty(std::wstring name, std::function<long()> get,
                        std::function<void(long)> set) {
  return Property(
      std::move(name), [get = std::move(get)] { return Variant::Long(get()); },
      [set = std::move(set)](const VARIANT& value) { set(win::VariantToLong(value)); });
}

ComPtr<IDispatch> MakeControls(std::shared_ptr<ICommandBarControls> controls,
                               std::shared_ptr<MemoryVbe> vbe) {
  auto wrap = [vbe](std::shared_ptr<ICommandBarControl> control) {
    return MakeControl(std::move(control), vbe);
  };
  return MakeHostObject({
      Property(L"Count", [controls] { return Variant::Long(controls->Count()); }),
      Method(L"Item", 1, 1,
             [controls, wrap](HostCall& call) {
               if (call.IsString(0)) return ObjectOr(controls->Item(call.String(0)), wrap);
               return ObjectOr(controls->Item(static_cast<int>(call.Long(0))), wrap);
             }),
      // Add([Type], [Id], [Parameter], [Before], [Temporary])
      Method(L"Add", 0, 5,
             [controls, wrap](HostCall& call) {
               const auto type = OptionalType(call, 0).value_or(ControlType::kButton);
               const int id = OptionalInt(call, 1).value_or(1);
               return ObjectOr(controls->Add(type, id, OptionalString(call, 2),
                                             OptionalInt(call, 3), call.Bool(4, false)),
                               wrap);
             }),
  });
}

ComPtr<IDispatch> MakeControl(std::shared_ptr<ICommandBarControl> control,
                              std::shared_ptr<MemoryVbe> vbe) {
  auto c = control;
  auto bar = [vbe](std::shared_ptr<ICommandBar> b) { return MakeBar(std::move(b), vbe); };
  return MakeHostObject(
      {
          Property(L"Type", [c] { return Variant::Long(static_cast<long>(c->Type())); }),
          Property(L"Id", [c] { return Variant::Long(c->Id()); }),
          Property(L"Index", [c] { return Variant::Long(c->Index()); }),
          TextProperty(L"Caption", [c] { return c->Caption(); },
                       [c](std::string_view v) { c->SetCaption(v); }),
          BoolProperty(L"BeginGroup", [c] { return c->BeginGroup(); },
                       [c](bool v) { c->SetBeginGroup(v); }),
          BoolProperty(L"Enabled", [c] { return c->Enabled(); }, [c](bool v) { c->SetEnabled(v); }),
          BoolProperty(L"Visible", [c] { return c->Visible(); }, [c](bool v) { c->SetVisible(v); }),
          TextProperty(L"TooltipText", [c] { return c->TooltipText(); },
                       [c](std::string_view v) { c->SetTooltipText(v); }),
          TextProperty(L"Tag", [c] { return c->Tag(); }, [c](std::string_view v) { c->SetTag(v); }),
          TextProperty(L"Parameter", [c] { return c->Parameter(); },
                       [c](std::string_view v) { c->SetParameter(v); }),
          Property(L"Parent", [c, bar] { return ObjectOr(c->Parent(), bar); }),
          Method(L"Delete", 0, 1, [c](HostCall&) { c->Delete(); return Done(); }),
          Method(L"Execute", 0, 0, [c](HostCall&) { c->Execute(); return Done(); }),
          LongProperty(L"Style", [c] { return static_cast<long>(c->Style()); },
                       [c](long v) { c->SetStyle(static_cast<ButtonStyle>(v)); }),
          LongProperty(L"FaceId", [c] { return c->FaceId(); },
                       [c](long v) { c->SetFaceId(static_cast<int>(v)); }),
          // Faces go through the system clipboard, as in the IDE.
          Method(L"CopyFace", 0, 0,
                 [c](HostCall&) {
                   c->CopyFace();
                   win::SetClipboardBitmap(c->GetPicture().bmp);
                   return Done();
                 }),
          Method(L"PasteFace", 0, 0,
                 [c, vbe](HostCall&) {
                   const std::string bmp = win::ClipboardBitmap();
                   if (bmp.empty()) throw ide::Error(5, "The clipboard holds no picture");
                   vbe->ClipboardSetData(Picture{"", bmp});
                   c->PasteFace();
                   return Done();
                 }),
          PictureProperty(L"Picture", c, false),
          PictureProperty(L"Mask", c, true),
          Property(L"Controls", [c, vbe] { return Variant::Object(MakeControls(c->Controls(), vbe).get()); }),
          Property(L"CommandBar", [c, bar] { return ObjectOr(c->CommandBar(), bar); }),
      },
      control);
}

ComPtr<IDispatch> MakeBar(std::shared_ptr<ICommandBar> bar, std::shared_ptr<MemoryVbe> vbe) {
  auto b = bar;
  auto wrap = [vbe](std::shared_ptr<ICommandBarControl> control) {
    return MakeControl(std::move(control), vbe);
  };
  return MakeHostObject(
      {
          Property(L"Name", [b] { return Variant::String(b->Name()); }),
          LongProperty(L"Position", [b] { return static_cast<long>(b->Position()); },
                       [b](long v) { b->SetPosition(static_cast<BarPosition>(v)); }),
          LongProperty(L"RowIndex", [b] { return b->RowIndex(); },
                       [b](long v) { b->SetRowIndex(static_cast<int>(v)); }),
          LongProperty(L"Left", [b] { return b->Left(); }, [b](long v) { b->SetLeft(static_cast<int>(v)); }),
          LongProperty(L"Top", [b] { return b->Top(); }, [b](long v) { b->SetTop(static_cast<int>(v)); }),
          BoolProperty(L"Visible", [b] { return b->Visible(); }, [b](bool v) { b->SetVisible(v); }),
          BoolProperty(L"Enabled", [b] { return b->Enabled(); }, [b](bool v) { b->SetEnabled(v); }),
          Property(L"Controls", [b, vbe] { return Variant::Object(MakeControls(b->Controls(), vbe).get()); }),
          // FindControl([Type], [Id], [Tag], [Visible], [Recursive])
          Method(L"FindControl", 0, 5,
                 [b, wrap](HostCall& call) {
                   return ObjectOr(b->FindControl(OptionalType(call, 0), OptionalInt(call, 1),
                                                  OptionalString(call, 2), call.Bool(4, false)),
                                   wrap);
                 }),
          Method(L"Delete", 0, 0, [b](HostCall&) { b->Delete(); return Done(); }),
          Method(L"ShowPopup", 0, 2,
                 [b](HostCall& call) {
                   b->ShowPopup(OptionalInt(call, 0), OptionalInt(call, 1));
                   if (ShowingPopupMenus()) ShowPopupMenu(*b, OptionalInt(call, 0), OptionalInt(call, 1));
                   return Done();
                 }),
      },
      bar);
}

// Hands the model's events to a COM sink.
class ClickForwarder : public ICommandBarEventsSink {
 public:
  ClickForwarder(ComPtr<IDispatch> sink, std::shared_ptr<MemoryVbe> vbe)
      : sink_(std::move(sink)), vbe_(std::move(vbe)) {}
  void Click(std::shared_ptr<ICommandBarControl> control, bool& handled,
             bool& cancel_default) override {
    VARIANT_BOOL handled_value = handled ? VARIANT_TRUE : VARIANT_FALSE;
    VARIANT_BOOL cancel_value = cancel_default ? VARIANT_TRUE : VARIANT_FALSE;
    std::vector<Variant> args;
    args.push_back(Variant::Object(MakeControl(std::move(control), vbe_).get()));
    args.push_back(Variant::BoolRef(&handled_value));
    args.push_back(Variant::BoolRef(&cancel_value));
    RaiseEvent(*sink_.get(), 1, std::move(args));
    handled = handled_value != VARIANT_FALSE;
    cancel_default = cancel_value != VARIANT_FALSE;
  }

 private:
  ComPtr<IDispatch> sink_;
  std::shared_ptr<MemoryVbe> vbe_;
};

class ProjectsForwarder : public IVBProjectsEventsSink {
 public:
  explicit ProjectsForwarder(ComPtr<IDispatch> sink) : sink_(std::move(sink)) {}
  void ItemAdded(std::shared_ptr<IProject> project) override { Raise(1, project); }
  void ItemRemoved(std::shared_ptr<IProject> project) override { Raise(2, project); }
  void ItemRenamed(std::shared_ptr<IProject> project, std::string_view old_name) override {
    Raise(3, project, old_name);
  }
  void ItemActivated(std::shared_ptr<IProject> project) override { Raise(4, project); }

 private:
  void Raise(DISPID id, std::shared_ptr<IProject> project,
             std::optional<std::string_view> old_name = std::nullopt) {
    std::vector<Variant> args;
    args.push_back(Variant::Object(MakeHostProject(std::move(project)).get()));
    if (old_name) args.push_back(Variant::String(*old_name));
    RaiseEvent(*sink_.get(), id, std::move(args));
  }
  ComPtr<IDispatch> sink_;
};

class ComponentsForwarder : public IVBComponentsEventsSink {
 public:
  explicit ComponentsForwarder(ComPtr<IDispatch> sink) : sink_(std::move(sink)) {}
  void ItemAdded(std::shared_ptr<IComponent> c) override { Raise(1, c); }
  void ItemRemoved(std::shared_ptr<IComponent> c) override { Raise(2, c); }
  void ItemRenamed(std::shared_ptr<IComponent> c, std::string_view old_name) override {
    Raise(3, c, old_name);
  }
  void ItemSelected(std::shared_ptr<IComponent> c) override { Raise(4, c); }
  void ItemActivated(std::shared_ptr<IComponent> c) override { Raise(5, c); }
  void ItemReloaded(std::shared_ptr<IComponent> c) override { Raise(6, c); }

 private:
  void Raise(DISPID id, std::shared_ptr<IComponent> component,
             std::optional<std::string_view> old_name = std::nullopt) {
    std::vector<Variant> args;
    args.push_back(Variant::Object(MakeHostComponent(std::move(component)).get()));
    if (old_name) args.push_back(Variant::String(*old_name));
    RaiseEvent(*sink_.get(), id, std::move(args));
  }
  ComPtr<IDispatch> sink_;
};

class ControlsForwarder : public IVBControlsEventsSink {
 public:
  explicit ControlsForwarder(ComPtr<IDispatch> sink) : sink_(std::move(sink)) {}
  void ItemAdded(std::shared_ptr<IControl> c) override { Raise(1, c); }
  void ItemRemoved(std::shared_ptr<IControl> c) override { Raise(2, c); }
  void ItemRenamed(std::shared_ptr<IControl> c, std::string_view old_name, int old_index) override {
    std::vector<Variant> args;
    args.push_back(Variant::Object(MakeHostControl(std::move(c)).get()));
    args.push_back(Variant::String(old_name));
    args.push_back(Variant::Long(old_index));
    RaiseEvent(*sink_.get(), 3, std::move(args));
  }

 private:
  void Raise(DISPID id, std::shared_ptr<IControl> control) {
    std::vector<Variant> args;
    args.push_back(Variant::Object(MakeHostControl(std::move(control)).get()));
    RaiseEvent(*sink_.get(), id, std::move(args));
  }
  ComPtr<IDispatch> sink_;
};

// An event source of the model as a host object with a connection point.
template <class Sink, class Forwarder, class... Extra>
ComPtr<IDispatch> SourceOf(std::shared_ptr<IEventSource<Sink>> source, const IID& iid,
                           Extra... extra) {
  return MakeHostEventSource(iid, [source, extra...](ComPtr<IDispatch> sink) {
    auto connection = std::make_shared<EventConnection>(
        source->Advise(std::make_shared<Forwarder>(std::move(sink), extra...)));
    return std::function<void()>([connection] { connection->Disconnect(); });
  });
}

template <class T>
std::shared_ptr<T> ModelObject(HostCall& call, std::size_t index) {
  const auto object = call.Object(index);
  if (!object) return nullptr;
  auto identity = std::static_pointer_cast<T>(HostIdentity(object.get()));
  if (!identity) throw HostFailure{DISP_E_TYPEMISMATCH};
  return identity;
}

}  // namespace

ComPtr<IDispatch> MakeHostCommandBars(std::shared_ptr<MemoryVbe> vbe) {
  const auto bars = vbe->CommandBars();
  auto bar = [vbe](std::shared_ptr<ICommandBar> b) { return MakeBar(std::move(b), vbe); };
  auto control = [vbe](std::shared_ptr<ICommandBarControl> c) {
    return MakeControl(std::move(c), vbe);
  };
  return MakeHostObject({
      Property(L"Count", [bars] { return Variant::Long(bars->Count()); }),
      Method(L"Item", 1, 1,
             [bars, bar](HostCall& call) {
               if (call.IsString(0)) return ObjectOr(bars->Item(call.String(0)), bar);
               return ObjectOr(bars->Item(static_cast<int>(call.Long(0))), bar);
             }),
      // Add([Name], [Position], [MenuBar], [Temporary])
      Method(L"Add", 0, 4,
             [bars, bar](HostCall& call) {
               const auto position = call.Missing(1) ? BarPosition::kTop
                                                     : static_cast<BarPosition>(call.Long(1));
               return ObjectOr(bars->Add(OptionalString(call, 0), position, call.Bool(2, false),
                                         call.Bool(3, false)),
                               bar);
             }),
      // FindControl([Type], [Id], [Tag], [Visible])
      Method(L"FindControl", 0, 4,
             [bars, control](HostCall& call) {
               return ObjectOr(bars->FindControl(OptionalType(call, 0), OptionalInt(call, 1),
                                                 OptionalString(call, 2)),
                               control);
             }),
  });
}

ComPtr<IDispatch> MakeHostEvents(std::shared_ptr<MemoryVbe> vbe) {
  const auto events = vbe->Events();
  return MakeHostObject({
      PropertyWithArgs(L"CommandBarEvents", 1, 1,
                       [events, vbe](HostCall& call) {
                         const auto control = ModelObject<ICommandBarControl>(call, 0);
                         if (!control) throw ide::Error(5, "Invalid procedure call or argument");
                         return Variant::Object(SourceOf<ICommandBarEventsSink, ClickForwarder>(
                                                    events->CommandBarEvents(control),
                                                    kCommandBarEventsIid, vbe)
                                                    .get());
                       }),
      Property(L"VBProjectsEvents",
               [events] {
                 return Variant::Object(SourceOf<IVBProjectsEventsSink, ProjectsForwarder>(
                                            events->VBProjectsEvents(), kVBProjectsEventsIid)
                                            .get());
               }),
      PropertyWithArgs(L"VBComponentsEvents", 1, 1,
                       [events](HostCall& call) {
                         return Variant::Object(
                             SourceOf<IVBComponentsEventsSink, ComponentsForwarder>(
                                 events->VBComponentsEvents(ModelObject<IProject>(call, 0)),
                                 kVBComponentsEventsIid)
                                 .get());
                       }),
      PropertyWithArgs(L"VBControlsEvents", 2, 2,
                       [events](HostCall& call) {
                         return Variant::Object(
                             SourceOf<IVBControlsEventsSink, ControlsForwarder>(
                                 events->VBControlsEvents(ModelObject<IProject>(call, 0),
                                                          ModelObject<IDesigner>(call, 1)),
                                 kVBControlsEventsIid)
                                 .get());
                       }),
  });
}

ComPtr<IDispatch> MakeHostAddIn(std::shared_ptr<IAddIn> add_in) {
  return MakeHostObject(
      {
          Property(L"ProgId", [add_in] { return Variant::String(add_in->ProgId()); }),
          Property(L"Description", [add_in] { return Variant::String(add_in->Description()); }),
          Property(L"Guid", [add_in] { return Variant::String(add_in->Guid()); }),
          BoolProperty(L"Connect", [add_in] { return add_in->Connect(); },
                       [add_in](bool v) { add_in->SetConnect(v); }),
      },
      add_in);
}

ComPtr<IDispatch> MakeHostAddins(std::shared_ptr<MemoryVbe> vbe) {
  const auto add_ins = vbe->Addins();
  auto wrap = [](std::shared_ptr<IAddIn> a) { return MakeHostAddIn(std::move(a)); };
  return MakeHostObject({
      Property(L"Count", [add_ins] { return Variant::Long(add_ins->Count()); }),
      Method(L"Item", 1, 1,
             [add_ins, wrap](HostCall& call) {
               if (call.IsString(0)) return ObjectOr(add_ins->Item(call.String(0)), wrap);
               return ObjectOr(add_ins->Item(static_cast<int>(call.Long(0))), wrap);
             }),
      Method(L"Update", 0, 0, [add_ins](HostCall&) { add_ins->Update(); return Done(); }),
  });
}

}  // namespace tavrin::test_host
