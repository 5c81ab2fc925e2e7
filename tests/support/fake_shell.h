// The shell in tests: a fixed temporary folder and a record of the documents
// and pages opened.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace tavrin::testing {

class FakeShell : public platform::Shell {
 public:
  std::vector<std::string> opened;

  std::string TempFolder() override { return "/tmp/"; }
  Status OpenDocument(std::string_view path) override {
    opened.emplace_back(path);
    return {};
  }
};

}  // namespace tavrin::testing
