// The IDE's editor options that generated code follows.
#pragma once

#include <optional>

namespace tavrin::platform {

class IdeOptions {
 public:
  virtual ~IdeOptions() = default;
  // The editor's tab width; nullopt when the IDE has no such setting (or
  // an unusable one), which means four.
  virtual std::optional<int> TabWidth() = 0;
};

// Options given up front: the tool's --tab-width, tests.
class FixedIdeOptions : public IdeOptions {
 public:
  explicit FixedIdeOptions(std::optional<int> tab_width = std::nullopt)
      : tab_width_(tab_width) {}
  std::optional<int> TabWidth() override { return tab_width_; }

 private:
  std::optional<int> tab_width_;
};

}  // namespace tavrin::platform
