// The add-in's folder and its settings for the commands of the tool: the
// folder from --addin-dir or the per-user default, the profile files, the
// user at the terminal, and the settings loaded from there.
#pragma once

#include <iosfwd>
#include <string>

#include "cli/global_options.h"
#include "fragments/settings.h"
#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "platform/terminal_ui.h"

namespace tavrin::cli {

// --addin-dir (which must exist), else $TAVRIN_HOME, else the per-user
// folder: $XDG_CONFIG_HOME/tavrin or ~/.config/tavrin (%APPDATA%\Tavrin on
// Windows). Raises UsageError when there is none.
std::string AddinFolder(const GlobalOptions& globals);

// Stands in for the settings dialog: says how the tool changes settings.
class ToolSettingsDialog : public settings::SettingsDialog {
 public:
  explicit ToolSettingsDialog(platform::Ui& ui) : ui_(ui) {}
  void ShowModal() override;

 private:
  platform::Ui& ui_;
};

class AddinSession {
 public:
  explicit AddinSession(const GlobalOptions& globals);

  const settings::SettingsServices& Services() const { return services_; }
  platform::FileSystem& Files() { return files_; }
  platform::ProfileFile& Profiles() { return profiles_; }
  const std::string& Folder() const { return services_.addin_folder; }
  // Seeds the folder on first use and loads the settings.
  fragments::Settings Load(bool interactive);

 private:
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
  platform::TerminalUi ui_;
  ToolSettingsDialog dialog_{ui_};
  settings::SettingsServices services_;
};

}  // namespace tavrin::cli
