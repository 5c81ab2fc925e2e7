#include "ide/memory/control_names.h"

#include <charconv>
#include <map>
#include <optional>

#include "base/text.h"

namespace tavrin::ide::memory {
namespace {

std::string ValueOf(const std::string& line, const PropertyLine& parsed) {
  return PropertyValueText(
      std::string_view(line).substr(parsed.value_begin, parsed.value_end - parsed.value_begin));
}

// The n of a key "Tab(n).Control(i)"; nothing for any other key, such as
// "Tab(n).Control(i).Enabled" or "Tab(n).ControlCount".
std::optional<int> ListedTab(std::string_view key) {
  if (!StartsWithIgnoreCase(key, "Tab(")) return std::nullopt;
  int tab = -1;
  const char* end = key.data() + key.size();
  const auto [after_tab, error] = std::from_chars(key.data() + 4, end, tab);
  if (error != std::errc() || tab < 0) return std::nullopt;
  std::string_view rest(after_tab, std::size_t(end - after_tab));
  if (!StartsWithIgnoreCase(rest, ").Control(")) return std::nullopt;
  rest.remove_prefix(10);
  int index = -1;
  const auto [after_index, index_error] = std::from_chars(rest.data(), rest.data() + rest.size(), index);
  if (index_error != std::errc() || std::string_view(after_index, std::size_t(rest.data() + rest.size() - after_index)) != ")")
    return std::nullopt;
  return tab;
}

}  // namespace

std::string ControlDisplayName(const std::vector<PhysicalLine>& header,
                               const ControlLayout& control) {
  for (std::size_t line : control.property_lines) {
    const auto parsed = ParsePropertyLine(header[line].text);
    if (!parsed || !EqualsIgnoreCase(parsed->key, "Index")) continue;
    const std::string index = ValueOf(header[line].text, *parsed);
    if (!index.empty() && index != "-1") return control.name + "(" + index + ")";
  }
  return control.name;
}

void AssignNamesAndTabs(const std::vector<PhysicalLine>& header,
                        std::vector<ControlLayout>& controls) {
  for (ControlLayout& control : controls) control.display_name = ControlDisplayName(header, control);
  // Per container with tab lists: the listed names (lower case) and their tab.
  std::map<int, std::map<std::string, int>> listed;
  for (std::size_t c = 0; c < controls.size(); ++c) {
    for (std::size_t line : controls[c].property_lines) {
      const auto parsed = ParsePropertyLine(header[line].text);
      if (!parsed) continue;
      if (const auto tab = ListedTab(parsed->key))
        listed[int(c)].emplace(ToLowerAscii(ValueOf(header[line].text, *parsed)), *tab);
    }
  }
  if (listed.empty()) return;
  for (ControlLayout& control : controls) {
    const auto names = listed.find(control.container);
    if (names == listed.end()) continue;
    const auto found = names->second.find(ToLowerAscii(control.display_name));
    if (found != names->second.end()) control.tab = found->second;
  }
}

}  // namespace tavrin::ide::memory
