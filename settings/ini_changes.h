// Writing a set of changed keys into their INI files as one step: each
// file opened once with the INI model, every change of it set, and the file
// saved once. Only the changed lines are written, so every other line of
// the files keeps its bytes. All or nothing: when a file refuses (read-only,
// its folder gone), the files already written are put back as they were.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/profile_file.h"

namespace tavrin::settings {

struct IniChange {
  std::string file;  // as the model names it: "tvrusr.ini", "\\tvrtp.ini"
  std::string section;
  std::string key;
  std::string text;
};

struct IniChangesRefused {
  std::size_t change = 0;  // the first change of the file that refused
  std::string message;     // "Unable to save INI file section '...'" and why
};

// Nullopt when every change was written.
std::optional<IniChangesRefused> SaveIniChanges(const std::vector<IniChange>& changes,
                                                platform::ProfileFile& profiles,
                                                platform::FileSystem& files,
                                                const std::string& addin_folder);

}  // namespace tavrin::settings
