#include "tests/support/fake_ui.h"

#include <stdexcept>

namespace tavrin::testing {

platform::Answer FakeUi::MessageBox(std::string_view text, platform::Buttons buttons,
                                    platform::Icon, std::string_view title) {
  boxes_shown.push_back({std::string(text), std::string(title)});
  if (buttons == platform::Buttons::kOk) return platform::Answer::kOk;
  if (box_answers.empty()) throw std::logic_error("unexpected question: " + std::string(text));
  const platform::Answer answer = box_answers.front();
  box_answers.pop_front();
  return answer;
}

std::optional<std::string> FakeUi::InputBox(std::string_view prompt, std::string_view title,
                                            std::string_view) {
  inputs_asked.push_back({std::string(prompt), std::string(title)});
  if (input_answers.empty()) throw std::logic_error("unexpected input box: " + std::string(prompt));
  auto answer = input_answers.front();
  input_answers.pop_front();
  return answer;
}

}  // namespace tavrin::testing
