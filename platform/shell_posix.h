// The shell of a POSIX desktop: $TMPDIR and xdg-open.
#pragma once

#include "platform/file_system.h"

namespace tavrin::platform {

class PosixShell : public Shell {
 public:
  std::string TempFolder() override;
  Status OpenDocument(std::string_view path) override;
};

}  // namespace tavrin::platform
