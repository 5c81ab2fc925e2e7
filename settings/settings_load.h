// Loading the settings value table from the INI files in the add-in's
// folder, writing back the defaults of missing keys, and the first-run
// questions.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/profile_file.h"
#include "platform/ui.h"
#include "settings/value_table.h"

namespace tavrin::settings {

// The settings dialog, opened modally by an interactive load. The add-in
// gives the real dialog; the tool reports that it would open.
class SettingsDialog {
 public:
  virtual ~SettingsDialog() = default;
  virtual void ShowModal() = 0;
};

// What loading needs from the system and the user.
struct SettingsServices {
  platform::ProfileFile& profiles;
  platform::FileSystem& files;
  platform::Ui& ui;
  SettingsDialog& dialog;
  std::string addin_folder;  // where the INI files live
};

struct LoadReport {
  bool defaults_written = false;
  // Messages already shown to the user: values that did not convert, files
  // that could not be saved.
  std::vector<std::string> problems;
};

// Fills `values` from the defaults and the INI files. With `interactive`
// (at connection) a first run opens the settings dialog, and an empty
// Developer section asks about the two dockable windows.
LoadReport LoadValueTable(ValueTable& values, const SettingsServices& services,
                          bool interactive);

// Writes one item to its file at once (the value stays in `values` too);
// the error message when the file refuses it.
Status SaveItem(ValueTable& values, const SettingsServices& services, Item item,
                SettingValue value);

}  // namespace tavrin::settings
