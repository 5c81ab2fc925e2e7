#include "win/class_factory.h"

#include "win/addin_identity.h"
#include "win/calling_convention.h"
#include "win/com_object.h"
#include "win/connect.h"
#include "win/tool_window_classes.h"

namespace tavrin::win {
namespace {

class ClassFactory final : public IClassFactory, public RefCounted {
 public:
  explicit ClassFactory(InstanceCreator create) : create_(std::move(create)) {}

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
    try {
      return create_(iid, object);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
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
  ~ClassFactory() override = default;
  InstanceCreator create_;
};

static_assert(kImplements<kQueryInterface, &ClassFactory::QueryInterface>);
static_assert(kImplements<&IUnknown::AddRef, &ClassFactory::AddRef>);
static_assert(kImplements<&IUnknown::Release, &ClassFactory::Release>);
static_assert(kImplements<&IClassFactory::CreateInstance, &ClassFactory::CreateInstance>);
static_assert(kImplements<&IClassFactory::LockServer, &ClassFactory::LockServer>);

HRESULT CreateConnect(REFIID iid, void** object) {
  const auto connect = MakeComObject<Connect, IDTExtensibility2>();
  if (!connect) return E_OUTOFMEMORY;
  return connect->QueryInterface(iid, object);
}

}  // namespace

HRESULT MakeClassFactory(InstanceCreator create, REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  const auto factory = MakeComObject<ClassFactory, IClassFactory>(std::move(create));
  if (!factory) return E_OUTOFMEMORY;
  return factory->QueryInterface(iid, object);
}

HRESULT GetConnectClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  if (clsid == kConnectClsid) return MakeClassFactory(&CreateConnect, iid, object);
  return GetToolWindowClassObject(clsid, iid, object);
}

}  // namespace tavrin::win
