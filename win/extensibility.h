// The IDE's add-in interface, _IDTExtensibility2 of the Add-In Designer
// library (no header of the toolchain declares it). Dual: the IDE may call
// the vtable or IDispatch::Invoke with DISPIDs 1 to 5.
#pragma once

#include "win/win_support.h"

#include <oaidl.h>

namespace tavrin::win {

enum ConnectMode : int {
  kAfterStartup = 0,
  kStartup = 1,
  kExternal = 2,
  kCommandLine = 3,
};
enum DisconnectMode : int { kHostShutdown = 0, kUserClosed = 1 };

enum ExtensibilityDispId : DISPID {
  kOnConnectionId = 1,
  kOnDisconnectionId = 2,
  kOnAddInsUpdateId = 3,
  kOnStartupCompleteId = 4,
  kOnBeginShutdownId = 5,
};

}  // namespace tavrin::win

struct IDTExtensibility2 : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connect_mode,
                                                 IDispatch* addin_instance,
                                                 SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(int remove_mode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};
__CRT_UUID_DECL(IDTExtensibility2, 0xB65AD801, 0xABAF, 0x11D0, 0xBB, 0x8B, 0x00, 0xA0, 0xC9,
                0x0F, 0x27, 0x44)
