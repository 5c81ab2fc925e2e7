// VBE.Events over COM: each event source is an object with one connection
// point. The point's interface is asked for at run time (the VB6 IDE and the
// VBA editor give the same events different interface ids), and the sink
// answers to whatever id that is. The events' DISPIDs (1 Click; 1 ItemAdded,
// 2 ItemRemoved, 3 ItemRenamed, then ItemActivated or ItemSelected...; the
// references' 1 ItemAdded, 2 ItemRemoved) are the same in both IDEs.
#include <ocidl.h>

#include "ide/events.h"
#include "win/calling_convention.h"
#include "win/com_guard.h"
#include "win/com_ide_objects.h"
#include "win/com_object.h"

namespace tavrin::win {
namespace {

// The arguments of one event, first parameter first.
class EventArguments {
 public:
  EventArguments(const DISPPARAMS& params, const Dispatch& context)
      : params_(params), context_(context) {}

  std::size_t Count() const { return params_.cArgs; }
  const VARIANT& At(std::size_t index) const {
    if (index >= params_.cArgs) throw ide::Error(450, "Wrong number of arguments");
    return params_.rgvarg[params_.cArgs - 1 - index];
  }
  Dispatch Object(std::size_t index, std::string kind) const {
    return context_.Wrap(VariantToObject(At(index)), std::move(kind));
  }
  std::string String(std::size_t index) const { return VariantToString(Plain(index)); }
  long Long(std::size_t index) const { return VariantToLong(Plain(index)); }
  VARIANT_BOOL* BoolRef(std::size_t index) const {
    const VARIANT& value = At(index);
    return value.vt == (VT_BOOL | VT_BYREF) ? value.pboolVal : nullptr;
  }

 private:
  const VARIANT& Plain(std::size_t index) const {
    const VARIANT& value = At(index);
    return value.vt == (VT_VARIANT | VT_BYREF) ? *value.pvarVal : value;
  }

  const DISPPARAMS& params_;
  const Dispatch& context_;
};

// Calls the sink's method for one event.
template <class Sink>
void Deliver(Sink& sink, DISPID id, const EventArguments& args);

template <>
void Deliver(ide::ICommandBarEventsSink& sink, DISPID id, const EventArguments& args) {
  if (id != 1) return;
  bool handled = false;
  bool cancel = false;
  VARIANT_BOOL* handled_ref = args.Count() > 1 ? args.BoolRef(1) : nullptr;
  VARIANT_BOOL* cancel_ref = args.Count() > 2 ? args.BoolRef(2) : nullptr;
  if (handled_ref) handled = *handled_ref != VARIANT_FALSE;
  if (cancel_ref) cancel = *cancel_ref != VARIANT_FALSE;
  sink.Click(MakeCommandBarControl(args.Object(0, "CommandBarControl")), handled, cancel);
  if (handled_ref) *handled_ref = handled ? VARIANT_TRUE : VARIANT_FALSE;
  if (cancel_ref) *cancel_ref = cancel ? VARIANT_TRUE : VARIANT_FALSE;
}

template <>
void Deliver(ide::IVBProjectsEventsSink& sink, DISPID id, const EventArguments& args) {
  const auto project = MakeProject(args.Object(0, "VBProject"));
  switch (id) {
    case 1: sink.ItemAdded(project); break;
    case 2: sink.ItemRemoved(project); break;
    case 3: sink.ItemRenamed(project, args.String(1)); break;
    case 4: sink.ItemActivated(project); break;
    default: break;
  }
}

template <>
void Deliver(ide::IVBComponentsEventsSink& sink, DISPID id, const EventArguments& args) {
  const auto component = MakeComponent(args.Object(0, "VBComponent"));
  switch (id) {
    case 1: sink.ItemAdded(component); break;
    case 2: sink.ItemRemoved(component); break;
    case 3: sink.ItemRenamed(component, args.String(1)); break;
    case 4: sink.ItemSelected(component); break;
    case 5: sink.ItemActivated(component); break;
    case 6: sink.ItemReloaded(component); break;
    default: break;
  }
}

template <>
void Deliver(ide::IVBControlsEventsSink& sink, DISPID id, const EventArguments& args) {
  const auto control = MakeControl(args.Object(0, "VBControl"));
  switch (id) {
    case 1: sink.ItemAdded(control); break;
    case 2: sink.ItemRemoved(control); break;
    case 3: sink.ItemRenamed(control, args.String(1), static_cast<int>(args.Long(2))); break;
    default: break;
  }
}

template <>
void Deliver(ide::IReferencesEventsSink& sink, DISPID id, const EventArguments& args) {
  const auto reference = MakeReference(args.Object(0, "Reference"));
  switch (id) {
    case 1: sink.ItemAdded(reference); break;
    case 2: sink.ItemRemoved(reference); break;
    default: break;
  }
}

// The COM object the IDE calls; it hands each event to the add-in's sink.
template <class Sink>
class EventSink final : public IDispatch, public RefCounted {
 public:
  EventSink(IID events_iid, std::shared_ptr<Sink> sink, Dispatch context)
      : events_iid_(events_iid), sink_(std::move(sink)), context_(std::move(context)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == events_iid_) {
      *object = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AddReference(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return ReleaseReference(); }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                          DISPID*) noexcept override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO*, UINT*) noexcept override {
    if (result) ::VariantInit(result);
    if (!params) return E_INVALIDARG;
    // The add-in's handlers report their own errors; whatever still comes
    // out of one must not reach the IDE, which would stop raising events.
    GuardCom([&] {
      Deliver<Sink>(*sink_, id, EventArguments(*params, context_));
      return S_OK;
    });
    return S_OK;
  }

