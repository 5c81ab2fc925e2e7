// The parts of a .vbp project file that the in-memory IDE needs: the
// project's name, the files of its components and its references.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::ide::memory {

// A `Reference=` line (a type library `*\G{GUID}#maj.min#lcid#path#desc`,
// or a project `*\Apath`) or an `Object=` line (a control library
// `{GUID}#maj.min#lcid; file`). Versions are hexadecimal, as the IDE writes
// them.
struct VbpReference {
  bool is_project = false;
  bool is_control = false;  // from an Object= line
  std::string guid;
  int major = 0;
  int minor = 0;
  std::string path;  // as written
  std::string description;
};

struct VbpFile {
  std::string name;                  // Name="Project1"; empty when absent
  std::vector<std::string> members;  // component files, as written, '/' separated
  std::vector<VbpReference> references;
};

// Reads `Module=`, `Class=`, `Form=`, `UserControl=`, `PropertyPage=`,
// `UserDocument=` and `Designer=` lines of the project section (before the
// first [section]).
VbpFile ParseVbp(std::string_view text);

// The Reference= or Object= line of a reference.
std::string VbpReferenceLine(const VbpReference& reference);

// The project file with its Reference= and Object= lines replaced by
// `lines` (in place of the first one, else after the first line); every
// other byte kept.
std::string ReplaceVbpReferences(std::string_view vbp_bytes, const std::vector<std::string>& lines);

// The project file's text with a member line ("Class=clsOrder; clsOrder.cls")
// added below the last member line of the project section (or at its end),
// in the file's own line breaks.
std::string AddVbpMember(std::string_view text, std::string_view key, std::string_view name,
                         std::string_view path);

// The project file with the name of each `Module=Name; path` and
// `Class=Name; path` line set to name_of(the member's resolved path), where
// that is not empty; every other byte as it was. A component renamed in the
// IDE is saved so.
std::string RenameVbpMembers(std::string_view text, std::string_view vbp_path,
                             const std::function<std::string(std::string_view)>& name_of);

// A member path relative to the folder of the .vbp file.
std::string ResolveMemberPath(std::string_view vbp_path, std::string_view member);

}  // namespace tavrin::ide::memory
