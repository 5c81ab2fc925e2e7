#include "addin/connection_state.h"

#include "addin/code_pane.h"

namespace tavrin::addin {
ConnectionState::ConnectionState(const HostServices& services, std::shared_ptr<ide::IVbe> vbe,
                                 std::shared_ptr<ide::IAddIn> add_in)
    : services_(services),
      settings_dialog_(services_.settings_dialog,
                       {[this] { return SettingsServices(); }, [this] { return context_.dialogs; },
                        [this] { return IndentString(services_.ide_options); },
                        [this] { fragments::ReloadSettings(settings_, SettingsServices()); }}),
      vbe_(std::move(vbe)),
      add_in_(std::move(add_in)),
      context_{*vbe_,     services_.ui,     services_.ide_options,
               &settings_, &services_.files, services_.dialogs} {
  context_.profiles = &services_.profiles;
  context_.columns = services_.column_source;
  if (services_.type_library_reader) {
    type_libraries_.emplace(*services_.type_library_reader);
    context_.type_libraries = &*type_libraries_;
  }
}

settings::SettingsServices ConnectionState::SettingsServices() const {
  return {services_.profiles, services_.files, services_.ui,
          settings_dialog_, services_.addin_folder};
}

void ConnectionState::LoadSettings() {
  settings_ = fragments::LoadSettings(SettingsServices(), /*interactive=*/true);
}

void ConnectionState::ShowSettingsDialog() {
  settings_dialog_.ShowModal();
  fragments::ReloadSettings(settings_, SettingsServices());
}

void ConnectionState::SaveSetting(settings::Item item, settings::SettingValue value) {
  if (const Status saved = settings::SaveItem(settings_.values, SettingsServices(), item,
                                              std::move(value));
      !saved)
    services_.ui.MessageBox(saved.error(), platform::Buttons::kOk, platform::Icon::kExclamation,
                            platform::kAppTitle);
}

std::string ConnectionState::CodeRoot() const { return settings_.folders.CodeFolder(1); }

bool ConnectionState::CodeExplorerVisible() const {
  return settings_.YesNo(settings::Item::kViewCodeExplorerWindow);
}

bool ConnectionState::ReadTestingFlag() {
  testing = services_.files.FileExists(
      fragments::JoinPath({CodeRoot(), std::string(kTestingFile)}, settings_.folders.Style()));
  return testing;
}

}  // namespace tavrin::addin
