// The user's web browser, as far as the HTML page needs it.
#pragma once

#include <string>

namespace tavrin::platform {

class Browser {
 public:
  virtual ~Browser() = default;
  // The character set the browser assumes for pages that do not say; empty
  // when it cannot be found out.
  virtual std::string DefaultCharset() = 0;
};

// A system without a browser to ask: Western Windows' own default.
class PortableBrowser : public Browser {
 public:
  std::string DefaultCharset() override { return "windows-1252"; }
};

}  // namespace tavrin::platform
