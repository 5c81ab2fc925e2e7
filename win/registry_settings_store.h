// The settings store of the Visual Basic runtime's GetSetting and SaveSetting:
// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<app>\<section>,
// one REG_SZ value per key. Values written here and by Visual Basic code are
// interchangeable.
#pragma once

#include "platform/settings_store.h"

namespace tavrin::win {

class RegistrySettingsStore : public platform::SettingsStore {
 public:
  std::string GetSetting(std::string_view app, std::string_view section,
                         std::string_view key, std::string_view default_value) override;
  bool SaveSetting(std::string_view app, std::string_view section, std::string_view key,
                   std::string_view value) override;
  void DeleteSetting(std::string_view app, std::string_view section,
                     std::string_view key) override;
};

}  // namespace tavrin::win
