// The entry points of Tavrin.dll: COM's class object and unload query, and
// self-registration (regsvr32 Tavrin.dll registers for the current user;
// regsvr32 /n /i:machine Tavrin.dll, elevated, for every user).
#include <cwchar>
#include <string>
#include <type_traits>

#include "win/class_factory.h"
#include "win/com_guard.h"
#include "win/module_lifetime.h"
#include "win/registration.h"
#include "win/win_support.h"

namespace {

using tavrin::win::RegistrationScope;

HRESULT Register(RegistrationScope scope) noexcept {
  return tavrin::win::GuardCom([&] {
    const std::wstring path = tavrin::win::ThisModulePath();
    if (path.empty()) return E_FAIL;
    return tavrin::win::RegisterAddin(scope, path);
  });
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(instance);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  return tavrin::win::GetConnectClassObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() { return tavrin::win::IsModuleInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return Register(RegistrationScope::kUser); }

STDAPI DllUnregisterServer() { return tavrin::win::UnregisterAddin(RegistrationScope::kUser); }

// "machine" registers for every user (run elevated); "user" or nothing for
// the current user.
STDAPI DllInstall(BOOL install, LPCWSTR command_line) {
  RegistrationScope scope = RegistrationScope::kUser;
  if (command_line && *command_line) {
    if (::_wcsicmp(command_line, L"machine") == 0) {
      scope = RegistrationScope::kMachine;
    } else if (::_wcsicmp(command_line, L"user") != 0) {
      return E_INVALIDARG;
    }
  }
  return install ? Register(scope) : tavrin::win::UnregisterAddin(scope);
}

}  // extern "C"

// The loader, COM and regsvr32 find these by name and call them as below;
// nothing else compares the types, so a wrong convention would only show on
// 32-bit Windows.
static_assert(std::is_convertible_v<decltype(&DllMain), BOOL(WINAPI*)(HINSTANCE, DWORD, LPVOID)>);
static_assert(std::is_convertible_v<decltype(&DllGetClassObject), LPFNGETCLASSOBJECT>);
static_assert(std::is_convertible_v<decltype(&DllCanUnloadNow), LPFNCANUNLOADNOW>);
static_assert(std::is_convertible_v<decltype(&DllRegisterServer), HRESULT(STDAPICALLTYPE*)()>);
static_assert(std::is_convertible_v<decltype(&DllUnregisterServer), HRESULT(STDAPICALLTYPE*)()>);
static_assert(std::is_convertible_v<decltype(&DllInstall), HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>);
