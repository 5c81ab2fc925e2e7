// The class object of Connect, what DllGetClassObject hands to COM.
#pragma once

#include "win/win_support.h"

#include <unknwn.h>

namespace tavrin::win {

// CLASS_E_CLASSNOTAVAILABLE for any class but Connect's.
HRESULT GetConnectClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

}  // namespace tavrin::win
