// The settings dialog of the Windows add-in, until the tabbed form over the
// catalogue exists: it tells the user where the settings live and opens that
// file in the program registered for INI files.
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/ui.h"
#include "settings/settings_load.h"

namespace tavrin::win {

class WindowsSettingsDialog : public settings::SettingsDialog {
 public:
  // `addin_folder` ends in a separator.
  WindowsSettingsDialog(platform::Ui& ui, platform::Shell& shell, std::string addin_folder)
      : ui_(ui), shell_(shell), addin_folder_(std::move(addin_folder)) {}

  void ShowModal() override;

 private:
  platform::Ui& ui_;
  platform::Shell& shell_;
  std::string addin_folder_;
};

}  // namespace tavrin::win
