// The IDE's error number that an action raises, 0 when it raises none.
#pragma once

#include <functional>

#include "ide/object_model.h"

namespace tavrin::testing {

inline int IdeErrorNumber(const std::function<void()>& action) {
  try {
    action();
  } catch (const ide::Error& error) {
    return error.number();
  }
  return 0;
}

}  // namespace tavrin::testing
