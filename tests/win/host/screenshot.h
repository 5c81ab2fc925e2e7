// Screenshots of the add-in's windows for people to look at: a window as it
// stands on the screen, written as a PNG file.
#pragma once

#include <string>

#include "win/win_support.h"

namespace tavrin::test_host {

// Writes `window` (its frame included) to "screenshots\<name>.png" beside the
// test program, through the system's PNG encoder (WIC). Failures are
// ignored: a screenshot is no test.
void SaveWindowPng(HWND window, const std::wstring& name);

}  // namespace tavrin::test_host
