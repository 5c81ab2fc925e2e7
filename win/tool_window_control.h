// The ActiveX control the IDE hosts in a dockable tool window
// (Windows.CreateToolWindow). One class serves the three windows; what it
// shows is a ToolPane. It is a windowed in-place control: the IDE sites it
// (IOleObject), activates it in the tool window's frame, moves it with the
// frame (IOleInPlaceObject::SetObjectRects), lets it see keys first
// (IOleInPlaceActiveObject::TranslateAccelerator), and gets its IDispatch
// back as the window's document object.
#pragma once

#include <memory>

#include "ide/object_model.h"
#include "win/calling_convention.h"
#include "win/com_object.h"
#include "win/com_ptr.h"

#include <ocidl.h>
#include <oleidl.h>

// The C++ document behind a tool-window control, reached by the add-in
// through the object CreateToolWindow returns. In-process only: the method
// carries a C++ type.
struct ITavrinToolDocument : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetDocument(
      std::shared_ptr<tavrin::ide::IUserDocument>* document) = 0;
};
__CRT_UUID_DECL(ITavrinToolDocument, 0xB2C3B101, 0xC9B9, 0x434A, 0xBB, 0x5C, 0x45, 0x9B, 0x4C,
                0xEB, 0x5C, 0xCA)

namespace tavrin::win {

struct GdiObjectTraits {
  using Handle = HGDIOBJ;
  static constexpr HGDIOBJ kEmpty = nullptr;
  static void Close(HGDIOBJ object) { ::DeleteObject(object); }
};
using UniqueGdiObject = UniqueHandle<GdiObjectTraits>;

// What the pane asks of the control that holds it.
class PaneHost {
 public:
  virtual ~PaneHost() = default;
  // A child window took the focus: the control becomes the IDE's active
  // object, so keys reach TranslateAccelerator.
  virtual void ChildFocused() noexcept = 0;
};

// The contents of one tool window: child controls over one document.
class ToolPane {
 public:
  virtual ~ToolPane() = default;
  // Creates the child windows inside `parent`, the control's window.
  virtual void Create(HWND parent, HFONT font, PaneHost& host) = 0;
  // The child windows are gone (the control's window was destroyed).
  virtual void Destroyed() = 0;
  virtual void Layout(int width, int height) = 0;
  virtual LRESULT Command(WPARAM wparam, LPARAM lparam) = 0;
  virtual LRESULT Notify(const NMHDR& header) = 0;
  // A key the pane acts on itself (Enter on a list); true when done.
  virtual bool HandleKey(const MSG& message) = 0;
  // The child to focus when the control gets the focus.
  virtual HWND FirstChild() const = 0;
  virtual std::shared_ptr<ide::IUserDocument> Document() const = 0;
};

class ToolWindowControl final : public IOleObject,
                                public IOleInPlaceObject,
                                public IOleInPlaceActiveObject,
                                public IOleControl,
                                public IViewObject2,
                                public IPersistStreamInit,
                                public IDispatch,
                                public ITavrinToolDocument,
                                public PaneHost,
                                public RefCounted {
 public:
  ToolWindowControl(const CLSID& clsid, std::unique_ptr<ToolPane> pane);

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return AddReference(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return ReleaseReference(); }

  // IOleObject
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) noexcept override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) noexcept override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Close(DWORD save_option) noexcept override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) noexcept override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) noexcept override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND,
                                   LPCRECT) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) noexcept override { return OLE_S_USEREG; }
  HRESULT STDMETHODCALLTYPE Update() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) noexcept override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) noexcept override {
    return OLE_S_USEREG;
  }
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) noexcept override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) noexcept override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) noexcept override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advise) noexcept override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

  // IOleWindow, IOleInPlaceObject
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() noexcept override { return E_NOTIMPL; }

  // IOleInPlaceActiveObject
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) noexcept override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return S_OK; }

  // IOleControl
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) noexcept override { return S_OK; }

  // IViewObject, IViewObject2
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc,
                                 LPCRECTL bounds, LPCRECTL,
                                 WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                 ULONG_PTR) noexcept override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE**) noexcept override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) noexcept override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) noexcept override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags,
                                      IAdviseSink* sink) noexcept override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags,
                                      IAdviseSink** sink) noexcept override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*,
                                      LPSIZEL size) noexcept override;

  // IPersist, IPersistStreamInit: nothing to keep.
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) noexcept override;
  HRESULT STDMETHODCALLTYPE IsDirty() noexcept override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE Load(LPSTREAM) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Save(LPSTREAM, BOOL) noexcept override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) noexcept override;
  HRESULT STDMETHODCALLTYPE InitNew() noexcept override { return S_OK; }

  // IDispatch: the document object has no members of its own.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                   EXCEPINFO*, UINT*) noexcept override {
    return DISP_E_MEMBERNOTFOUND;
  }

  // ITavrinToolDocument
  HRESULT STDMETHODCALLTYPE GetDocument(
      std::shared_ptr<ide::IUserDocument>* document) noexcept override;

  // PaneHost
  void ChildFocused() noexcept override;

  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wparam,
                                     LPARAM lparam) noexcept;

 private:
  ~ToolWindowControl() override;
  HRESULT Activate(bool ui_activate);
  void CreateControlWindow(HWND parent, const RECT& position);
  void DestroyControlWindow() noexcept;
  LRESULT HandleMessage(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

  CLSID clsid_;
  std::unique_ptr<ToolPane> pane_;
  ComPtr<IOleClientSite> site_;
  ComPtr<IOleInPlaceSite> in_place_site_;
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_window_;
  ComPtr<IOleAdviseHolder> advise_holder_;
  ComPtr<IAdviseSink> view_sink_;
  DWORD view_aspects_ = 0;
  DWORD view_flags_ = 0;
  SIZEL extent_{5000, 5000};  // HIMETRIC
  UniqueHwnd window_;  // from in-place activation to deactivation
  UniqueGdiObject font_;
  bool ui_active_ = false;
};

}  // namespace tavrin::win
