// The Tab order window's model: the controls of a form designer that take a
// TabIndex, in tab order. The user reorders the list; Apply writes TabIndex
// to the controls whose place changed.
#pragma once

#include <climits>
#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::toolwindows {

// TabStop::tab of a control whose container has no tabs.
inline constexpr int kNoTab = -1;
// TabStop::tab of a control on a tab other than the container's current
// one, when the host cannot tell which (the IDE moves such controls
// 75,000 twips to the left and names no tab).
inline constexpr int kHiddenTab = INT_MAX;

struct TabStop {
  std::shared_ptr<ide::IControl> control;
  std::string name;  // "cmdAction(1)" for a member of a control array
  int tab_index = 0;  // as read from the designer
  int left = 0;
  int top = 0;
  int height = 0;
  // The control it sits in (a frame, a picture box, a tabbed container),
  // when that is one of the stops; empty on the form. Left and top are
  // relative to it, as the designer stores them.
  std::string container;
  // On a tabbed container (SSTab): the tab it sits on, or kHiddenTab;
  // kNoTab otherwise.
  int tab = kNoTab;
  // How many containers and tabs it sits in: the indent of its line.
  int depth = 0;
};

// A line of the window: a stop, or the caption of a tab whose controls
// follow it ("tabCustomer - Tab 1: Address").
struct TabOrderLine {
  static constexpr std::size_t kCaption = std::size_t(-1);
  std::size_t stop = kCaption;  // the position in Stops(), or kCaption
  std::string text;
  int depth = 0;
};

class TabOrder {
 public:
  // Reads the designer once; controls without a TabIndex (labels of some
  // kinds, timers, menus, lines) are left out.
  explicit TabOrder(ide::IDesigner& designer);

  // In the order the form will have once applied.
  const std::vector<TabStop>& Stops() const { return stops_; }
  // The stops with a caption line above each run of controls of one tab.
  std::vector<TabOrderLine> Lines() const;
  // "tabCustomer - Tab 1: Address", "tabCustomer - other tabs"; empty for a
  // stop on no tab.
  std::string TabCaption(const TabStop& stop) const;
  // False at the top or bottom, or for a position out of range.
  bool MoveUp(std::size_t position);
  bool MoveDown(std::size_t position);
  // Rows top to bottom, each row left to right. Controls whose tops lie
  // within half the height of a row's first control share its row. A
  // container's children follow it, ordered so among themselves; those of
  // a tabbed container tab by tab.
  void OrderByPosition();
  // Writes TabIndex, first to last, where it differs from the control's
  // current one; returns how many controls were written.
  int Apply();

 private:
  struct Tabs {
    int current = 0;
    std::vector<std::string> captions;
  };
  void ReadTabs(ide::IControl& control, const std::string& name);
  void PlaceInContainers();

  std::vector<TabStop> stops_;
  std::unordered_map<std::string, Tabs> tabbed_;  // by the container's name
};

}  // namespace tavrin::toolwindows
