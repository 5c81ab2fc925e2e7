// The user at a terminal, or the answers given up front on the command line.
#pragma once

#include <deque>
#include <iosfwd>
#include <stdexcept>
#include <string>

#include "platform/ui.h"

namespace tavrin::platform {

// An answer given before the question is asked (--answer, --yes, --no,
// --cancel), used in the order given.
struct PresetAnswer {
  enum class Kind { kText, kYes, kNo, kCancel };
  Kind kind = Kind::kText;
  std::string text;
};

// A question that nobody can answer: no preset answer is left and there is
// no terminal to ask, or the preset answer does not fit the question.
class UnansweredQuestion : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class TerminalUi : public Ui {
 public:
  // Messages and questions go to `out`; a question without a preset answer
  // is asked on `in` only when `interactive`.
  TerminalUi(std::deque<PresetAnswer> answers, bool interactive, std::istream& in,
             std::ostream& out);

  Answer MessageBox(std::string_view text, Buttons buttons, Icon icon,
                    std::string_view title) override;
  std::optional<std::string> InputBox(std::string_view prompt, std::string_view title,
                                      std::string_view default_text) override;

  std::size_t UnusedAnswers() const { return answers_.size(); }

 private:
  std::optional<PresetAnswer> NextAnswer();
  std::optional<std::string> AskLine(std::string_view prompt);

  std::deque<PresetAnswer> answers_;
  bool interactive_;
  std::istream& in_;
  std::ostream& out_;
};

}  // namespace tavrin::platform
