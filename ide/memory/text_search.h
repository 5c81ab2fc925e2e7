// Find over the lines of a code module, with the IDE's options.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::ide::memory {

// Searches `lines` (the module's code lines) for `target` within `range`,
// as CodeModule.Find does; on a match sets `range` to it and returns true.
bool FindInLines(const std::vector<std::string_view>& lines, std::string_view target,
                 TextRange& range, const FindOptions& options);

}  // namespace tavrin::ide::memory
