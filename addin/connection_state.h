// The state of one connection of the add-in to the IDE: the IDE's root
// object (VBInst), the add-in instance, the services of the host, the
// settings with the code folders, and what the start-up steps find (the
// testing flag, the Immediate window, the active project as last seen).
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "addin/context.h"
#include "builders/settings_dialog.h"
#include "fragments/settings.h"
#include "ide/object_model.h"
#include "platform/file_system.h"
#include "platform/ide_options.h"
#include "platform/profile_file.h"
#include "platform/settings_store.h"
#include "platform/ui.h"
#include "settings/settings_load.h"

namespace tavrin::addin {

// What the host gives the add-in: the user, the operating system, the
// settings dialog and the folder the add-in was loaded from.
struct HostServices {
  platform::Ui& ui;
  platform::IdeOptions& ide_options;
  platform::SettingsStore& settings_store;
  platform::FileSystem& files;
  platform::Shell& shell;
  platform::ProfileFile& profiles;  // the INI files
  settings::SettingsDialog& settings_dialog;
  std::string addin_folder;
  // Shows the builders' dialogs; null where the host has none.
  builders::DialogHost* dialogs = nullptr;
  // Reads type libraries; null: the libraries' members are not offered.
  scan::TypeLibraryReader* type_library_reader = nullptr;
  // Reads database columns; null: the control builder takes typed lists only.
  formtools::ColumnSource* column_source = nullptr;
};

// The marker file in the code root that adds the control builder to the
// "&Tavrin" menu.
inline constexpr std::string_view kTestingFile = "testing.txt";

class ConnectionState {
 public:
  ConnectionState(const HostServices& services, std::shared_ptr<ide::IVbe> vbe,
                  std::shared_ptr<ide::IAddIn> add_in);

  ide::IVbe& VBInst() { return *vbe_; }
  const std::shared_ptr<ide::IAddIn>& AddInInst() const { return add_in_; }
  Context& CommandContext() { return context_; }
  const HostServices& Services() const { return services_; }

  // Loads the settings, the naming prefixes and the code folders (whose
  // paths are settings), asking what a first run asks.
  void LoadSettings();
  // Opens the settings dialog and loads what it applied.
  void ShowSettingsDialog();
  // Writes one item to its file; a refusal is shown to the user.
  void SaveSetting(settings::Item item, settings::SettingValue value);
  const fragments::Settings& Settings() const { return settings_; }
  // The code root ("<code>").
  std::string CodeRoot() const;
  // The persisted visibility of the Code Explorer window.
  bool CodeExplorerVisible() const;

  // True when "testing.txt" is in the code root.
  bool ReadTestingFlag();

  bool testing = false;
  std::shared_ptr<ide::IWindow> immediate_window;
  // The active project's file as the project watcher last saw it; empty
  // with no project, "NewProject" for one never saved.
  std::string current_project_file;

 private:
  settings::SettingsServices SettingsServices() const;

  HostServices services_;
  // The settings dialog model when the context has a dialog host, the
  // host's own settings dialog otherwise.
  mutable builders::ModelSettingsDialog settings_dialog_;
  fragments::Settings settings_;
  // What the type libraries gave, kept for the connection.
  std::optional<scan::TypeLibraryScanner> type_libraries_;
  std::shared_ptr<ide::IVbe> vbe_;
  std::shared_ptr<ide::IAddIn> add_in_;
  Context context_;
};

}  // namespace tavrin::addin
