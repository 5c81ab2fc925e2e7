// The add-in class Connect: what the IDE creates from "Tavrin.Connect" and
// tells when it connects and disconnects the add-in.
#pragma once

#include <memory>

#include "ide/object_model.h"
#include "win/com_object.h"
#include "win/com_ptr.h"
#include "win/extensibility.h"

namespace tavrin::win {

class Connect final : public IDTExtensibility2, public RefCounted {
 public:
  Connect() = default;

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AddReference(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return ReleaseReference(); }

  // IDispatch: the five events by name and DISPID, without a type library.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* bad_argument) noexcept override;

  // IDTExtensibility2
  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connect_mode,
                                         IDispatch* addin_instance,
                                         SAFEARRAY** custom) noexcept override;
  HRESULT STDMETHODCALLTYPE OnDisconnection(int remove_mode,
                                            SAFEARRAY** custom) noexcept override;
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) noexcept override;
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) noexcept override;
  HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) noexcept override;

 private:
  ~Connect() override = default;
  // Gives back every reference to the IDE's objects.
  void Disconnect() noexcept;

  ComPtr<IDispatch> vbe_;             // VBInst
  ComPtr<IDispatch> addin_instance_;  // passed on to CreateToolWindow
  std::shared_ptr<ide::IVbe> ide_;    // the object model over VBInst
};

}  // namespace tavrin::win
