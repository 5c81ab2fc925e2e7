// The user's browser on Windows: the character set Internet Explorer assumes
// for pages that do not name one, read through its automation object.
#pragma once

#include <string>

#include "platform/browser.h"

namespace tavrin::win {

// What Western Windows assumes when the browser cannot be asked.
inline constexpr char kFallbackCharset[] = "windows-1252";

class WindowsBrowser : public platform::Browser {
 public:
  explicit WindowsBrowser(std::wstring prog_id = L"InternetExplorer.Application")
      : prog_id_(std::move(prog_id)) {}

  // Opens an empty page in a hidden browser, reads its document's default
  // character set and closes the browser again; "windows-1252" when any of
  // that fails or takes longer than a few seconds.
  std::string DefaultCharset() override;

 private:
  std::wstring prog_id_;
};

}  // namespace tavrin::win
