// The code lines of a module, one string each, for comparing in tests.
#pragma once

#include <string>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::testing {

inline std::vector<std::string> CodeLines(ide::ICodeModule& module) {
  std::vector<std::string> lines;
  for (int i = 1; i <= module.CountOfLines(); ++i) lines.push_back(module.Lines(i, 1));
  return lines;
}

}  // namespace tavrin::testing
