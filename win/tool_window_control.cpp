#include "win/tool_window_control.h"

#include <utility>

#include "win/com_guard.h"

#include <commctrl.h>

namespace tavrin::win {
namespace {

constexpr wchar_t kWindowClass[] = L"TavrinToolWindow";

bool RegisterWindowClass() {
  WNDCLASSEXW window_class{};
  window_class.cbSize = sizeof window_class;
  window_class.style = CS_DBLCLKS;
  window_class.lpfnWndProc = &ToolWindowControl::WindowProc;
  window_class.hInstance = ThisModule();
  window_class.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  window_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  window_class.lpszClassName = kWindowClass;
  return ::RegisterClassExW(&window_class) || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

// The font of message boxes, which the IDE's own tool windows use too.
HFONT CreateUiFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
    return ::CreateFontIndirectW(&metrics.lfMessageFont);
  return nullptr;
}

bool IsKeyMessage(UINT message) { return message >= WM_KEYFIRST && message <= WM_KEYLAST; }

}  // namespace

ToolWindowControl::ToolWindowControl(const CLSID& clsid, std::unique_ptr<ToolPane> pane)
    : clsid_(clsid), pane_(std::move(pane)) {}

ToolWindowControl::~ToolWindowControl() { DestroyControlWindow(); }

HRESULT ToolWindowControl::QueryInterface(REFIID iid, void** object) noexcept {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IOleObject) {
    *object = static_cast<IOleObject*>(this);
  } else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceObject) {
    *object = static_cast<IOleInPlaceObject*>(this);
  } else if (iid == IID_IOleInPlaceActiveObject) {
    *object = static_cast<IOleInPlaceActiveObject*>(this);
  } else if (iid == IID_IOleControl) {
    *object = static_cast<IOleControl*>(this);
  } else if (iid == IID_IViewObject || iid == IID_IViewObject2) {
    *object = static_cast<IViewObject2*>(this);
  } else if (iid == IID_IPersist || iid == IID_IPersistStreamInit) {
    *object = static_cast<IPersistStreamInit*>(this);
  } else if (iid == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
  } else if (iid == __uuidof(ITavrinToolDocument)) {
    *object = static_cast<ITavrinToolDocument*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

// IOleObject

HRESULT ToolWindowControl::SetClientSite(IOleClientSite* site) noexcept {
  // A container that takes its site away is done with the control.
  if (!site) InPlaceDeactivate();
  site_ = ComPtr<IOleClientSite>(site);
  return S_OK;
}

HRESULT ToolWindowControl::GetClientSite(IOleClientSite** site) noexcept {
  return site_.CopyTo(site);
}

HRESULT ToolWindowControl::Close(DWORD) noexcept {
  InPlaceDeactivate();
  if (advise_holder_) advise_holder_->SendOnClose();
  return S_OK;
}

HRESULT ToolWindowControl::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
  if (moniker) *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT ToolWindowControl::GetClipboardData(DWORD, IDataObject** data) noexcept {
  if (data) *data = nullptr;
  return E_NOTIMPL;
}

HRESULT ToolWindowControl::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND,
                                  LPCRECT) noexcept {
  return GuardCom([&]() -> HRESULT {
    if (!site_ && site) site_ = ComPtr<IOleClientSite>(site);
    switch (verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_UIACTIVATE:
        return Activate(true);
      case OLEIVERB_INPLACEACTIVATE:
        return Activate(false);
      case OLEIVERB_HIDE:
        UIDeactivate();
        if (window_) ::ShowWindow(window_.get(), SW_HIDE);
        return S_OK;
      default:
        return OLEOBJ_S_INVALIDVERB;
    }
  });
}

HRESULT ToolWindowControl::GetUserClassID(CLSID* clsid) noexcept { return GetClassID(clsid); }

HRESULT ToolWindowControl::SetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (!size) return E_POINTER;
  extent_ = *size;
  return S_OK;
}

HRESULT ToolWindowControl::GetExtent(DWORD aspect, SIZEL* size) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (!size) return E_POINTER;
  *size = extent_;
  return S_OK;
}

HRESULT ToolWindowControl::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
  if (!advise_holder_ && FAILED(::CreateOleAdviseHolder(advise_holder_.put()))) return E_FAIL;
  return advise_holder_->Advise(sink, connection);
}

