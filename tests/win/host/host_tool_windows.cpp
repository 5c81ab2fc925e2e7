#include "tests/win/host/host_tool_windows.h"

#include <algorithm>

#include "ide/object_model.h"

namespace tavrin::test_host {
namespace {

constexpr wchar_t kFrameClass[] = L"TavrinTestToolFrame";

ToolContainer g_container = ToolContainer::kHost;

// Creates `prog_id` in `frame` through ATL's control host, which sites and
// activates it; the host's container object is returned. atl.dll is loaded
// at run time: not every toolchain has its import library.
ComPtr<IUnknown> AtlCreateControl(const std::wstring& prog_id, HWND frame) {
  using Create = HRESULT(WINAPI*)(LPCOLESTR, HWND, IStream*, IUnknown**);
  static const HMODULE atl = ::LoadLibraryW(L"atl.dll");
  const auto create = atl ? reinterpret_cast<Create>(reinterpret_cast<void*>(
                                ::GetProcAddress(atl, "AtlAxCreateControl")))
                          : nullptr;
  ComPtr<IUnknown> container;
  if (!create || FAILED(create(prog_id.c_str(), frame, nullptr, container.put())))
    throw ide::Error(429, "ActiveX component can't create object");
  return container;
}

ComPtr<IOleObject> AtlControl(HWND frame) {
  using Get = HRESULT(WINAPI*)(HWND, IUnknown**);
  const auto get = reinterpret_cast<Get>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"atl.dll"), "AtlAxGetControl")));
  ComPtr<IUnknown> control;
  if (!get || FAILED(get(frame, control.put()))) return nullptr;
  return control.As<IOleObject>();
}

std::vector<std::weak_ptr<HostToolFrame>>& Frames() {
  static std::vector<std::weak_ptr<HostToolFrame>> frames;
  return frames;
}

// The site of one control: its client site and in-place site, in the frame.
class HostSite final : public IOleClientSite, public IOleInPlaceSite {
 public:
  explicit HostSite(HWND frame) : frame_(frame) { CountHostObject(+1); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
      *object = static_cast<IOleClientSite*>(this);
    } else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) {
      *object = static_cast<IOleInPlaceSite*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override {
    if (container) *container = nullptr;
    return E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

  // IOleWindow, IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override {
    if (!window) return E_POINTER;
    *window = frame_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT position,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO info) noexcept override {
    if (frame) *frame = nullptr;
    if (document) *document = nullptr;
    RECT client{};
    ::GetClientRect(frame_, &client);
    if (position) *position = client;
    if (clip) *clip = client;
    if (info) {
      info->fMDIApp = FALSE;
      info->hwndFrame = frame_;
      info->haccel = nullptr;
      info->cAccelEntries = 0;
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) noexcept override { return S_OK; }

 private:
  ~HostSite() { CountHostObject(-1); }
  HWND frame_;
  ULONG references_ = 1;
};

LRESULT CALLBACK FrameProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_SIZE) {
    if (auto* frame = reinterpret_cast<HostToolFrame*>(::GetWindowLongPtrW(window, GWLP_USERDATA)))
      frame->FrameResized();
    return 0;
  }
  return ::DefWindowProcW(window, message, wparam, lparam);
}

void RegisterFrameClass() {
  WNDCLASSEXW window_class{};
  window_class.cbSize = sizeof window_class;
  window_class.lpfnWndProc = &FrameProc;
  window_class.hInstance = ::GetModuleHandleW(nullptr);
  window_class.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  window_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  window_class.lpszClassName = kFrameClass;
  ::RegisterClassExW(&window_class);
}

// The Window object the add-in gets: it keeps the frame open.
ComPtr<IDispatch> MakeToolWindowObject(std::shared_ptr<HostToolFrame> frame) {
  return MakeHostObject({
      Property(L"Type", [] { return Variant::Long(static_cast<long>(ide::WindowType::kToolWindow)); }),
      Property(L"HWnd",
               [frame] {
                 return Variant::Long(static_cast<long>(reinterpret_cast<LONG_PTR>(frame->Frame())));
               }),
      Property(
          L"Visible", [frame] { return Variant::Bool(::IsWindowVisible(frame->Frame()) != FALSE); },
          [frame](const VARIANT& value) {
            ::ShowWindow(frame->Frame(), win::VariantToBool(value) ? SW_SHOW : SW_HIDE);
          }),
      Method(L"SetFocus", 0, 0,
             [frame](HostCall&) {
               ::SetFocus(frame->ControlWindow());
               return Variant();
             }),
  });
}

}  // namespace

