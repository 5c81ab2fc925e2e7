// Self-registration of the add-in: the COM class and its ProgID, and the
// entries through which the IDEs list and load it (the VB6 IDE and 32-bit
// Office for the 32-bit DLL, 64-bit Office for the 64-bit DLL).
//
// Per user (HKEY_CURRENT_USER, no administrator rights) is the normal way;
// per machine (HKEY_LOCAL_MACHINE) needs an elevated regsvr32.
#pragma once

#include <string>
#include <vector>

#include "win/win_support.h"

namespace tavrin::win {

enum class RegistrationScope { kUser, kMachine };

HKEY RootKeyOf(RegistrationScope scope);

// The keys registration creates, below the scope's root: unregistration
// deletes exactly these trees.
std::vector<std::wstring> RegisteredKeyPaths();
// The add-in entries alone (the IDEs' lists), for this DLL's bitness.
std::vector<std::wstring> AddinKeyPaths();

// S_OK, or SELFREG_E_CLASS when a key could not be written (nothing is left
// behind then).
HRESULT RegisterAddin(RegistrationScope scope, const std::wstring& module_path) noexcept;
// S_OK also when nothing was registered.
HRESULT UnregisterAddin(RegistrationScope scope) noexcept;

}  // namespace tavrin::win
