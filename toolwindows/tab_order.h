// The Tab order window's model: the controls of a form designer that take a
// TabIndex, in tab order. The user reorders the list; Apply writes TabIndex
// to the controls whose place changed.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::toolwindows {

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
  int depth = 0;  // how many containers it sits in
};

class TabOrder {
 public:
  // Reads the designer once; controls without a TabIndex (labels of some
  // kinds, timers, menus, lines) are left out.
  explicit TabOrder(ide::IDesigner& designer);

  // In the order the form will have once applied.
  const std::vector<TabStop>& Stops() const { return stops_; }
  // False at the top or bottom, or for a position out of range.
  bool MoveUp(std::size_t position);
  bool MoveDown(std::size_t position);
  // Rows top to bottom, each row left to right. Controls whose tops lie
  // within half the height of a row's first control share its row. A
  // container's children follow it, ordered so among themselves.
  void OrderByPosition();
  // Writes TabIndex, first to last, where it differs from the control's
  // current one; returns how many controls were written.
  int Apply();

 private:
  std::vector<TabStop> stops_;
};

}  // namespace tavrin::toolwindows
