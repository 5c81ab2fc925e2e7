#include "win/connect.h"

#include <cwchar>


#include "win/com_guard.h"
#include "win/com_ide.h"
#include "win/com_values.h"
#include "win/send_input_keys.h"

namespace tavrin::win {
namespace {

struct EventName {
  const wchar_t* name;
  DISPID id;
};
constexpr EventName kEventNames[] = {
    {L"OnConnection", kOnConnectionId},
    {L"OnDisconnection", kOnDisconnectionId},
    {L"OnAddInsUpdate", kOnAddInsUpdateId},
    {L"OnStartupComplete", kOnStartupCompleteId},
    {L"OnBeginShutdown", kOnBeginShutdownId},
};

// The argument at `position` (0 = first) of an Invoke, converted to `type`.
HRESULT Argument(DISPPARAMS& params, UINT position, VARTYPE type, Variant& value,
                 UINT* bad_argument) {
  return ::DispGetParam(&params, position, type, value.put(), bad_argument);
}

// The `custom` array: by reference as the type library declares it, by value
// from lenient callers, or left out.
SAFEARRAY** CustomArgument(DISPPARAMS& params, UINT position, SAFEARRAY*& by_value) {
  by_value = nullptr;
  if (position >= params.cArgs) return &by_value;
  VARIANTARG& argument = params.rgvarg[params.cArgs - 1 - position];
  if (argument.vt == (VT_ARRAY | VT_VARIANT | VT_BYREF)) return argument.pparray;
  if (argument.vt == (VT_ARRAY | VT_VARIANT)) by_value = argument.parray;
  return &by_value;
}

}  // namespace

HRESULT Connect::QueryInterface(REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(IDTExtensibility2)) {
    *object = static_cast<IDTExtensibility2*>(this);
    AddRef();
    return S_OK;
  }
  *object = nullptr;
  return E_NOINTERFACE;
}

HRESULT Connect::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT Connect::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  if (info) *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT Connect::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                               DISPID* ids) noexcept {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  ids[0] = DISPID_UNKNOWN;
  for (const auto& event : kEventNames) {
    if (names[0] && ::_wcsicmp(names[0], event.name) == 0) ids[0] = event.id;
  }
  // The events take no named arguments.
  for (UINT i = 1; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT Connect::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                        VARIANT* result, EXCEPINFO*, UINT* bad_argument) noexcept {
  if (!(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
  if (!params) return E_INVALIDARG;
  if (params->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
  if (result) ::VariantInit(result);
  return GuardCom([&]() -> HRESULT {
    const UINT count = params->cArgs;
    SAFEARRAY* custom_value = nullptr;
    switch (id) {
      case kOnConnectionId: {
        if (count < 3 || count > 4) return DISP_E_BADPARAMCOUNT;
        Variant application, mode, instance;
        HRESULT hr = Argument(*params, 0, VT_DISPATCH, application, bad_argument);
        if (SUCCEEDED(hr)) hr = Argument(*params, 1, VT_I4, mode, bad_argument);
        if (SUCCEEDED(hr)) hr = Argument(*params, 2, VT_DISPATCH, instance, bad_argument);
        if (FAILED(hr)) return hr;
        return OnConnection(application.get()->pdispVal, mode.get()->lVal,
                            instance.get()->pdispVal,
                            CustomArgument(*params, 3, custom_value));
      }
      case kOnDisconnectionId: {
        if (count < 1 || count > 2) return DISP_E_BADPARAMCOUNT;
        Variant mode;
        if (HRESULT hr = Argument(*params, 0, VT_I4, mode, bad_argument); FAILED(hr)) return hr;
        return OnDisconnection(mode.get()->lVal, CustomArgument(*params, 1, custom_value));
      }
      case kOnAddInsUpdateId:
      case kOnStartupCompleteId:
      case kOnBeginShutdownId: {
        if (count > 1) return DISP_E_BADPARAMCOUNT;
        SAFEARRAY** custom = CustomArgument(*params, 0, custom_value);
        if (id == kOnAddInsUpdateId) return OnAddInsUpdate(custom);
        if (id == kOnStartupCompleteId) return OnStartupComplete(custom);
        return OnBeginShutdown(custom);
      }
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  });
}

namespace {

// The folder the DLL was loaded from: the add-in's settings and code
// folders live beside it.
std::string AddinFolder() {
  const std::wstring path = ThisModulePath();
  return WideToUtf8(path.substr(0, path.find_last_of(L"\\/") + 1));
}

}  // namespace

Connect::Connection::Connection(HWND main_window, const std::string& addin_folder)
    : ui(main_window),
      settings_dialog(ui, shell, addin_folder),
      dialogs(main_window, &settings_store,
              // A dialog's page of the help book beside the add-in.
              [this, help = addin_folder + "help\\"](const std::string& topic) {
                if (Status status = shell.OpenDocument(help + topic); !status)
                  ui.MessageBox(status.error(), platform::Buttons::kOk,
                                platform::Icon::kExclamation, platform::kAppTitle);
              }),
      addin(addin::HostServices{ui, ide_options, settings_store, files, shell, profiles,
                                settings_dialog, addin_folder, &dialogs, &type_libraries,
                                &columns}) {}

HRESULT Connect::OnConnection(IDispatch* application, int connect_mode,
                              IDispatch* addin_instance, SAFEARRAY**) noexcept {
  return GuardCom([&] {
    if (!application) return E_INVALIDARG;
    // A second connection without a disconnection starts afresh.
    Disconnect();
    const ComPtr<IDispatch> vbe(application);
    connection_ = std::make_unique<Connection>(MainWindowHandle(vbe), AddinFolder());
    std::shared_ptr<ide::IAddIn> add_in;
    if (addin_instance) add_in = MakeComAddIn(ComPtr<IDispatch>(addin_instance));
    connection_->addin.AddinInstance_OnConnection(MakeComVbe(vbe, SendInputKeys), connect_mode,
                                                  std::move(add_in));
    if (connection_->addin.WatcherLoaded()) {
      Connection* connection = connection_.get();
      connection_->watcher.emplace(kProjectWatcherMilliseconds,
                                   [connection] { connection->addin.TimerTick(); });
    }
    return S_OK;
  });
}

HRESULT Connect::OnDisconnection(int remove_mode, SAFEARRAY**) noexcept {
  if (connection_) {
    connection_->watcher.reset();
    connection_->addin.AddinInstance_OnDisconnection(remove_mode);
  }
  Disconnect();
  return S_OK;
}

HRESULT Connect::OnAddInsUpdate(SAFEARRAY**) noexcept {
  if (connection_) connection_->addin.AddinInstance_OnAddInsUpdate();
  return S_OK;
}

HRESULT Connect::OnStartupComplete(SAFEARRAY**) noexcept {
  if (connection_) connection_->addin.AddinInstance_OnStartupComplete();
  return S_OK;
}

HRESULT Connect::OnBeginShutdown(SAFEARRAY**) noexcept { return S_OK; }

void Connect::Disconnect() noexcept {
  // The portable add-in tears its user interface down and lets go of every
  // object of the IDE when it goes.
  connection_.reset();
}

}  // namespace tavrin::win
