#include "toolwindows/tab_order.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "formtools/access_keys.h"

namespace tavrin::toolwindows {
namespace {

int Number(ide::IControl& control, std::string_view property) {
  if (!formtools::HasControlProperty(control, property)) return 0;
  const std::string text = control.Properties()->Item(property)->Value();
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
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
      stop.control = std::move(control);
      stops_.push_back(std::move(stop));
    }
  } catch (const ide::Error&) {
    // A designer that cannot be read lists the controls read so far.
  }
  std::stable_sort(stops_.begin(), stops_.end(), [](const TabStop& a, const TabStop& b) {
    return a.tab_index < b.tab_index;
  });
  // A container that takes no TabIndex is not listed: its children count as
  // the form's. A chain that loops (a broken form) stops at the form.
  for (TabStop& stop : stops_) {
    std::string container = stop.container;
    stop.container.clear();
    for (int depth = 0; !container.empty() && depth < int(stops_.size()); ++depth) {
      const auto found = std::find_if(stops_.begin(), stops_.end(),
                                      [&](const TabStop& s) { return s.name == container; });
      if (found == stops_.end()) break;
      if (depth == 0) stop.container = container;
      stop.depth = depth + 1;
      container = found->container;
    }
  }
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

using Children = std::map<std::string, std::vector<TabStop>>;

// The children of `container` ("" for the form) in rows, each followed by
// its own children. Each list is taken once, so a loop of containers ends.
void AppendInPositionOrder(Children& children, const std::string& container,
                           std::vector<TabStop>& ordered) {
  const auto found = children.find(container);
  if (found == children.end()) return;
  std::vector<TabStop> these = std::move(found->second);
  children.erase(found);
  OrderRows(these);
  for (TabStop& child : these) {
    const std::string name = child.name;
    ordered.push_back(std::move(child));
    AppendInPositionOrder(children, name, ordered);
  }
}

}  // namespace

void TabOrder::OrderByPosition() {
  Children children;
  for (TabStop& stop : stops_) children[stop.container].push_back(std::move(stop));
  std::vector<TabStop> ordered;
  ordered.reserve(stops_.size());
  AppendInPositionOrder(children, "", ordered);
  // Whatever the form's chain did not reach (a loop of containers) keeps
  // its order at the end.
  for (auto& [container, rest] : children)
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
