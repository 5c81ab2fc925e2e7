#include "settings/ini_changes.h"

#include <algorithm>

#include "base/text.h"
#include "settings/ini_file.h"

namespace tavrin::settings {
namespace {

// A file's bytes before it was written, to put back.
struct Snapshot {
  std::string path;
  std::optional<std::string> bytes;  // none: the file did not exist
};

void Restore(const std::vector<Snapshot>& snapshots, platform::FileSystem& files) {
  for (const Snapshot& snapshot : snapshots) {
    if (snapshot.bytes)
      (void)files.WriteFile(snapshot.path, *snapshot.bytes);
    else
      (void)files.DeleteFile(snapshot.path);
  }
}

}  // namespace

std::optional<IniChangesRefused> SaveIniChanges(const std::vector<IniChange>& changes,
                                                platform::ProfileFile& profiles,
                                                platform::FileSystem& files,
                                                const std::string& addin_folder) {
  // The files in the order first met, each with the changes it takes.
  std::vector<std::vector<std::size_t>> by_file;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const auto same = std::find_if(by_file.begin(), by_file.end(), [&](const auto& group) {
      return EqualsIgnoreCase(changes[group.front()].file, changes[i].file);
    });
    if (same == by_file.end())
      by_file.push_back({i});
    else
      same->push_back(i);
  }

  std::vector<Snapshot> written;
  for (const std::vector<std::size_t>& group : by_file) {
    const IniChange& first = changes[group.front()];
    C4_IniFile file(profiles, files, addin_folder);
    file.SetName(first.file);
    if (file.Name().empty()) {
      Restore(written, files);
      return IniChangesRefused{group.front(), "Unable to save INI file section '" +
                                                  first.section + "'\r\nthe folder of '" +
                                                  first.file + "' does not exist"};
    }
    Snapshot snapshot{file.Name(), std::nullopt};
    if (files.FileExists(snapshot.path)) {
      Result<std::string> bytes = files.ReadFile(snapshot.path);
      if (!bytes) {
        Restore(written, files);
        return IniChangesRefused{group.front(), "Unable to save INI file section '" +
                                                    first.section + "'\r\n" + bytes.error()};
      }
      snapshot.bytes = std::move(*bytes);
    }
    for (std::size_t i : group) file.SetValue(changes[i].section, changes[i].key, changes[i].text);
    written.push_back(std::move(snapshot));
    // The file's save: the changed pairs only, each into its own line.
    try {
      for (std::size_t i : group)
        file.Item(changes[i].section)->Item(changes[i].key)->Save();
    } catch (const IniSaveError& error) {
      Restore(written, files);
      return IniChangesRefused{group.front(),
                               std::string(error.what()) + "\r\n" + error.reason()};
    }
  }
  return std::nullopt;
}

}  // namespace tavrin::settings
