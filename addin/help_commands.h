// The Help menu's own windows: the Tip of the Day and the About box.
#pragma once

#include <functional>

#include "addin/context.h"
#include "builders/tip_of_the_day.h"

namespace tavrin::addin {

// Keeps the "show at start-up" choice ("View Tip Of The Day").
using SaveStartupChoice = std::function<void(bool show_at_startup)>;

// Shows a set of tips, starting at the day's tip, through context.dialogs;
// without a host, the day's tip in a message box. The check box's state is
// handed to `save` when the user changed it.
void ShowTipOfTheDay(Context& context, builders::TipSet set, const SaveStartupChoice& save);

// The start-up tip, when "View Tip Of The Day" is on and dialogs can be
// shown.
void ShowStartupTip(Context& context, const SaveStartupChoice& save);

// The About box; without a dialog host, its text in a message box.
void ShowAbout(Context& context);

// The tip a set starts at on a given day: the sets go round day by day.
int TipOfDay(builders::TipSet set, long long days_since_epoch);

}  // namespace tavrin::addin
