// The checks a setting's text passes before anything is written. The
// settings dialog and `tavrin settings set` use these, so the user reads
// the same message in both.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/ui.h"
#include "settings/catalogue.h"

namespace tavrin::settings {

// Why `text` cannot be the value of a setting of that key and type
// ("'Key' takes a whole number, not 'x'"); nullopt when it can. The empty
// text is always allowed: it keeps the default of a converted type.
std::optional<std::string> TextProblem(std::string_view key, IniItemType type,
                                       std::string_view text);

// The same for a catalogue item; the auto-prefix mode takes 0, 1 or 2.
std::optional<std::string> SettingTextProblem(Item item, std::string_view text);

// The value a checked text is stored as: True/False for yes/no, a number
// for whole numbers, the text otherwise.
SettingValue SettingValueOf(Item item, std::string_view text);

// A folder setting whose folder (resolved) does not exist: the user is
// asked whether to create it. nullopt when the folder exists or was
// created; otherwise the message to show.
std::optional<std::string> CheckFolderSetting(std::string_view key, const std::string& folder,
                                              platform::FileSystem& files, platform::Ui& ui);

}  // namespace tavrin::settings
