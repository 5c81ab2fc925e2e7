// The parts of a .vbp project file that the in-memory IDE needs: the
// project's name and the files of its components.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::ide::memory {

struct VbpFile {
  std::string name;                  // Name="Project1"; empty when absent
  std::vector<std::string> members;  // component files, as written, '/' separated
};

// Reads `Module=`, `Class=`, `Form=`, `UserControl=`, `PropertyPage=`,
// `UserDocument=` and `Designer=` lines of the project section (before the
// first [section]).
VbpFile ParseVbp(std::string_view text);

// The project file with the name of each `Module=Name; path` and
// `Class=Name; path` line set to name_of(the member's resolved path), where
// that is not empty; every other byte as it was. A component renamed in the
// IDE is saved so.
std::string RenameVbpMembers(std::string_view text, std::string_view vbp_path,
                             const std::function<std::string(std::string_view)>& name_of);

// A member path relative to the folder of the .vbp file.
std::string ResolveMemberPath(std::string_view vbp_path, std::string_view member);

}  // namespace tavrin::ide::memory
