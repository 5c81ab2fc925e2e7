// The IDE object model (ide/) over the real IDE's COM objects, late bound
// through IDispatch, so one DLL serves the VB6 IDE and the VBA editor. Each
// wrapper owns one reference to its COM object and gives it back when the
// wrapper goes; nothing of the IDE is cached between calls except DISPIDs.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "ide/object_model.h"
#include "win/com_ptr.h"

namespace tavrin::win {

// Types keystrokes into the window that has the focus (SendKeys).
using KeyTyper = std::function<void(std::string_view keys)>;

// `vbe` is the IDE's root object (VBInst).
std::shared_ptr<ide::IVbe> MakeComVbe(ComPtr<IDispatch> vbe, KeyTyper type_keys);
// The AddIn object the IDE passes at connection.
std::shared_ptr<ide::IAddIn> MakeComAddIn(ComPtr<IDispatch> add_in);

// The IDE's main window (VBE.MainWindow.HWnd), the owner of the add-in's
// dialogs; null when the IDE does not tell.
HWND MainWindowHandle(const ComPtr<IDispatch>& vbe) noexcept;

}  // namespace tavrin::win
