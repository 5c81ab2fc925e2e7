#include "toolwindows/tab_order.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "base/text.h"
#include "formtools/access_keys.h"
#include "ide/control_tab.h"
#include "ide/ignore_errors.h"

namespace tavrin::toolwindows {
namespace {

// Controls of hidden tabs stand about 75,000 twips left of their place.
constexpr int kHiddenLeft = -40000;

int Number(ide::IControl& control, std::string_view property) {
  if (!formtools::HasControlProperty(control, property)) return 0;
  const std::string text = control.Properties()->Item(property)->Value();
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// "&Address" as the tab shows it: "Address".
std::string WithoutAccessKey(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    text += caption[i];
  }
  return text;
}

}  // namespace

TabOrder::TabOrder(ide::IDesigner& designer) {
  try {
    const auto controls = designer.VBControls();
    for (int i = 1; i <= controls->Count(); ++i) {
      auto control = controls->Item(i);
      if (!formtools::HasControlProperty(*control, "TabIndex")) continue;
      TabStop stop;
      stop.name = formtools::ControlDisplayName(*control);
      stop.tab_index = Number(*control, "TabIndex");
      stop.left = Number(*control, "Left");
      stop.top = Number(*control, "Top");
      stop.height = Number(*control, "Height");
      stop.container = control->ContainerName();
      if (auto* tab = dynamic_cast<ide::IControlTab*>(control.get())) stop.tab = tab->ContainerTab();
      ReadTabs(*control, stop.name);
      stop.control = std::move(control);
      stops_.push_back(std::move(stop));
    }
  } catch (const ide::Error&) {
    // A designer that cannot be read lists the controls read so far.
  }
  std::stable_sort(stops_.begin(), stops_.end(), [](const TabStop& a, const TabStop& b) {
    return a.tab_index < b.tab_index;
  });
  PlaceInContainers();
}

// A tabbed container's tabs: each one's caption ("TabCaption(n)" where the
// host lists it, else the current tab's Caption) and the current one.
void TabOrder::ReadTabs(ide::IControl& control, const std::string& name) {
  ide::IgnoreErrors([&] {
    if (!formtools::HasControlProperty(control, "Tabs")) return;
    Tabs tabs;
    const int count = std::clamp(Number(control, "Tabs"), 0, formtools::kMaxTabs);
    tabs.current = Number(control, "Tab");
    for (int n = 0; n < count; ++n) {
      const std::string key = "TabCaption(" + std::to_string(n) + ")";
      std::string caption;
      if (formtools::HasControlProperty(control, key))
        caption = control.Properties()->Item(key)->Value();
      else if (n == tabs.current && formtools::HasControlProperty(control, "Caption"))
        caption = control.Properties()->Item("Caption")->Value();
      tabs.captions.push_back(std::move(caption));
    }
    tabbed_[name] = std::move(tabs);
  });
}

// Keeps the containers that are stops, with the tab of each child of a
// tabbed one, and sets each stop's depth. One pass with a map: a form of
// 10,000 controls stays fast, and a loop of containers (a broken form)
// ends at the form.
void TabOrder::PlaceInContainers() {
  std::unordered_map<std::string, std::size_t> by_name;
  for (std::size_t i = 0; i < stops_.size(); ++i) by_name.try_emplace(stops_[i].name, i);
  for (TabStop& stop : stops_) {
    if (stop.container.empty() || !by_name.contains(stop.container)) {
      // A container that takes no TabIndex is not listed: its children
      // count as the form's.
      stop.container.clear();
      stop.tab = kNoTab;
      continue;
    }
    const auto tabs = tabbed_.find(stop.container);
    if (tabs == tabbed_.end()) {
      stop.tab = kNoTab;
    } else if (stop.tab < 0) {
      // The host names no tab: the current one shows its controls in place.
      stop.tab = stop.left > kHiddenLeft ? tabs->second.current : kHiddenTab;
    }
  }
  // A loop of containers (a broken form) is cut where the walk meets it
  // again: that stop goes on the form.
  std::vector<char> state(stops_.size(), 0);  // 0 unseen, 1 on the walk, 2 done
  std::vector<std::size_t> path;
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    for (std::size_t at = i; state[at] == 0;) {
      state[at] = 1;
      path.push_back(at);
      if (stops_[at].container.empty()) break;
      const std::size_t up = by_name.at(stops_[at].container);
      if (state[up] == 1) {
        stops_[at].container.clear();
        stops_[at].tab = kNoTab;
        break;
      }
      at = up;
    }
    for (std::size_t at : path) state[at] = 2;
    path.clear();
  }
  // Depths, each container's worked out once.
  std::vector<int> depth(stops_.size(), -1);
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    std::size_t at = i;
    while (depth[at] < 0 && !stops_[at].container.empty()) {
      path.push_back(at);
      at = by_name.at(stops_[at].container);
    }
    if (depth[at] < 0) depth[at] = 0;  // on the form
    for (auto step = path.rbegin(); step != path.rend(); ++step) {
      const TabStop& stop = stops_[*step];
      depth[*step] = depth[at] + (stop.tab == kNoTab ? 1 : 2);
      at = *step;
    }
    path.clear();
  }
  for (std::size_t i = 0; i < stops_.size(); ++i) stops_[i].depth = depth[i];
}

