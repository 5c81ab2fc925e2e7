#include "platform/command_line.h"

namespace tavrin::platform {

// The arguments already are the bytes the user typed (UTF-8 in any sane
// locale), and are kept as they are.
std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  return std::vector<std::string>(argv, argv + argc);
}

}  // namespace tavrin::platform
