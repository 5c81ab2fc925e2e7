#include "win/class_factory.h"

#include "win/addin_identity.h"
#include "win/calling_convention.h"
#include "win/com_object.h"
#include "win/connect.h"
#include "win/tool_window_classes.h"

namespace tavrin::win {
namespace {

class ConnectFactory final : public IClassFactory, public RefCounted {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AddReference(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return ReleaseReference(); }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid,
                                           void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    const auto connect = MakeComObject<Connect, IDTExtensibility2>();
    if (!connect) return E_OUTOFMEMORY;
    return connect->QueryInterface(iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
    if (lock) {
      LockModule();
    } else {
      UnlockModule();
    }
    return S_OK;
  }

 private:
  ~ConnectFactory() override = default;
};

static_assert(kImplements<kQueryInterface, &ConnectFactory::QueryInterface>);
static_assert(kImplements<&IUnknown::AddRef, &ConnectFactory::AddRef>);
static_assert(kImplements<&IUnknown::Release, &ConnectFactory::Release>);
static_assert(kImplements<&IClassFactory::CreateInstance, &ConnectFactory::CreateInstance>);
static_assert(kImplements<&IClassFactory::LockServer, &ConnectFactory::LockServer>);

}  // namespace

HRESULT GetConnectClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (clsid != kConnectClsid) return GetToolWindowClassObject(clsid, iid, object);
  const auto factory = MakeComObject<ConnectFactory, IClassFactory>();
  if (!factory) return E_OUTOFMEMORY;
  return factory->QueryInterface(iid, object);
}

}  // namespace tavrin::win
