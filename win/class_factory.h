// The class objects DllGetClassObject hands to COM: Connect's, and the
// tool-window controls'.
#pragma once

#include "win/win_support.h"

#include <unknwn.h>

namespace tavrin::win {

// CLASS_E_CLASSNOTAVAILABLE for a class of another server.
HRESULT GetConnectClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

}  // namespace tavrin::win
