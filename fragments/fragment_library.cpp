#include "fragments/fragment_library.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "base/encoding.h"
#include "base/text.h"
#include "fragments/pseudo_root_path.h"
#include "settings/ini_file.h"

namespace tavrin::fragments {
namespace {

constexpr std::array<std::string_view, 15> kPlaceholders = {
    "AUTHOR",      "INITIALS",      "COMPANYNAME",     "COPYRIGHT",        "DATE",
    "TIME",        "DESCRIPTION",   "MODULENAME",      "PROCEDURENAME",    "PROCEDURETYPE",
    "HANDLEEXITLABEL", "HANDLEERRORLABEL", "ERRORHANDLEPROCEDURE", "PROJECTNAME", "MODULEHEADER"};

constexpr std::size_t kLongestName = 40;
constexpr int kDeepestFolder = 16;  // a link loop cannot hold the walk

bool IsNameStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool IsNameChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

// Calls `each(start, name)` for every "{Name}" mark of the text.
template <class Each>
void ForEachMark(std::string_view text, Each each) {
  for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    std::size_t end = at + 1;
    if (end >= text.size() || !IsNameStart(text[end])) continue;
    while (end < text.size() && IsNameChar(text[end])) ++end;
    if (end >= text.size() || text[end] != '}' || end - at - 1 > kLongestName) continue;
    const std::string_view name = text.substr(at + 1, end - at - 1);
    const std::string upper = ToUpperAscii(name);
    if (std::find(kPlaceholders.begin(), kPlaceholders.end(), upper) != kPlaceholders.end())
      continue;
    each(at, name);
  }
}

void Walk(const CodeFolders& folders, platform::FileSystem& files, const std::string& folder,
          int depth, FragmentTree& tree) {
  Result<std::vector<platform::FolderEntry>> listed = files.ListFolder(folder);
  if (!listed) {
    tree.problems.push_back(listed.error());
    return;
  }
  if (depth > kDeepestFolder) return;
  for (bool folders_first : {true, false}) {
    for (const platform::FolderEntry& entry : *listed) {
      if (entry.is_folder != folders_first || entry.name.empty() || entry.name[0] == '.')
        continue;
      FragmentEntry item;
      item.name = entry.name;
      item.path = JoinPath({folder, entry.name}, folders.Style());
      item.display = PseudoRootPath(folders, item.path);
      if (const std::string code = PseudoRootPath(folders, item.path, 1);
          code.starts_with("<code>"))
        item.include_name = code.substr(6);
      item.depth = depth;
      item.is_folder = entry.is_folder;
      tree.entries.push_back(item);
      if (entry.is_folder) Walk(folders, files, item.path, depth + 1, tree);
    }
  }
}

std::string WithoutExtension(std::string_view name) {
  const auto dot = name.rfind('.');
  return std::string(dot == std::string_view::npos ? name : name.substr(0, dot));
}

// The display path without its pseudo-root: "Headers\x.bas".
std::string_view InsideRoot(std::string_view display) {
  if (display.empty() || display.front() != '<') return display;
  const auto close = display.find('>');
  return close == std::string_view::npos ? display : display.substr(close + 1);
}

}  // namespace

FragmentTree ReadFragmentTree(const CodeFolders& folders, platform::FileSystem& files) {
  FragmentTree tree;
  for (int root : kLibraryRoots) {
    FragmentEntry entry;
    entry.name = std::string(PseudoRootNames()[static_cast<std::size_t>(root)]);
    entry.path = folders.CodeFolder(root);
    entry.display = entry.name;
    entry.is_folder = true;
    tree.entries.push_back(entry);
    Walk(folders, files, entry.path, 1, tree);
  }
  return tree;
}

std::optional<FragmentEntry> FindFragment(const FragmentTree& tree, std::string_view name) {
  const std::string wanted = ReplaceAll(name, "/", "\\");
  std::vector<const FragmentEntry*> by_file_name;
  for (const FragmentEntry& entry : tree.entries) {
    if (entry.is_folder) continue;
    if (EqualsIgnoreCase(entry.display, wanted) || EqualsIgnoreCase(InsideRoot(entry.display), wanted))
      return entry;
    if (EqualsIgnoreCase(entry.name, wanted) || EqualsIgnoreCase(WithoutExtension(entry.name), wanted))
      by_file_name.push_back(&entry);
  }
  if (by_file_name.size() == 1) return *by_file_name.front();
  return std::nullopt;
}

Result<std::string> ReadFragmentText(platform::FileSystem& files, std::string_view path) {
  Result<std::string> bytes = files.ReadFile(path);
  if (!bytes) return Error{bytes.error()};
  const std::string quoted = "'" + std::string(path) + "'";
  if (bytes->size() >= kLargestFragment)
    return Error{"The fragment " + quoted + " is 10 MB or larger; fragments are small code files."};
  if (bytes->find('\0') != std::string::npos)
    return Error{"The fragment " + quoted + " is not a text file."};
  const std::string text = DecodeSource(*bytes).text;
  std::vector<std::string> lines;
  for (std::string_view line : SplitAnyLineBreak(text)) lines.emplace_back(line);
  return JoinCrLf(lines);
}

std::vector<std::string> FragmentVariables(std::string_view text) {
  std::vector<std::string> names;
  ForEachMark(text, [&](std::size_t, std::string_view name) {
    const bool known = std::any_of(names.begin(), names.end(),
                                   [&](const std::string& each) { return EqualsIgnoreCase(each, name); });
    if (!known) names.emplace_back(name);
  });
  return names;
}

