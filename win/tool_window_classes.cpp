#include "win/tool_window_classes.h"

#include "win/class_factory.h"
#include "win/com_object.h"
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

HRESULT CreateControl(const ToolWindowControlClass& control_class, REFIID iid, void** object) {
  const auto control =
      MakeComObject<ToolWindowControl, IOleObject>(control_class.clsid, control_class.make_pane());
  if (!control) return E_OUTOFMEMORY;
  return control->QueryInterface(iid, object);
}

}  // namespace

std::span<const ToolWindowControlClass> ToolWindowControlClasses() { return kClasses; }

HRESULT GetToolWindowClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  for (const ToolWindowControlClass& control_class : kClasses) {
    if (clsid != control_class.clsid) continue;
    return MakeClassFactory(
        [&control_class](REFIID wanted, void** made) {
          return CreateControl(control_class, wanted, made);
        },
        iid, object);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace tavrin::win
