// The add-in class Connect: what the IDE creates from "Tavrin.Connect" and
// tells when it connects and disconnects the add-in. It turns the IDE's COM
// objects into the object model and hands the events to the portable
// add-in (addin::Connect), with the Windows services: real dialogs owned by
// the IDE's main window, the registry, the shell, and the project watcher's
// timer on the IDE's thread.
#pragma once

#include <memory>
#include <optional>

#include "addin/connect.h"
#include "platform/std_file_system.h"
#include "win/ado_column_source.h"
#include "win/calling_convention.h"
#include "win/com_object.h"
#include "win/com_ptr.h"
#include "win/extensibility.h"
#include "win/message_timer.h"
#include "win/private_profile_file.h"
#include "win/registry_ide_options.h"
#include "win/registry_settings_store.h"
#include "win/type_library_reader.h"
#include "win/windows_dialog_host.h"
#include "win/windows_settings_dialog.h"
#include "win/windows_shell.h"
#include "win/windows_ui.h"

namespace tavrin::win {

// How often the project watcher looks at the IDE's projects.
inline constexpr UINT kProjectWatcherMilliseconds = 1000;

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
  ~Connect() override { Disconnect(); }
  // Gives back every reference to the IDE's objects.
  void Disconnect() noexcept;

  // Lives for one connection: the dialogs need the IDE's main window.
  struct Connection {
    Connection(HWND main_window, const std::string& addin_folder);
    WindowsUi ui;
    RegistryIdeOptions ide_options;
    RegistrySettingsStore settings_store;
    platform::StdFileSystem files;
    WindowsShell shell;
    PrivateProfileFile profiles;
    WindowsSettingsDialog settings_dialog;
    WindowsDialogHost dialogs;
    WindowsTypeLibraryReader type_libraries;
    AdoColumnSource columns;
    addin::Connect addin;
    std::optional<MessageTimer> watcher;
  };

static_assert(kImplements<kQueryInterface, &Connect::QueryInterface>);
static_assert(kImplements<&IUnknown::AddRef, &Connect::AddRef>);
static_assert(kImplements<&IUnknown::Release, &Connect::Release>);
static_assert(kImplements<&IDispatch::GetTypeInfoCount, &Connect::GetTypeInfoCount>);
static_assert(kImplements<&IDispatch::GetTypeInfo, &Connect::GetTypeInfo>);
static_assert(kImplements<&IDispatch::GetIDsOfNames, &Connect::GetIDsOfNames>);
static_assert(kImplements<&IDispatch::Invoke, &Connect::Invoke>);
static_assert(kImplements<&IDTExtensibility2::OnConnection, &Connect::OnConnection>);
static_assert(kImplements<&IDTExtensibility2::OnDisconnection, &Connect::OnDisconnection>);
static_assert(kImplements<&IDTExtensibility2::OnAddInsUpdate, &Connect::OnAddInsUpdate>);
static_assert(kImplements<&IDTExtensibility2::OnStartupComplete, &Connect::OnStartupComplete>);
static_assert(kImplements<&IDTExtensibility2::OnBeginShutdown, &Connect::OnBeginShutdown>);
  std::unique_ptr<Connection> connection_;
};

}  // namespace tavrin::win