std::string TabOrder::TabCaption(const TabStop& stop) const {
  if (stop.tab == kNoTab) return {};
  if (stop.tab == kHiddenTab) return stop.container + " - other tabs";
  std::string text = stop.container + " - Tab " + std::to_string(stop.tab);
  const auto tabs = tabbed_.find(stop.container);
  if (tabs != tabbed_.end() && std::size_t(stop.tab) < tabs->second.captions.size()) {
    const std::string caption = WithoutAccessKey(tabs->second.captions[std::size_t(stop.tab)]);
    if (!caption.empty()) text += ": " + caption;
  }
  return text;
}

std::vector<TabOrderLine> TabOrder::Lines() const {
  std::unordered_map<std::string, std::size_t> by_name;
  for (std::size_t i = 0; i < stops_.size(); ++i) by_name.try_emplace(stops_[i].name, i);
  // Whether the stop at `at`, or a container it sits in, is in that group.
  const auto in_group = [&](std::size_t at, const std::string& container, int tab) {
    for (std::size_t steps = 0; steps <= stops_.size(); ++steps) {
      const TabStop& stop = stops_[at];
      if (stop.tab == tab && stop.container == container) return true;
      const auto up = by_name.find(stop.container);
      if (stop.container.empty() || up == by_name.end()) return false;
      at = up->second;
    }
    return false;
  };
  std::vector<TabOrderLine> lines;
  lines.reserve(stops_.size());
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    const TabStop& stop = stops_[i];
    if (stop.tab != kNoTab && (i == 0 || !in_group(i - 1, stop.container, stop.tab)))
      lines.push_back({TabOrderLine::kCaption, TabCaption(stop), stop.depth - 1});
    lines.push_back({i, stop.name, stop.depth});
  }
  return lines;
}

bool TabOrder::MoveUp(std::size_t position) {
  if (position == 0 || position >= stops_.size()) return false;
  std::swap(stops_[position - 1], stops_[position]);
  return true;
}

bool TabOrder::MoveDown(std::size_t position) {
  if (position + 1 >= stops_.size()) return false;
  std::swap(stops_[position], stops_[position + 1]);
  return true;
}

namespace {

void OrderRows(std::vector<TabStop>& stops) {
  std::stable_sort(stops.begin(), stops.end(),
                   [](const TabStop& a, const TabStop& b) { return a.top < b.top; });
  for (auto row = stops.begin(); row != stops.end();) {
    const int row_end = row->top + std::max(row->height, 1) / 2;
    auto next = std::find_if(row, stops.end(), [&](const TabStop& s) { return s.top > row_end; });
    if (next == row) ++next;
    std::stable_sort(row, next, [](const TabStop& a, const TabStop& b) { return a.left < b.left; });
    row = next;
  }
}

}  // namespace

void TabOrder::OrderByPosition() {
  // The stops by (container, tab): a container's own children first, then
  // tab by tab, the hidden tabs last (kNoTab < 0 < ... < kHiddenTab).
  std::map<std::pair<std::string, int>, std::vector<TabStop>> groups;
  for (TabStop& stop : stops_) groups[{stop.container, stop.tab}].push_back(std::move(stop));
  std::vector<TabStop> ordered;
  ordered.reserve(stops_.size());
  // Runs still to place, each reversed so that its next stop is at the
  // back; a stack rather than recursion, so deep nesting cannot overflow.
  std::vector<std::vector<TabStop>> pending;
  const auto open = [&](const std::string& container) {
    std::vector<std::vector<TabStop>> runs;
    for (auto group = groups.lower_bound({container, INT_MIN});
         group != groups.end() && group->first.first == container; group = groups.erase(group)) {
      OrderRows(group->second);
      std::reverse(group->second.begin(), group->second.end());
      runs.push_back(std::move(group->second));
    }
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) pending.push_back(std::move(*run));
  };
  open("");
  while (!pending.empty()) {
    if (pending.back().empty()) {
      pending.pop_back();
      continue;
    }
    TabStop stop = std::move(pending.back().back());
    pending.back().pop_back();
    const std::string name = stop.name;
    ordered.push_back(std::move(stop));
    open(name);
  }
  // Whatever the form's chain did not reach keeps its order at the end.
  for (auto& [key, rest] : groups)
    for (TabStop& stop : rest) ordered.push_back(std::move(stop));
  stops_ = std::move(ordered);
}

int TabOrder::Apply() {
  int written = 0;
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    TabStop& stop = stops_[i];
    // Read again: the IDE moves the other controls up when one takes a
    // TabIndex, so the values read at first may be stale.
    try {
      stop.tab_index = Number(*stop.control, "TabIndex");
      if (stop.tab_index == int(i)) continue;
      stop.control->Properties()->Item("TabIndex")->SetValue(std::to_string(i));
      stop.tab_index = int(i);
      ++written;
    } catch (const ide::Error&) {
    }
  }
  return written;
}

}  // namespace tavrin::toolwindows
