// The fragment library: the files of the code folders as a tree, reading a
// fragment (text files under 10 MB only), its fragment variables ("{Name}"
// that no template placeholder takes), the values "tvrvars.ini" gives them
// and the library references "tvrrefra.ini" records for it. Everything is
// a plain file, so users keep the library under version control or share
// it on a network folder.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "fragments/code_folders.h"
#include "platform/file_system.h"
#include "platform/profile_file.h"

namespace tavrin::fragments {

inline constexpr std::size_t kLargestFragment = 10u << 20;  // refused from here on
inline constexpr std::string_view kVariablesFile = "tvrvars.ini";
inline constexpr std::string_view kVariablesSection = "Variables";
inline constexpr std::string_view kLastAnswersSection = "Last Answers";
inline constexpr std::string_view kReferencesFile = "tvrrefra.ini";
inline constexpr std::string_view kReferencesSection = "fragments/reference";

struct FragmentEntry {
  std::string name;     // the file's or folder's name; a code folder's pseudo-root
  std::string path;     // in the file system's form
  std::string display;  // as the settings write it: "<fragments>Headers\x.bas"
  // The name an include directive gives the file: its path below the code
  // root ("Fragments\Loops\x.bas"); empty outside the code root.
  std::string include_name;
  int depth = 0;        // 0: one of the code folders itself
  bool is_folder = false;
};

struct FragmentTree {
  std::vector<FragmentEntry> entries;  // each folder before what it holds
  std::vector<std::string> problems;   // folders that could not be read
};

// The code folders shown to the user, in this order.
inline constexpr std::array<int, 4> kLibraryRoots = {3, 2, 4, 5};  // fragments, library,
                                                                  // classes, templates

// Walks the fragments, library, classes and templates folders: sub-folders
// first, then files, each by name. A folder that cannot be read (a network
// share that is gone) is kept, empty, with a problem that names it.
FragmentTree ReadFragmentTree(const CodeFolders& folders, platform::FileSystem& files);

// The entry named by its display path, its path inside a code folder, or a
// file name (with or without extension) that only one file has.
std::optional<FragmentEntry> FindFragment(const FragmentTree& tree, std::string_view name);

// The fragment's text with CR LF line breaks; refused with a message for a
// file of 10 MB or more or one that is not text (a NUL byte).
Result<std::string> ReadFragmentText(platform::FileSystem& files, std::string_view path);

// The names of the "{Name}" marks of a text, in order, each once (case
// ignored); template placeholders and includes are not variables.
std::vector<std::string> FragmentVariables(std::string_view text);

using VariableValues = std::map<std::string, std::string, std::less<>>;  // upper-cased names

// Every "{Name}" with a value replaced (names matched without regard to case).
std::string FillVariables(std::string_view text, const VariableValues& values);

// A section of "tvrvars.ini": [Variables] fixed values, [Last Answers] the
// user's last answers. Of duplicate keys the first counts.
VariableValues ReadVariableSection(platform::ProfileFile& profiles, platform::FileSystem& files,
                                   const std::string& addin_folder, std::string_view section);
Status RememberAnswers(platform::ProfileFile& profiles, platform::FileSystem& files,
                       const std::string& addin_folder, const VariableValues& answers,
                       const std::vector<std::string>& names);

// The references "tvrrefra.ini" records for a fragment: keys are display
// paths or file names, values comma-separated reference names.
std::vector<std::string> FragmentReferences(platform::ProfileFile& profiles,
                                            platform::FileSystem& files,
                                            const std::string& addin_folder,
                                            const FragmentEntry& fragment);

// A fragment file name the user typed: refused when empty, holding a path
// separator or a character no file name takes; ".bas" added without an
// extension.
Result<std::string> FragmentFileName(std::string_view typed);

// Writes `text` as the new fragment file `name` (see FragmentFileName) in
// `folder`; an existing file is refused. Answers the file's path.
Result<std::string> SaveFragment(platform::FileSystem& files, std::string_view folder,
                                 std::string_view name, std::string_view text,
                                 platform::PathStyle style);

// Renames a fragment file in its folder (the old extension stays when the
// new name has none); moves it into another folder; deletes it. An
// existing target is refused. Answer the new path.
Result<std::string> RenameFragment(platform::FileSystem& files, const FragmentEntry& fragment,
                                   std::string_view new_name, platform::PathStyle style);
Result<std::string> MoveFragment(platform::FileSystem& files, const FragmentEntry& fragment,
                                 std::string_view folder, platform::PathStyle style);
Status DeleteFragment(platform::FileSystem& files, const FragmentEntry& fragment);

}  // namespace tavrin::fragments
