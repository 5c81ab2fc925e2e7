// The per-user settings store kept in one file, for platforms without the
// language runtime's registry store. The file holds one "[app\section]"
// heading per section and "key=value" lines.
#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/settings_store.h"

namespace tavrin::platform {

class FileSettingsStore : public SettingsStore {
 public:
  FileSettingsStore(FileSystem& files, std::string path);

  std::string GetSetting(std::string_view app, std::string_view section,
                         std::string_view key, std::string_view default_value) override;
  bool SaveSetting(std::string_view app, std::string_view section, std::string_view key,
                   std::string_view value) override;
  void DeleteSetting(std::string_view app, std::string_view section,
                     std::string_view key) override;

 private:
  FileSystem& files_;
  std::string path_;
};

}  // namespace tavrin::platform
