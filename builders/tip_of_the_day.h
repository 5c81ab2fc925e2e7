// The Tip of the Day window: one set of tips per builder, browsed with Next
// and Previous, and the "show at start-up" check box.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "builders/dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kTipDialogTitle = "Tip of the Day";

enum class TipSet { kStartup, kVariableBuilder, kCodeLineBuilder, kFragmentBuilder,
                    kProcedureBuilder };

// By the name the Help menu's entries pass: "Tavrin_Startup", "VarBuilder",
// "CodelineBuilder", "FragmentBuilder", "ProcBuilder".
std::optional<TipSet> TipSetOf(std::string_view name);
std::span<const std::string_view> TipsOf(TipSet set);

class TipOfTheDayDialog : public DialogModel {
 public:
  // `first` is taken modulo the set's size.
  TipOfTheDayDialog(TipSet set, int first, bool show_at_startup);

  std::string Title() const override { return std::string(kTipDialogTitle); }
  std::vector<Field>& Fields() override { return fields_; }
  void Pressed(std::string_view id, DialogHost& host) override;
  std::optional<Refusal> Accept() override { return std::nullopt; }

  int Index() const { return index_; }
  // The check box, however the window was closed.
  bool ShowAtStartup() const;

 private:
  void Show();

  std::span<const std::string_view> tips_;
  int index_ = 0;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
