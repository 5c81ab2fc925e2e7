// Runs one step whose failure is expected and harmless (the IDE raising an
// error for a line that is not there, a lookup that finds nothing): the error
// is dropped and the caller goes on with its next step.
#pragma once

#include <utility>

#include "ide/object_model.h"

namespace tavrin::ide {

// Returns false when the step raised an IDE error. Anything else (a bug, no
// memory, a question nobody can answer) still reaches the command's guard.
template <class Step>
bool IgnoreErrors(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (const Error&) {
    return false;
  }
}

}  // namespace tavrin::ide
