// The test host's command bars, events and add-ins: IDispatch objects over
// the in-memory IDE's, with the Office command bars' member names and
// optional arguments, pictures as OLE pictures, faces through the system
// clipboard, and the IDE's events through connection points.
#pragma once

#include <memory>

#include "ide/memory/memory_vbe.h"
#include "tests/win/host/host_object.h"

namespace tavrin::test_host {

ComPtr<IDispatch> MakeHostCommandBars(std::shared_ptr<ide::memory::MemoryVbe> vbe);
ComPtr<IDispatch> MakeHostEvents(std::shared_ptr<ide::memory::MemoryVbe> vbe);
ComPtr<IDispatch> MakeHostAddins(std::shared_ptr<ide::memory::MemoryVbe> vbe);
ComPtr<IDispatch> MakeHostAddIn(std::shared_ptr<ide::IAddIn> add_in);

}  // namespace tavrin::test_host
