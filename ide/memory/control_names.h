// What a designer block says about its controls beyond their own lines:
// the name a control is known by in a control array, and the tab of a
// tabbed container (SSTab) that each child sits on, from the container's
// `Tab(n).Control(i)= "Name"` lines.
#pragma once

#include <string>
#include <vector>

#include "ide/memory/designer_layout.h"
#include "ide/memory/source_file.h"

namespace tavrin::ide::memory {

// "optKind(1)" for a member of a control array (an `Index` line), else the
// plain name.
std::string ControlDisplayName(const std::vector<PhysicalLine>& header,
                               const ControlLayout& control);

// Sets every control's `display_name`, and `tab` of every child that its
// container's tab lists name: one pass over the lines, so that a container
// of thousands of children is not read again for each of them.
void AssignNamesAndTabs(const std::vector<PhysicalLine>& header,
                        std::vector<ControlLayout>& controls);

}  // namespace tavrin::ide::memory