std::string FillVariables(std::string_view text, const VariableValues& values) {
  std::string result;
  std::size_t copied = 0;
  ForEachMark(text, [&](std::size_t at, std::string_view name) {
    const auto found = values.find(ToUpperAscii(name));
    if (found == values.end() || at < copied) return;
    result.append(text.substr(copied, at - copied));
    result += found->second;
    copied = at + name.size() + 2;
  });
  result.append(text.substr(copied));
  return result;
}

VariableValues ReadVariableSection(platform::ProfileFile& profiles, platform::FileSystem& files,
                                   const std::string& addin_folder, std::string_view section) {
  settings::C4_IniFile file(profiles, files, addin_folder);
  file.SetName(kVariablesFile);
  VariableValues values;
  const settings::C4_IniFileSection* found = file.Name().empty() ? nullptr : file.Item(section);
  if (!found || !found->Items()) return values;
  for (const auto& item : *found->Items()) values.emplace(ToUpperAscii(item->Key()), item->Value());
  return values;
}

Status RememberAnswers(platform::ProfileFile& profiles, platform::FileSystem& files,
                       const std::string& addin_folder, const VariableValues& answers,
                       const std::vector<std::string>& names) {
  settings::C4_IniFile file(profiles, files, addin_folder);
  file.SetName(kVariablesFile);
  if (file.Name().empty()) return Error{"the add-in's folder '" + addin_folder + "' does not exist"};
  try {
    for (const std::string& name : names) {
      const auto answer = answers.find(ToUpperAscii(name));
      if (answer == answers.end()) continue;
      file.SetValue(kLastAnswersSection, name, answer->second);
      file.Item(kLastAnswersSection)->Item(name)->Save();
    }
  } catch (const settings::IniSaveError& error) {
    return Error{std::string(error.what()) + ": " + error.reason()};
  }
  return {};
}

std::vector<std::string> FragmentReferences(platform::ProfileFile& profiles,
                                            platform::FileSystem& files,
                                            const std::string& addin_folder,
                                            const FragmentEntry& fragment) {
  settings::C4_IniFile file(profiles, files, addin_folder);
  file.SetName(kReferencesFile);
  const settings::C4_IniFileSection* section =
      file.Name().empty() ? nullptr : file.Item(kReferencesSection);
  std::vector<std::string> references;
  if (!section || !section->Items()) return references;
  for (const auto& item : *section->Items()) {
    const std::string key = ReplaceAll(item->Key(), "/", "\\");
    if (!EqualsIgnoreCase(key, fragment.display) && !EqualsIgnoreCase(key, InsideRoot(fragment.display)) &&
        !EqualsIgnoreCase(key, fragment.name))
      continue;
    for (const std::string& piece : settings::C4_IniFile::Split(item->Value(), ",")) {
      const std::string reference(TrimBlanks(piece));
      if (!reference.empty() && std::none_of(references.begin(), references.end(), [&](const std::string& each) {
            return EqualsIgnoreCase(each, reference);
          }))
        references.push_back(reference);
    }
  }
  return references;
}

Result<std::string> FragmentFileName(std::string_view typed) {
  const std::string name(TrimBlanks(typed));
  if (name.empty()) return Error{"Type a name for the fragment."};
  for (char c : name)
    if (std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos ||
        static_cast<unsigned char>(c) < 32)
      return Error{"A fragment name cannot hold " + std::string(1, c) + "."};
  if (name == "." || name == "..") return Error{"A fragment name cannot be " + name + "."};
  return name.find('.') == std::string::npos ? name + ".bas" : name;
}

Result<std::string> SaveFragment(platform::FileSystem& files, std::string_view folder,
                                 std::string_view name, std::string_view text,
                                 platform::PathStyle style) {
  Result<std::string> file_name = FragmentFileName(name);
  if (!file_name) return file_name;
  if (!files.FolderExists(folder))
    return Error{"The folder '" + std::string(folder) + "' does not exist."};
  const std::string path = JoinPath({std::string(folder), *file_name}, style);
  if (files.FileExists(path))
    return Error{"The fragment '" + path + "' exists already; choose another name."};
  std::string bytes(text);
  if (!bytes.empty() && !bytes.ends_with("\r\n")) bytes += "\r\n";
  if (Status written = files.WriteFile(path, bytes); !written) return Error{written.error()};
  return path;
}

Result<std::string> RenameFragment(platform::FileSystem& files, const FragmentEntry& fragment,
                                   std::string_view new_name, platform::PathStyle style) {
  if (fragment.is_folder) return Error{"Only fragment files are renamed here."};
  std::string typed(TrimBlanks(new_name));
  const auto dot = fragment.name.rfind('.');
  if (typed.find('.') == std::string::npos && dot != std::string::npos)
    typed += fragment.name.substr(dot);
  Result<std::string> name = FragmentFileName(typed);
  if (!name) return name;
  const std::string target = JoinPath({ParentFolder(fragment.path), *name}, style);
  if (Status moved = files.MoveFile(fragment.path, target); !moved) return Error{moved.error()};
  return target;
}

Result<std::string> MoveFragment(platform::FileSystem& files, const FragmentEntry& fragment,
                                 std::string_view folder, platform::PathStyle style) {
  if (fragment.is_folder) return Error{"Only fragment files are moved here."};
  if (!files.FolderExists(folder))
    return Error{"The folder '" + std::string(folder) + "' does not exist."};
  const std::string target = JoinPath({std::string(folder), fragment.name}, style);
  if (Status moved = files.MoveFile(fragment.path, target); !moved) return Error{moved.error()};
  return target;
}

Status DeleteFragment(platform::FileSystem& files, const FragmentEntry& fragment) {
  if (fragment.is_folder) return Error{"Only fragment files are deleted here."};
  return files.DeleteFile(fragment.path);
}

}  // namespace tavrin::fragments
