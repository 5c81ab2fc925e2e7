// Steps run "with errors ignored"; the helper lives with the IDE model so the
// scanners below the commands use the same one.
#pragma once

#include "ide/ignore_errors.h"

namespace tavrin::addin {

using ide::IgnoreErrors;

}  // namespace tavrin::addin
