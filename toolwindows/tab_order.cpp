#include "toolwindows/tab_order.h"

#include <algorithm>
#include <charconv>

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
      stop.control = std::move(control);
      stops_.push_back(std::move(stop));
    }
  } catch (const ide::Error&) {
    // A designer that cannot be read lists the controls read so far.
  }
  std::stable_sort(stops_.begin(), stops_.end(), [](const TabStop& a, const TabStop& b) {
    return a.tab_index < b.tab_index;
  });
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

void TabOrder::OrderByPosition() {
  std::stable_sort(stops_.begin(), stops_.end(),
                   [](const TabStop& a, const TabStop& b) { return a.top < b.top; });
  for (auto row = stops_.begin(); row != stops_.end();) {
    const int row_end = row->top + std::max(row->height, 1) / 2;
    auto next = std::find_if(row, stops_.end(), [&](const TabStop& s) { return s.top > row_end; });
    if (next == row) ++next;
    std::stable_sort(row, next, [](const TabStop& a, const TabStop& b) { return a.left < b.left; });
    row = next;
  }
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
