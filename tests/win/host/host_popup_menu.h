// CommandBar.ShowPopup as the IDE shows a context bar: a real popup menu of
// the bar's controls (captions, pictures, enabled state, a separator before
// each that begins a group, submenus for popup controls), tracked at the
// pointer; the chosen entry is executed before ShowPopup returns. Off by
// default, so tests that only count showings never wait for a menu.
#pragma once

#include <optional>

#include "ide/command_bars.h"

namespace tavrin::test_host {

void ShowPopupMenus(bool show);
bool ShowingPopupMenus();

// `x` and `y` in screen pixels; the pointer's position when left out.
void ShowPopupMenu(ide::ICommandBar& bar, std::optional<int> x, std::optional<int> y);

}  // namespace tavrin::test_host
