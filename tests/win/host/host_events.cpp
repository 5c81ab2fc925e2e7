#include "tests/win/host/host_events.h"

#include <atomic>
#include <map>
#include <memory>

#include <ocidl.h>
#include <olectl.h>

namespace tavrin::test_host {
namespace {

std::atomic<long> g_connected{0};

// Reference counting of the host's COM objects that are not dispatch
// objects; they count as host objects too.
template <class Derived>
class HostCounted {
 public:
  HostCounted() { CountHostObject(+1); }
  HostCounted(const HostCounted&) = delete;
  HostCounted& operator=(const HostCounted&) = delete;
  ~HostCounted() { CountHostObject(-1); }

  ULONG AddReferenceCount() { return ++references_; }
  ULONG ReleaseReferenceCount() {
    const ULONG left = --references_;
    if (left == 0) delete static_cast<Derived*>(this);
    return left;
  }

 private:
  std::atomic<ULONG> references_{1};
};

class HostConnectionPoint;

class HostEventSource final : public IDispatch,
                              public IConnectionPointContainer,
                              public HostCounted<HostEventSource> {
 public:
  HostEventSource(const IID& events_iid, AdviseSink advise);
  ~HostEventSource();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IDispatch) {
      *object = static_cast<IDispatch*>(this);
    } else if (iid == IID_IConnectionPointContainer) {
      *object = static_cast<IConnectionPointContainer*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AddReferenceCount(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return ReleaseReferenceCount(); }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (count) *count = 0;
    return count ? S_OK : E_POINTER;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                          DISPID*) noexcept override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                   EXCEPINFO*, UINT*) noexcept override {
    return DISP_E_MEMBERNOTFOUND;
  }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid,
                                                IConnectionPoint** point) noexcept override;

 private:
  ComPtr<IConnectionPoint> point_;
};

class HostConnectionPoint final : public IConnectionPoint,
                                  public HostCounted<HostConnectionPoint> {
 public:
  HostConnectionPoint(HostEventSource& source, const IID& events_iid, AdviseSink advise)
      : source_(source), events_iid_(events_iid), advise_(std::move(advise)) {}
  ~HostConnectionPoint() {
    for (auto& [cookie, disconnect] : connections_) {
      disconnect();
      --g_connected;
    }
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IConnectionPoint) {
      *object = static_cast<IConnectionPoint*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  // The point lives as long as its source; both are one object to COM.
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return source_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return source_.Release(); }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) noexcept override {
    if (!iid) return E_POINTER;
    *iid = events_iid_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(
      IConnectionPointContainer** container) noexcept override {
    if (!container) return E_POINTER;
    return source_.QueryInterface(IID_IConnectionPointContainer,
                                  reinterpret_cast<void**>(container));
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override {
    if (!sink || !cookie) return E_POINTER;
    // A real connection point asks the sink for its events interface.
    ComPtr<IDispatch> events;
    if (FAILED(sink->QueryInterface(events_iid_, events.put_void()))) {
      return CONNECT_E_CANNOTCONNECT;
    }
    try {
      *cookie = next_cookie_++;
      connections_.emplace(*cookie, advise_(events));
      ++g_connected;
      return S_OK;
    } catch (...) {
      return E_FAIL;
    }
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override {
    const auto found = connections_.find(cookie);
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    const auto disconnect = std::move(found->second);
    connections_.erase(found);
    --g_connected;
    disconnect();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) noexcept override {
    return E_NOTIMPL;
  }

 private:
  HostEventSource& source_;
  IID events_iid_;
  AdviseSink advise_;
  std::map<DWORD, std::function<void()>> connections_;
  DWORD next_cookie_ = 1;
};

// Enumerates the one connection point.
class HostPointEnumerator final : public IEnumConnectionPoints,
                                  public HostCounted<HostPointEnumerator> {
 public:
  explicit HostPointEnumerator(ComPtr<IConnectionPoint> point) : point_(std::move(point)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IEnumConnectionPoints) {
      *object = static_cast<IEnumConnectionPoints*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AddReferenceCount(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return ReleaseReferenceCount(); }

  HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points,
                                 ULONG* fetched) noexcept override {
    if (!points) return E_POINTER;
    ULONG given = 0;
    if (count > 0 && !done_) {
      point_.CopyTo(points);
      done_ = true;
      given = 1;
    }
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
    if (count > 0) done_ = true;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Reset() noexcept override {
    done_ = false;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** copy) noexcept override {
    if (!copy) return E_POINTER;
    *copy = new HostPointEnumerator(point_);
    return S_OK;
  }

 private:
  ComPtr<IConnectionPoint> point_;
  bool done_ = false;
};

HostEventSource::HostEventSource(const IID& events_iid, AdviseSink advise)
    : point_(ComPtr<IConnectionPoint>::Attach(
          new HostConnectionPoint(*this, events_iid, std::move(advise)))) {}

HostEventSource::~HostEventSource() {
  // The point's references are the source's own; it goes with the source.
  delete static_cast<HostConnectionPoint*>(point_.Detach());
}

HRESULT HostEventSource::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (!points) return E_POINTER;
  *points = new (std::nothrow) HostPointEnumerator(point_);
  return *points ? S_OK : E_OUTOFMEMORY;
}

HRESULT HostEventSource::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
  if (!point) return E_POINTER;
  IID events_iid{};
  point_->GetConnectionInterface(&events_iid);
  if (iid != events_iid) {
    *point = nullptr;
    return CONNECT_E_NOCONNECTION;
  }
  return point_.CopyTo(point);
}

}  // namespace

ComPtr<IDispatch> MakeHostEventSource(const IID& events_iid, AdviseSink advise) {
  return ComPtr<IDispatch>::Attach(new HostEventSource(events_iid, std::move(advise)));
}

long ConnectedHostSinks() { return g_connected.load(); }

void RaiseEvent(IDispatch& sink, DISPID id, std::vector<Variant> args) {
  std::vector<VARIANTARG> reversed;
  for (auto it = args.rbegin(); it != args.rend(); ++it) reversed.push_back(*it->get());
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  sink.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, nullptr,
              nullptr);
}

}  // namespace tavrin::test_host
