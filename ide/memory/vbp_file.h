// The parts of a .vbp project file that the in-memory IDE needs: the
// project's name and the files of its components.
#pragma once

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

// The project file's text with a member line ("Class=clsOrder; clsOrder.cls")
// added below the last member line of the project section (or at its end),
// in the file's own line breaks.
std::string AddVbpMember(std::string_view text, std::string_view key, std::string_view name,
                         std::string_view path);

// A member path relative to the folder of the .vbp file.
std::string ResolveMemberPath(std::string_view vbp_path, std::string_view member);

}  // namespace tavrin::ide::memory
