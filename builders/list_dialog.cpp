#include "builders/list_dialog.h"

#include <algorithm>

#include "base/text.h"

namespace tavrin::builders {

std::vector<std::string> FilterEntries(const std::vector<std::string>& entries,
                                       std::string_view filter) {
  const std::string wanted = ToLowerAscii(TrimBlanks(filter));
  std::vector<std::string> starting, holding;
  for (const std::string& entry : entries) {
    const std::string lower = ToLowerAscii(entry);
    const std::size_t at = lower.find(wanted);
    if (at == 0)
      starting.push_back(entry);
    else if (at != std::string::npos)
      holding.push_back(entry);
  }
  starting.insert(starting.end(), holding.begin(), holding.end());
  return starting;
}

ListDialog::ListDialog(std::string title, std::string prompt, std::vector<std::string> entries,
                       std::string placeholder, std::string initial)
    : title_(std::move(title)), entries_(std::move(entries)), placeholder_(std::move(placeholder)) {
  fields_.push_back(MakeField("prompt", FieldKind::kLabel, std::move(prompt)));
  fields_.push_back(MakeField(std::string(kListFilterId), FieldKind::kText, "&Find:"));
  fields_.push_back(MakeField(std::string(kListId), FieldKind::kList));
  List().rows = 12;
  Refilter();
  const auto& items = List().items;
  const auto found = std::find(items.begin(), items.end(), initial);
  List().selected = found != items.end() ? static_cast<int>(found - items.begin())
                    : items.empty()      ? -1
                                         : 0;
}

void ListDialog::Refilter() {
  Field& list = List();
  const std::string before =
      list.selected >= 0 && list.selected < static_cast<int>(list.items.size())
          ? list.items[list.selected]
          : "";
  list.items = FilterEntries(entries_, Filter().text);
  const bool typed = !TrimBlanks(Filter().text).empty();
  const int first_match = placeholder_.empty() ? 0 : 1;
  if (!placeholder_.empty()) list.items.insert(list.items.begin(), placeholder_);
  // Typing selects the best match, or the placeholder when nothing matches;
  // a cleared filter keeps the selection while it is still listed.
  const auto kept = std::find(list.items.begin(), list.items.end(), before);
  if (typed)
    list.selected = static_cast<int>(list.items.size()) > first_match ? first_match
                    : list.items.empty()                              ? -1
                                                                      : 0;
  else if (!before.empty() && kept != list.items.end())
    list.selected = static_cast<int>(kept - list.items.begin());
  else
    list.selected = list.items.empty() ? -1 : 0;
}

void ListDialog::TypeFilter(std::string text) {
  Filter().text = std::move(text);
  Refilter();
}

void ListDialog::Changed(std::string_view id) {
  if (id == kListFilterId) Refilter();
}

std::optional<Refusal> ListDialog::Accept() {
  const Field& list = List();
  int taken = list.selected;
  if (taken < 0 || taken >= static_cast<int>(list.items.size()))
    taken = list.items.size() == 1 ? 0 : -1;
  if (taken < 0) {
    if (!list.items.empty()) return Refusal{"Pick an entry of the list.", std::string(kListId)};
    if (entries_.empty()) return Refusal{"The list is empty.", std::string(kListId)};
    return Refusal{"No entry matches \"" + Filter().text + "\".", std::string(kListFilterId)};
  }
  choice_ = list.items[taken] == placeholder_ && !placeholder_.empty()
                ? std::string(TrimBlanks(Filter().text))
                : list.items[taken];
  return std::nullopt;
}

}  // namespace tavrin::builders
