#include "win/tool_window_classes.h"

#include "win/tool_panes.h"

namespace tavrin::win {
namespace {

constexpr ToolWindowControlClass kClasses[] = {
    {{0x10832b44, 0xc193, 0x40a5, {0xab, 0x02, 0x99, 0x44, 0xe6, 0x06, 0xfb, 0xe6}},
     L"{10832B44-C193-40A5-AB02-9944E606FBE6}", L"Tavrin.docTabOrder", L"Tavrin TabOrder",
     &MakeTabOrderPane},
    {{0x4b0ca3d7, 0x6242, 0x48e6, {0xa6, 0x85, 0x3d, 0xdb, 0x53, 0xad, 0x96, 0x3b}},
     L"{4B0CA3D7-6242-48E6-A685-3DDB53AD963B}", L"Tavrin.docDirectAccess",
     L"Tavrin Shortcuts and Search", &MakeSearchPane},
    {{0x5de5c313, 0xa6a6, 0x411f, {0x95, 0x59, 0x38, 0xfd, 0x51, 0x4f, 0xae, 0x0e}},
     L"{5DE5C313-A6A6-411F-9559-38FD514FAE0E}", L"Tavrin.docCodeExplorer",
     L"Tavrin Code Explorer", &MakeCodeExplorerPane},
};

class ToolWindowFactory final : public IClassFactory, public RefCounted {
 public:
  explicit ToolWindowFactory(const ToolWindowControlClass& control_class)
      : class_(control_class) {}

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
    std::unique_ptr<ToolPane> pane;
    try {
      pane = class_.make_pane();
    } catch (...) {
      return E_OUTOFMEMORY;
    }
    const auto control = MakeComObject<ToolWindowControl, IOleObject>(class_.clsid, std::move(pane));
    if (!control) return E_OUTOFMEMORY;
    return control->QueryInterface(iid, object);
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
  ~ToolWindowFactory() override = default;
  const ToolWindowControlClass& class_;
};

static_assert(kImplements<kQueryInterface, &ToolWindowFactory::QueryInterface>);
static_assert(kImplements<&IUnknown::AddRef, &ToolWindowFactory::AddRef>);
static_assert(kImplements<&IUnknown::Release, &ToolWindowFactory::Release>);
static_assert(kImplements<&IClassFactory::CreateInstance, &ToolWindowFactory::CreateInstance>);
static_assert(kImplements<&IClassFactory::LockServer, &ToolWindowFactory::LockServer>);

}  // namespace

std::span<const ToolWindowControlClass> ToolWindowControlClasses() { return kClasses; }

HRESULT GetToolWindowClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  for (const ToolWindowControlClass& control_class : kClasses) {
    if (clsid != control_class.clsid) continue;
    const auto factory = MakeComObject<ToolWindowFactory, IClassFactory>(control_class);
    if (!factory) return E_OUTOFMEMORY;
    return factory->QueryInterface(iid, object);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace tavrin::win
