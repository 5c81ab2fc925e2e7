#include "platform/shell_posix.h"

#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

extern char** environ;

namespace tavrin::platform {

std::string PosixShell::TempFolder() {
  const char* folder = std::getenv("TMPDIR");
  return folder && *folder ? folder : "/tmp";
}

Status PosixShell::OpenDocument(std::string_view path) {
  std::string program = "xdg-open";
  std::string argument(path);
  char* argv[] = {program.data(), argument.data(), nullptr};
  pid_t child = 0;
  if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, argv, environ) != 0)
    return Error{"cannot open '" + argument + "': xdg-open is not installed"};
  int status = 0;
  if (waitpid(child, &status, 0) < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return Error{"cannot open '" + argument + "': xdg-open found no program for it"};
  return {};
}

}  // namespace tavrin::platform