HostToolFrame::HostToolFrame(const std::wstring& prog_id, const std::wstring& caption)
    : prog_id_(prog_id) {
  if (g_container == ToolContainer::kAtl) {
    RegisterFrameClass();
    frame_ = ::CreateWindowExW(WS_EX_TOOLWINDOW, kFrameClass, caption.c_str(),
                               WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40, 40, 300, 420, nullptr,
                               nullptr, ::GetModuleHandleW(nullptr), nullptr);
    atl_container_ = AtlCreateControl(prog_id, frame_);
    control_ = AtlControl(frame_);
    if (!control_) throw ide::Error(429, "The control cannot be activated");
    return;
  }
  CLSID clsid{};
  if (FAILED(::CLSIDFromProgID(prog_id.c_str(), &clsid)) ||
      FAILED(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                control_.put_void()))) {
    throw ide::Error(429, "ActiveX component can't create object");
  }
  RegisterFrameClass();
  frame_ = ::CreateWindowExW(WS_EX_TOOLWINDOW, kFrameClass, caption.c_str(),
                             WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 40, 40, 300, 420, nullptr,
                             nullptr, ::GetModuleHandleW(nullptr), nullptr);
  site_ = ComPtr<IOleClientSite>::Attach(new HostSite(frame_));
  control_->SetClientSite(site_.get());
  RECT client{};
  ::GetClientRect(frame_, &client);
  if (FAILED(control_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, frame_, &client)))
    throw ide::Error(429, "The control cannot be activated");
  ::SetWindowLongPtrW(frame_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HostToolFrame::~HostToolFrame() {
  if (atl_container_) {
    // ATL's host lets the control go when its window is destroyed.
    control_.reset();
    ::DestroyWindow(frame_);
    atl_container_.reset();
    return;
  }
  ::SetWindowLongPtrW(frame_, GWLP_USERDATA, 0);
  if (control_) {
    control_->Close(OLECLOSE_NOSAVE);
    control_->SetClientSite(nullptr);
  }
  control_.reset();
  site_.reset();
  ::DestroyWindow(frame_);
}

HWND HostToolFrame::ControlWindow() const {
  HWND window = nullptr;
  if (const auto in_place = control_.As<IOleInPlaceObject>()) in_place->GetWindow(&window);
  return window;
}

ComPtr<IDispatch> HostToolFrame::Document() const { return control_.As<IDispatch>(); }

void HostToolFrame::SendKey(HWND target, UINT virtual_key) {
  MSG message{target, WM_KEYDOWN, virtual_key, 0, 0, {}};
  const auto active = control_.As<IOleInPlaceActiveObject>();
  if (!active || active->TranslateAccelerator(&message) != S_OK) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

void HostToolFrame::Resize(int width, int height) {
  ::SetWindowPos(frame_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

void HostToolFrame::FrameResized() {
  RECT client{};
  ::GetClientRect(frame_, &client);
  if (const auto in_place = control_.As<IOleInPlaceObject>())
    in_place->SetObjectRects(&client, &client);
}

void UseToolContainer(ToolContainer container) { g_container = container; }

std::vector<std::shared_ptr<HostToolFrame>> OpenToolFrames() {
  std::vector<std::shared_ptr<HostToolFrame>> open;
  for (const auto& frame : Frames())
    if (auto alive = frame.lock()) open.push_back(std::move(alive));
  return open;
}

HostMember CreateToolWindowMember() {
  return Method(L"CreateToolWindow", 5, 5, [](HostCall& call) {
    auto frame = std::make_shared<HostToolFrame>(win::Utf8ToWide(call.String(1)),
                                                 win::Utf8ToWide(call.String(2)));
    std::erase_if(Frames(), [](const auto& old) { return old.expired(); });
    Frames().push_back(frame);
    IDispatch*& document = call.ObjectRef(4);
    if (document) document->Release();
    document = frame->Document().Detach();
    return Variant::Object(MakeToolWindowObject(std::move(frame)).get());
  });
}

}  // namespace tavrin::test_host
