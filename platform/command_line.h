// The program's arguments as UTF-8, whatever the system passes to main: on
// Windows main gets them in the ANSI code page, which loses characters that
// page lacks, so they are read again from the UTF-16 command line.
#pragma once

#include <string>
#include <vector>

namespace tavrin::platform {

// Every argument, the program's name first.
std::vector<std::string> Utf8Arguments(int argc, char** argv);

}  // namespace tavrin::platform