 private:
  ~EventSink() override = default;

  IID events_iid_;
  std::shared_ptr<Sink> sink_;
  Dispatch context_;
};

// The convention does not depend on the sink; one instance stands for all.
using AnyEventSink = EventSink<ide::ICommandBarEventsSink>;
static_assert(kImplements<kQueryInterface, &AnyEventSink::QueryInterface>);
static_assert(kImplements<&IUnknown::AddRef, &AnyEventSink::AddRef>);
static_assert(kImplements<&IUnknown::Release, &AnyEventSink::Release>);
static_assert(kImplements<&IDispatch::GetTypeInfoCount, &AnyEventSink::GetTypeInfoCount>);
static_assert(kImplements<&IDispatch::GetTypeInfo, &AnyEventSink::GetTypeInfo>);
static_assert(kImplements<&IDispatch::GetIDsOfNames, &AnyEventSink::GetIDsOfNames>);
static_assert(kImplements<&IDispatch::Invoke, &AnyEventSink::Invoke>);

// The single connection point of an event source.
ComPtr<IConnectionPoint> ConnectionPointOf(IDispatch* source) {
  ComPtr<IConnectionPointContainer> container;
  if (!source ||
      FAILED(source->QueryInterface(IID_IConnectionPointContainer, container.put_void()))) {
    throw ide::Error(438, "The object raises no events");
  }
  ComPtr<IEnumConnectionPoints> points;
  if (FAILED(container->EnumConnectionPoints(points.put()))) {
    throw ide::Error(438, "The object raises no events");
  }
  ComPtr<IConnectionPoint> point;
  ULONG fetched = 0;
  if (points->Next(1, point.put(), &fetched) != S_OK || fetched != 1) {
    throw ide::Error(438, "The object raises no events");
  }
  return point;
}

template <class Sink>
class ComEventSource : public ide::IEventSource<Sink>, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  ide::EventConnection Advise(std::shared_ptr<Sink> sink) override {
    ComPtr<IConnectionPoint> point = ConnectionPointOf(object_.get());
    IID events_iid{};
    if (FAILED(point->GetConnectionInterface(&events_iid))) {
      throw ide::Error(438, "The object raises no events");
    }
    const auto sink_object = MakeComObject<EventSink<Sink>, IDispatch>(
        events_iid, std::move(sink), object_.Wrap(nullptr, "EventSource"));
    if (!sink_object) throw std::bad_alloc();
    DWORD cookie = 0;
    if (HRESULT hr = point->Advise(sink_object.get(), &cookie); FAILED(hr)) {
      throw ErrorFromInvoke(hr, nullptr, "Advise");
    }
    // The source holds the sink until Unadvise; the connection holds the
    // point, which holds the source.
    return ide::EventConnection([point, cookie] { point->Unadvise(cookie); });
  }
};

template <class Sink>
std::shared_ptr<ide::IEventSource<Sink>> SourceOf(const Dispatch& events, std::string_view member,
                                                  std::vector<Variant> args) {
  auto source = events.GetObject(member, std::move(args));
  if (!source) throw ide::Error(91, "Object variable or With block variable not set");
  return std::make_shared<ComEventSource<Sink>>(events.Wrap(std::move(source), std::string(member)));
}

Variant ObjectArgument(const ComPtr<IDispatch>& object) { return Variant::Object(object.get()); }

class ComEvents : public ide::IEvents, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::shared_ptr<ide::ICommandBarEvents> CommandBarEvents(
      std::shared_ptr<ide::ICommandBarControl> control) override {
    std::vector<Variant> args;
    args.push_back(ObjectArgument(DispatchOf(control)));
    return SourceOf<ide::ICommandBarEventsSink>(object_, "CommandBarEvents", std::move(args));
  }
  std::shared_ptr<ide::IVBProjectsEvents> VBProjectsEvents() override {
    return SourceOf<ide::IVBProjectsEventsSink>(object_, "VBProjectsEvents", {});
  }
  std::shared_ptr<ide::IVBComponentsEvents> VBComponentsEvents(
      std::shared_ptr<ide::IProject> project) override {
    std::vector<Variant> args;
    args.push_back(ObjectArgument(DispatchOf(project)));
    return SourceOf<ide::IVBComponentsEventsSink>(object_, "VBComponentsEvents", std::move(args));
  }
  std::shared_ptr<ide::IVBControlsEvents> VBControlsEvents(
      std::shared_ptr<ide::IProject> project, std::shared_ptr<ide::IDesigner> designer) override {
    std::vector<Variant> args;
    args.push_back(ObjectArgument(DispatchOf(project)));
    args.push_back(ObjectArgument(DispatchOf(designer)));
    return SourceOf<ide::IVBControlsEventsSink>(object_, "VBControlsEvents", std::move(args));
  }
  std::shared_ptr<ide::IReferencesEvents> ReferencesEvents(
      std::shared_ptr<ide::IProject> project) override {
    std::vector<Variant> args;
    args.push_back(ObjectArgument(DispatchOf(project)));
    return SourceOf<ide::IReferencesEventsSink>(object_, "ReferencesEvents", std::move(args));
  }
};

}  // namespace

std::shared_ptr<ide::IEvents> MakeEvents(Dispatch events) {
  return std::make_shared<ComEvents>(std::move(events));
}

}  // namespace tavrin::win
