// The About box: the product, its version, its licence and its credits.
#pragma once

#include <string>
#include <vector>

#include "builders/dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kAboutDialogTitle = "About Tavrin";

class AboutDialog : public DialogModel {
 public:
  AboutDialog();
  std::string Title() const override { return std::string(kAboutDialogTitle); }
  bool HasCancel() const override { return false; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<Refusal> Accept() override { return std::nullopt; }

 private:
  std::vector<Field> fields_;
};

// "Tavrin 0.1.0", from the build's version.
std::string ProductAndVersion();
// The About box as one text, for a host that shows no dialogs.
std::string AboutText();

}  // namespace tavrin::builders
