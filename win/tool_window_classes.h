// The three tool-window controls as COM knows them: class ids, ProgIDs
// ("Tavrin.docCodeExplorer"...), the content each one shows, and their class
// object for DllGetClassObject.
#pragma once

#include <memory>
#include <span>

#include "win/tool_window_control.h"

namespace tavrin::win {

struct ToolWindowControlClass {
  CLSID clsid;
  const wchar_t* clsid_text;
  const wchar_t* prog_id;
  const wchar_t* name;
  std::unique_ptr<ToolPane> (*make_pane)();
};

// Never change a class id: the IDEs keep the windows' places under them.
std::span<const ToolWindowControlClass> ToolWindowControlClasses();

// CLASS_E_CLASSNOTAVAILABLE for a class that is not a tool window's.
HRESULT GetToolWindowClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

// OLEMISC flags of the controls: set the client site first, activate when
// visible, inside-out, not linkable, recompose on resize.
inline constexpr DWORD kToolWindowMiscStatus = 131473;

}  // namespace tavrin::win
