// The test host's Windows.CreateToolWindow: the control is created from its
// ProgID, sited and activated in place in a real top-level frame window, as
// the IDE docks it, and its IDispatch is handed back as the document. The
// frame closes when the add-in lets its Window object go.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/win/host/host_object.h"

#include <oleidl.h>

namespace tavrin::test_host {

class HostToolFrame;

// The member "CreateToolWindow" of the host's Windows collection.
HostMember CreateToolWindowMember();

// Who sites the controls CreateToolWindow makes: the host's own site (as
// the IDE does), or Wine's ATL control host (AtlAxCreateControl), a second,
// independent container.
enum class ToolContainer { kHost, kAtl };
void UseToolContainer(ToolContainer container);

// The frames open now, oldest first.
std::vector<std::shared_ptr<HostToolFrame>> OpenToolFrames();

class HostToolFrame {
 public:
  // Raises ide::Error (429) when the class cannot be created or activated.
  HostToolFrame(const std::wstring& prog_id, const std::wstring& caption);
  ~HostToolFrame();
  HostToolFrame(const HostToolFrame&) = delete;
  HostToolFrame& operator=(const HostToolFrame&) = delete;

  const std::wstring& ProgId() const { return prog_id_; }
  HWND Frame() const { return frame_; }
  // The control's own window (IOleWindow::GetWindow).
  HWND ControlWindow() const;
  ComPtr<IDispatch> Document() const;
  // What the IDE's message loop does with a key while the control is
  // active: offer it to TranslateAccelerator, else dispatch it.
  void SendKey(HWND target, UINT virtual_key);
  void Resize(int width, int height);

  // The frame's window procedure moves the control with the frame.
  void FrameResized();

 private:
  std::wstring prog_id_;
  HWND frame_ = nullptr;
  ComPtr<IOleObject> control_;
  ComPtr<IOleClientSite> site_;
  ComPtr<IUnknown> atl_container_;
};

}  // namespace tavrin::test_host
