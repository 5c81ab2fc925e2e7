// The common error report, and the guard every handler of the add-in runs
// in: whatever its body raises is shown to the user and never reaches the
// IDE.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "ide/object_model.h"
#include "platform/ui.h"

namespace tavrin::addin {

// Shows "Error in WHERE: DESCRIPTION". A user interface that fails too is
// left alone: nothing more can be done.
void ReportError(platform::Ui& ui, std::string_view where, std::string_view description) noexcept;

template <class Body>
void Guarded(platform::Ui& ui, std::string_view where, Body&& body) noexcept {
  try {
    body();
  } catch (const ide::Error& error) {
    ReportError(ui, where, "error " + std::to_string(error.number()) + ": " + error.what());
  } catch (const std::exception& error) {
    ReportError(ui, where, error.what());
  } catch (...) {
    ReportError(ui, where, "unknown error");
  }
}

}  // namespace tavrin::addin
