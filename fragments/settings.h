// The settings of one connection (or one run of the tool), in one object:
// the value table, the type-prefix table and the code folders, loaded by one
// call and reloaded after the settings dialog applied its values.
#pragma once

#include <string>

#include "fragments/code_folders.h"
#include "settings/naming.h"
#include "settings/settings_load.h"
#include "settings/type_prefixes.h"
#include "settings/value_table.h"

namespace tavrin::fragments {

struct Settings {
  std::string addin_folder;
  settings::ValueTable values;
  settings::TypePrefixTable type_prefixes;
  CodeFolders folders{"", "", ""};
  settings::LoadReport report;  // what the last load wrote or could not read

  std::string Text(settings::Item item) const { return values.Text(item); }
  bool YesNo(settings::Item item) const { return values.YesNo(item); }
  settings::NamingRules Naming() const { return settings::NamingRulesFrom(values); }
  // A file-path setting ("Procedure Header File", ...) as a file system path.
  std::string FilePath(settings::Item item) const { return folders.FileSetting(Text(item)); }
  // The name for what the user typed (see settings::ComposeName).
  std::string ComposeName(std::string_view typed, std::string_view type_name, int scope,
                          bool is_constant) const {
    return settings::ComposeName(typed, type_name, scope, is_constant, Naming(), type_prefixes);
  }
};

// Seeds the add-in's folder on first use, loads the value table (with the
// first-run behaviour when `interactive`), then the type-prefix table and
// the code folders. Problems reach the user through services.ui; the
// settings are usable whatever happened (defaults where nothing was read).
Settings LoadSettings(const settings::SettingsServices& services, bool interactive);

// Reloads after the settings changed (the dialog applied, a value was set).
void ReloadSettings(Settings& settings, const settings::SettingsServices& services);

}  // namespace tavrin::fragments
