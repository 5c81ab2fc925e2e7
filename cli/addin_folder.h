// The add-in's folder of the tool: --addin-dir, else $TAVRIN_HOME, else the
// per-user folder.
#pragma once

#include <string>

#include "cli/global_options.h"

namespace tavrin::cli {

std::string AddinFolder(const GlobalOptions& globals);

}  // namespace tavrin::cli
