#include "platform/command_line.h"

#include "win/win_support.h"

#include <shellapi.h>

namespace tavrin::platform {

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  int count = 0;
  LPWSTR* wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (!wide) return std::vector<std::string>(argv, argv + argc);
  const win::UniqueLocalMemory owner(wide);
  std::vector<std::string> arguments;
  arguments.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) arguments.push_back(win::WideToUtf8(wide[i]));
  return arguments;
}

}  // namespace tavrin::platform
