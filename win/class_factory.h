// The class objects DllGetClassObject hands to COM: Connect's, and the
// tool-window controls'.
#pragma once

#include "win/win_support.h"

#include <unknwn.h>

#include <functional>

namespace tavrin::win {

// Makes one instance for IClassFactory::CreateInstance, aggregation already
// refused.
using InstanceCreator = std::function<HRESULT(REFIID iid, void** object)>;

// A class object whose CreateInstance calls create.
HRESULT MakeClassFactory(InstanceCreator create, REFIID iid, void** object) noexcept;

// CLASS_E_CLASSNOTAVAILABLE for a class of another server.
HRESULT GetConnectClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;

}  // namespace tavrin::win
