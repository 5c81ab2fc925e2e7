#include "fragments/settings.h"

#include "fragments/addin_folder.h"

namespace tavrin::fragments {
namespace {

void LoadTables(Settings& settings, const settings::SettingsServices& services) {
  using settings::Item;
  settings.folders = CodeFolders(services.addin_folder, settings.values.Text(Item::kBaseFolder),
                                 settings.values.Text(Item::kLibraryFolder));
  settings.type_prefixes = settings::LoadTypePrefixTable(
      services.profiles, services.files, services.addin_folder,
      settings.values.Text(Item::kPrefixStandardsFile));
}

}  // namespace

Settings LoadSettings(const settings::SettingsServices& services, bool interactive) {
  Settings settings;
  settings.addin_folder = services.addin_folder;
  if (const Status seeded = SeedAddinFolder(services.files, services.addin_folder); !seeded) {
    services.ui.MessageBox(seeded.error(), platform::Buttons::kOk, platform::Icon::kExclamation,
                           platform::kAppTitle);
    settings.report.problems.push_back(seeded.error());
  }
  // A help book that cannot be written is no reason to stop the add-in.
  (void)InstallHelpBook(services.files, services.addin_folder);
  settings::LoadReport report = settings::LoadValueTable(settings.values, services, interactive);
  report.problems.insert(report.problems.begin(), settings.report.problems.begin(),
                         settings.report.problems.end());
  settings.report = std::move(report);
  LoadTables(settings, services);
  return settings;
}

void ReloadSettings(Settings& settings, const settings::SettingsServices& services) {
  settings.addin_folder = services.addin_folder;
  settings.report = settings::LoadValueTable(settings.values, services, false);
  LoadTables(settings, services);
}

}  // namespace tavrin::fragments