HRESULT ToolWindowControl::Unadvise(DWORD connection) noexcept {
  return advise_holder_ ? advise_holder_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT ToolWindowControl::EnumAdvise(IEnumSTATDATA** advise) noexcept {
  if (!advise) return E_POINTER;
  *advise = nullptr;
  return advise_holder_ ? advise_holder_->EnumAdvise(advise) : E_FAIL;
}

HRESULT ToolWindowControl::GetMiscStatus(DWORD, DWORD* status) noexcept {
  if (!status) return E_POINTER;
  *status = OLEMISC_SETCLIENTSITEFIRST | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_INSIDEOUT |
            OLEMISC_CANTLINKINSIDE | OLEMISC_RECOMPOSEONRESIZE;
  return S_OK;
}

// Activation

HRESULT ToolWindowControl::Activate(bool ui_activate) {
  if (!site_) return E_UNEXPECTED;
  if (!window_) {
    const auto site = site_.As<IOleInPlaceSite>();
    if (!site) return E_NOINTERFACE;
    if (site->CanInPlaceActivate() != S_OK) return E_FAIL;
    site->OnInPlaceActivate();
    in_place_site_ = site;
    HWND parent = nullptr;
    if (FAILED(site->GetWindow(&parent)) || !parent) return E_FAIL;
    RECT position{}, clip{};
    OLEINPLACEFRAMEINFO frame_info{};
    frame_info.cb = sizeof frame_info;
    site->GetWindowContext(frame_.put(), document_window_.put(), &position, &clip, &frame_info);
    CreateControlWindow(parent, position);
    site_->ShowObject();
  }
  ::ShowWindow(window_.get(), SW_SHOW);
  if (ui_activate && !ui_active_) {
    ui_active_ = true;
    auto* active = static_cast<IOleInPlaceActiveObject*>(this);
    in_place_site_->OnUIActivate();
    if (frame_) frame_->SetActiveObject(active, nullptr);
    if (document_window_) document_window_->SetActiveObject(active, nullptr);
    const HWND focus = ::GetFocus();
    if (focus != window_.get() && !::IsChild(window_.get(), focus))
      ::SetFocus(pane_->FirstChild() ? pane_->FirstChild() : window_.get());
  }
  return S_OK;
}

void ToolWindowControl::CreateControlWindow(HWND parent, const RECT& position) {
  if (!RegisterWindowClass())
    throw ide::Error(5, "Cannot register the tool window class: " + ErrorText(::GetLastError()));
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  ::InitCommonControlsEx(&controls);
  if (!font_) font_.reset(CreateUiFont());
  window_.reset(::CreateWindowExW(WS_EX_CONTROLPARENT, kWindowClass, L"",
                                  WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, position.left,
                                  position.top, position.right - position.left,
                                  position.bottom - position.top, parent, nullptr, ThisModule(),
                                  this));
  if (!window_)
    throw ide::Error(5, "Cannot create the tool window: " + ErrorText(::GetLastError()));
  pane_->Create(window_.get(), static_cast<HFONT>(font_.get()), *this);
  pane_->Layout(position.right - position.left, position.bottom - position.top);
}

void ToolWindowControl::DestroyControlWindow() noexcept {
  if (!window_) return;
  window_.reset();  // WM_DESTROY tells the pane
  // Fails while another control's window still uses the class.
  ::UnregisterClassW(kWindowClass, ThisModule());
}

HRESULT ToolWindowControl::GetWindow(HWND* window) noexcept {
  if (!window) return E_POINTER;
  *window = window_.get();
  return window_ ? S_OK : E_FAIL;
}

HRESULT ToolWindowControl::InPlaceDeactivate() noexcept {
  UIDeactivate();
  DestroyControlWindow();
  frame_.reset();
  document_window_.reset();
  if (const auto site = std::exchange(in_place_site_, nullptr)) site->OnInPlaceDeactivate();
  return S_OK;
}

HRESULT ToolWindowControl::UIDeactivate() noexcept {
  if (!ui_active_) return S_OK;
  ui_active_ = false;
  if (frame_) frame_->SetActiveObject(nullptr, nullptr);
  if (document_window_) document_window_->SetActiveObject(nullptr, nullptr);
  if (in_place_site_) in_place_site_->OnUIDeactivate(FALSE);
  return S_OK;
}

HRESULT ToolWindowControl::SetObjectRects(LPCRECT position, LPCRECT) noexcept {
  if (!position) return E_POINTER;
  if (window_) {
    ::MoveWindow(window_.get(), position->left, position->top, position->right - position->left,
                 position->bottom - position->top, TRUE);
  }
  return S_OK;
}

void ToolWindowControl::ChildFocused() noexcept {
  if (ui_active_) return;
  GuardCom([&] { return Activate(true); });
  if (const auto control_site = site_.As<IOleControlSite>()) control_site->OnFocus(TRUE);
}

// Keys: while one of our child windows has the focus, every key but the
// IDE's function keys and Alt combinations goes to that child, so Tab,
// arrows, Enter, Delete and Ctrl+C/X/V act in the window and not in the
// code pane behind it.
HRESULT ToolWindowControl::TranslateAccelerator(LPMSG message) noexcept {
  if (!message || !window_ || !IsKeyMessage(message->message)) return S_FALSE;
  if (message->hwnd != window_.get() && !::IsChild(window_.get(), message->hwnd)) return S_FALSE;
  try {
    // F10 comes as a system key; Shift+F10 opens a pane's context menu.
    if (message->message == WM_SYSKEYDOWN && message->wParam == VK_F10 &&
        pane_->HandleKey(*message))
      return S_OK;
    if (message->message == WM_SYSKEYDOWN || message->message == WM_SYSCHAR ||
        message->message == WM_SYSKEYUP) {
      // Alt and a letter: the access key of one of our buttons, if any.
      return ::IsDialogMessageW(window_.get(), message) ? S_OK : S_FALSE;
    }
    if (message->message == WM_KEYDOWN) {
      if (pane_->HandleKey(*message)) return S_OK;
      if (message->wParam >= VK_F1 && message->wParam <= VK_F24) return S_FALSE;
      if (message->wParam == VK_TAB) {
        ::IsDialogMessageW(window_.get(), message);
        return S_OK;
      }
    }
    ::TranslateMessage(message);
    ::DispatchMessageW(message);
    return S_OK;
  } catch (...) {
    return S_OK;
  }
}

// IOleControl

HRESULT ToolWindowControl::GetControlInfo(CONTROLINFO* info) noexcept {
  if (!info) return E_POINTER;
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = 0;
  return S_OK;
}

// IViewObject2: drawn only when not active (a design view, a print).

HRESULT ToolWindowControl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc,
                                LPCRECTL bounds, LPCRECTL, WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                ULONG_PTR) noexcept {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (!dc || !bounds) return E_INVALIDARG;
  const RECT area{bounds->left, bounds->top, bounds->right, bounds->bottom};
  ::FillRect(dc, &area, ::GetSysColorBrush(COLOR_WINDOW));
  return S_OK;
}

