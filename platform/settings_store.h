// The per-user key-value store of the IDE's language (GetSetting and
// SaveSetting): values by application, section and key, all text.
#pragma once

#include <string>
#include <string_view>

namespace tavrin::platform {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual std::string GetSetting(std::string_view app, std::string_view section,
                                 std::string_view key,
                                 std::string_view default_value) = 0;
  // Returns false when the value could not be stored.
  virtual bool SaveSetting(std::string_view app, std::string_view section,
                           std::string_view key, std::string_view value) = 0;
  virtual void DeleteSetting(std::string_view app, std::string_view section,
                             std::string_view key) = 0;
};

}  // namespace tavrin::platform
