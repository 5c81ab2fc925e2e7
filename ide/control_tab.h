// What a host may tell besides IControl: on which tab of a tabbed container
// (SSTab) a control sits. The IDE's object model has no such member (it
// only shows the current tab's controls in place), so callers ask for it
// with a dynamic_cast and do without when a control lacks it.
#pragma once

namespace tavrin::ide {

class IControlTab {
 public:
  virtual ~IControlTab() = default;
  // The tab it sits on; -1 on no tab or when its container does not say.
  virtual int ContainerTab() = 0;
};

}  // namespace tavrin::ide