HRESULT ToolWindowControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
  view_aspects_ = aspects;
  view_flags_ = flags;
  view_sink_ = ComPtr<IAdviseSink>(sink);
  return S_OK;
}

HRESULT ToolWindowControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
  if (aspects) *aspects = view_aspects_;
  if (flags) *flags = view_flags_;
  return sink ? view_sink_.CopyTo(sink) : S_OK;
}

HRESULT ToolWindowControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) noexcept {
  return GetExtent(aspect, size);
}

// IPersistStreamInit

HRESULT ToolWindowControl::GetClassID(CLSID* clsid) noexcept {
  if (!clsid) return E_POINTER;
  *clsid = clsid_;
  return S_OK;
}

HRESULT ToolWindowControl::GetSizeMax(ULARGE_INTEGER* size) noexcept {
  if (!size) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

// IDispatch

HRESULT ToolWindowControl::GetTypeInfoCount(UINT* count) noexcept {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ToolWindowControl::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
  if (info) *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT ToolWindowControl::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID,
                                         DISPID* ids) noexcept {
  if (!ids) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

HRESULT ToolWindowControl::GetDocument(std::shared_ptr<ide::IUserDocument>* document) noexcept {
  if (!document) return E_POINTER;
  *document = pane_->Document();
  return S_OK;
}

// The window

LRESULT CALLBACK ToolWindowControl::WindowProc(HWND window, UINT message, WPARAM wparam,
                                               LPARAM lparam) noexcept {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lparam);
    ::SetWindowLongPtrW(window, GWLP_USERDATA,
                        reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* control = reinterpret_cast<ToolWindowControl*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!control) return ::DefWindowProcW(window, message, wparam, lparam);
  try {
    return control->HandleMessage(window, message, wparam, lparam);
  } catch (...) {
    // A failed action leaves the window as it was; the IDE never sees it.
    return 0;
  }
}

LRESULT ToolWindowControl::HandleMessage(HWND window, UINT message, WPARAM wparam,
                                         LPARAM lparam) {
  switch (message) {
    case WM_SIZE:
      pane_->Layout(LOWORD(lparam), HIWORD(lparam));
      return 0;
    case WM_COMMAND:
      return pane_->Command(wparam, lparam);
    case WM_NOTIFY:
      return pane_->Notify(*reinterpret_cast<const NMHDR*>(lparam));
    case WM_SETFOCUS:
      if (pane_->FirstChild()) ::SetFocus(pane_->FirstChild());
      return 0;
    case WM_DESTROY:
      pane_->Destroyed();
      ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      break;
    default:
      break;
  }
  return ::DefWindowProcW(window, message, wparam, lparam);
}

static_assert(kIsWindowProcedure<&ToolWindowControl::WindowProc>);
static_assert(kImplements<kQueryInterface, &ToolWindowControl::QueryInterface>);
static_assert(kImplements<&IOleObject::SetClientSite, &ToolWindowControl::SetClientSite>);
static_assert(kImplements<&IOleObject::DoVerb, &ToolWindowControl::DoVerb>);
static_assert(kImplements<&IOleObject::GetMiscStatus, &ToolWindowControl::GetMiscStatus>);
static_assert(kImplements<&IOleInPlaceObject::SetObjectRects, &ToolWindowControl::SetObjectRects>);
static_assert(kImplements<&IOleInPlaceActiveObject::TranslateAccelerator,
                          &ToolWindowControl::TranslateAccelerator>);
static_assert(kImplements<&IOleControl::GetControlInfo, &ToolWindowControl::GetControlInfo>);
static_assert(kImplements<&IViewObject::Draw, &ToolWindowControl::Draw>);
static_assert(kImplements<&IPersistStreamInit::InitNew, &ToolWindowControl::InitNew>);
static_assert(kImplements<&IDispatch::Invoke, &ToolWindowControl::Invoke>);
static_assert(kImplements<&ITavrinToolDocument::GetDocument, &ToolWindowControl::GetDocument>);

}  // namespace tavrin::win
