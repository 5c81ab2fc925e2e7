// Exit statuses of the tool and the error that ends a command with status 2.
#pragma once

#include <stdexcept>

namespace tavrin::cli {

enum ExitStatus {
  kDone = 0,
  kProblemsFound = 1,  // the command ran and found problems
  kBadInput = 2,       // bad usage or bad input; nothing was written
};

// Bad usage or bad input: the message is shown as "tavrin: <message>".
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tavrin::cli
