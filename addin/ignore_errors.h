// The commands run expected-to-fail steps through ide::IgnoreErrors; it
// lives in ide/ so that the builders below the add-in layer use it too.
#pragma once

#include "ide/ignore_errors.h"

namespace tavrin::addin {

using ide::IgnoreErrors;

}  // namespace tavrin::addin
