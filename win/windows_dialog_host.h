// The builders' dialogs as real Win32 dialogs. One renderer shows any
// DialogModel: the layout pass (dialog_layout.h) places its fields in dialog
// units, an in-memory template creates the controls, and the dialog window
// (dialog_window.h) forwards every change to the model and shows the
// model's state again.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "builders/dialog.h"
#include "platform/settings_store.h"
#include "win/win_support.h"

namespace tavrin::win {

class WindowsDialogHost : public builders::DialogHost {
 public:
  // Opens a model's help topic.
  using HelpOpener = std::function<void(const std::string& topic)>;

  // `owner` owns the dialogs (null: the active window); a dialog shown while
  // another is open is owned by that one. `store` keeps each dialog's place
  // and its remembered fields per user (null: nothing is kept).
  WindowsDialogHost(HWND owner, platform::SettingsStore* store, HelpOpener help = {});

  bool Show(builders::DialogModel& model) override;

  // The dialogs showing now, the innermost last.
  const std::vector<HWND>& OpenDialogs() const { return open_; }

 private:
  friend class DialogWindow;
  void Recall(builders::DialogModel& model);
  void Remember(builders::DialogModel& model);

  HWND owner_;
  platform::SettingsStore* store_;
  HelpOpener help_;
  std::vector<HWND> open_;
};

// Where a dialog's place and remembered values are kept: the section of
// the add-in's per-user settings named after the dialog's title.
std::string DialogSettingsSection(std::string_view title);

}  // namespace tavrin::win
