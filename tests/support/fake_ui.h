// The user in tests: answers scripted up front, every question recorded.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/ui.h"

namespace tavrin::testing {

class FakeUi : public platform::Ui {
 public:
  struct Shown {
    std::string text;
    std::string title;
  };

  // Answers for the input boxes in order: a text, or nullopt for Cancel.
  std::deque<std::optional<std::string>> input_answers;
  // Answers for the message boxes with a choice; OK boxes take none.
  std::deque<platform::Answer> box_answers;

  std::vector<Shown> inputs_asked;
  std::vector<Shown> boxes_shown;

  platform::Answer MessageBox(std::string_view text, platform::Buttons buttons,
                              platform::Icon, std::string_view title) override;
  std::optional<std::string> InputBox(std::string_view prompt, std::string_view title,
                                      std::string_view default_text) override;
};

}  // namespace tavrin::testing
