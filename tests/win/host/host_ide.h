// The test host's IDE: IDispatch objects over the IDE object model (the
// in-memory IDE), with the VBE's member names, parameter order, by-reference
// parameters and optional arguments. Every object is made afresh when asked
// for, as a real IDE may, so whoever asks owns what it gets.
#pragma once

#include <memory>

#include "ide/memory/memory_vbe.h"
#include "tests/win/host/host_object.h"

namespace tavrin::test_host {

// `main_window` is what the main window tells as its HWnd.
ComPtr<IDispatch> MakeHostVbe(std::shared_ptr<ide::memory::MemoryVbe> vbe,
                              HWND main_window = nullptr);

// Single objects, for the events that pass them.
ComPtr<IDispatch> MakeHostProject(std::shared_ptr<ide::IProject> project);
ComPtr<IDispatch> MakeHostComponent(std::shared_ptr<ide::IComponent> component);
ComPtr<IDispatch> MakeHostControl(std::shared_ptr<ide::IControl> control);

}  // namespace tavrin::test_host
