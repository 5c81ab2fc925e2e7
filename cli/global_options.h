// The options every command takes, and what they give the commands: the
// user (answers given up front or the terminal) and the IDE's options.
#pragma once

#include <deque>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "platform/terminal_ui.h"

namespace tavrin::cli {

struct GlobalOptions {
  std::string addin_dir;
  std::optional<int> tab_width;
  std::string host = "VBRUN";
  bool json = false;
  std::deque<platform::PresetAnswer> answers;  // in the order given
};

class GlobalOptionParser {
 public:
  explicit GlobalOptionParser(CLI::App& app);
  // Call after parsing.
  GlobalOptions Collect(const CLI::App& app) const;

 private:
  GlobalOptions options_;
  std::vector<std::string> answer_texts_;
  int yes_ = 0;
  int no_ = 0;
  int cancel_ = 0;
};

bool StandardInputIsTerminal();

}  // namespace tavrin::cli
