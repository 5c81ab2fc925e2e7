#include "addin/error_report.h"

namespace tavrin::addin {

void ReportError(platform::Ui& ui, std::string_view where, std::string_view description) noexcept {
  try {
    ui.MessageBox("Error in " + std::string(where) + ": " + std::string(description),
                  platform::Buttons::kOk, platform::Icon::kCritical, platform::kAppTitle);
  } catch (...) {
  }
}

}  // namespace tavrin::addin
