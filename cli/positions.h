// The position options of the editing commands (--caret, --select, --lines)
// and the selection they give in a module.
#pragma once

#include <string>

#include <CLI/CLI.hpp>

#include "ide/object_model.h"

namespace tavrin::cli {

struct PositionOptions {
  std::string caret;   // L:C
  std::string select;  // L1:C1-L2:C2
  std::string lines;   // A-B or A
};

void AddPositionOptions(CLI::App& command, PositionOptions& options);
bool HasPosition(const PositionOptions& options);

// The selection that the options give, checked against the module; without
// a position option, the whole module. Raises UsageError.
ide::TextRange ResolvePosition(const PositionOptions& options, ide::ICodeModule& module);

}  // namespace tavrin::cli
