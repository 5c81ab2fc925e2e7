// Runs the tavrin binary and captures what it writes and its exit status.
#pragma once

#include <string>
#include <vector>

namespace tavrin::testing {

struct ToolRun {
  int status = -1;
  std::string out;
  std::string err;
};

// Standard input is empty and not a terminal, as in CI.
ToolRun RunTool(const std::vector<std::string>& arguments, const std::string& scratch_folder);

}  // namespace tavrin::testing
