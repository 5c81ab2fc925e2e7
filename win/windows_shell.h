// The Windows shell: the user's temporary folder and opening a document with
// the program registered for it (a page in the default browser).
#pragma once

#include "platform/file_system.h"

namespace tavrin::win {

class WindowsShell : public platform::Shell {
 public:
  // With the trailing backslash, as GetTempPath gives it.
  std::string TempFolder() override;
  Status OpenDocument(std::string_view path) override;
};

}  // namespace tavrin::win
