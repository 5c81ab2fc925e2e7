#include "tests/cli/tool_runner.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace tavrin::testing {
namespace {

std::string ShellQuoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments, const std::string& scratch_folder) {
  const std::string out_path = scratch_folder + "/.stdout";
  const std::string err_path = scratch_folder + "/.stderr";
  std::string command = ShellQuoted(TAVRIN_TOOL_PATH);
  for (const std::string& argument : arguments) command += " " + ShellQuoted(argument);
  command += " < /dev/null > " + ShellQuoted(out_path) + " 2> " + ShellQuoted(err_path);
  const int raw = std::system(command.c_str());
  ToolRun run;
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  run.out = ReadAll(out_path);
  run.err = ReadAll(err_path);
  return run;
}

}  // namespace tavrin::testing
