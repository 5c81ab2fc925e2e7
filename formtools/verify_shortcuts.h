// The access-key check of the active form: each letter that more than one
// caption uses is shown, and the user may type new captions on the spot.
#pragma once

#include <memory>
#include <string>

#include "formtools/access_keys.h"
#include "ide/object_model.h"
#include "platform/ui.h"

namespace tavrin::formtools {

inline constexpr int kNoFormMessage = 8301;
inline constexpr int kShortcutsOkMessage = 8302;
inline constexpr int kRepeatCheckMessage = 8303;
inline constexpr int kSameShortcutText = 8304;
inline constexpr int kWantToCorrectText = 8305;
inline constexpr int kForText = 8306;
inline constexpr int kControlText = 8307;

// The form designer in the active window; nullptr when the active window is
// no designer. The designer window is found by its caption, which the IDE
// writes as "Project - Component (Form)".
std::shared_ptr<ide::IDesigner> ActiveFormDesigner(ide::IVbe& vbe);

struct ShortcutCheck {
  bool has_form = false;
  int conflicts = 0;       // letters shown to the user
  bool cancelled = false;  // the user ended the check
};

// The command. Without a form: "You must select a form!". After the
// conflicts, the summary "Repeat to be sure !" (captions may have changed)
// or "All shortcuts are ok!"; none when the user cancelled.
ShortcutCheck VerifyShortcuts(std::shared_ptr<ide::IDesigner> designer, platform::Ui& ui);

// Shows one conflict and offers new captions; false when the user cancels
// the whole check.
bool ReportDuplicateShortcuts(const ShortcutConflict& conflict, platform::Ui& ui);

}  // namespace tavrin::formtools
