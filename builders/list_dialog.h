// Picks one entry of a list. A filter box above the list narrows it as the
// user types: entries that start with the text first, then those that hold
// it, case ignored. An optional placeholder ("<New Label>") stays first and
// stands for the typed text itself, or for nothing when none is typed, so
// the user can go on typing in the code.
#pragma once

#include <string>
#include <vector>

#include "builders/dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kListFilterId = "filter";
inline constexpr std::string_view kListId = "list";

// The placeholders of the code-line commands' lists.
inline constexpr std::string_view kNewLabel = "<New Label>";
inline constexpr std::string_view kStartTyping = "<Start Typing>";
inline constexpr std::string_view kExpression = "<Expression>";

class ListDialog : public DialogModel {
 public:
  // `initial` is the entry selected at first; empty or absent: the first row.
  ListDialog(std::string title, std::string prompt, std::vector<std::string> entries,
             std::string placeholder = "", std::string initial = "");

  std::string Title() const override { return title_; }
  std::string HelpTopic() const override { return "code-lines.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  // After an accepted OK: the entry taken; for the placeholder, the typed
  // text (trimmed) or "".
  const std::string& Choice() const { return choice_; }
  // Types into the filter box, as the user would (a selection the command
  // found in the code).
  void TypeFilter(std::string text);

 private:
  Field& Filter() { return fields_[1]; }
  Field& List() { return fields_[2]; }
  void Refilter();

  std::string title_;
  std::vector<std::string> entries_;
  std::string placeholder_;
  std::vector<Field> fields_;
  std::string choice_;
};

// The entries that match a filter: those that start with it, then those
// that hold it elsewhere, each in list order; case ignored.
std::vector<std::string> FilterEntries(const std::vector<std::string>& entries,
                                       std::string_view filter);

}  // namespace tavrin::builders
