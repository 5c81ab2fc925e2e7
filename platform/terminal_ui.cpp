#include "platform/terminal_ui.h"

#include <istream>
#include <ostream>

#include "base/text.h"

namespace tavrin::platform {
namespace {

std::string OneLine(std::string_view text) {
  return ReplaceAll(ReplaceAll(text, "\r\n", " / "), "\n", " / ");
}

std::string_view ChoicesOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::kOk: return "OK";
    case Buttons::kOkCancel: return "OK/Cancel";
    case Buttons::kYesNo: return "Yes/No";
    case Buttons::kYesNoCancel: return "Yes/No/Cancel";
  }
  return "";
}

// The answer that a preset or typed word gives to a box with these buttons.
std::optional<Answer> Interpret(PresetAnswer::Kind kind, Buttons buttons) {
  using Kind = PresetAnswer::Kind;
  switch (buttons) {
    case Buttons::kOk: return Answer::kOk;
    case Buttons::kOkCancel:
      if (kind == Kind::kYes) return Answer::kOk;
      if (kind == Kind::kCancel || kind == Kind::kNo) return Answer::kCancel;
      return std::nullopt;
    case Buttons::kYesNo:
      if (kind == Kind::kYes) return Answer::kYes;
      if (kind == Kind::kNo) return Answer::kNo;
      return std::nullopt;
    case Buttons::kYesNoCancel:
      if (kind == Kind::kYes) return Answer::kYes;
      if (kind == Kind::kNo) return Answer::kNo;
      if (kind == Kind::kCancel) return Answer::kCancel;
      return std::nullopt;
  }
  return std::nullopt;
}

std::optional<PresetAnswer::Kind> WordKind(std::string_view word) {
  const std::string w = ToLowerAscii(TrimBlanks(word));
  if (w == "y" || w == "yes" || w == "ok") return PresetAnswer::Kind::kYes;
  if (w == "n" || w == "no") return PresetAnswer::Kind::kNo;
  if (w == "c" || w == "cancel") return PresetAnswer::Kind::kCancel;
  return std::nullopt;
}

}  // namespace

TerminalUi::TerminalUi(std::deque<PresetAnswer> answers, bool interactive,
                       std::istream& in, std::ostream& out)
    : answers_(std::move(answers)), interactive_(interactive), in_(in), out_(out) {}

std::optional<PresetAnswer> TerminalUi::NextAnswer() {
  if (answers_.empty()) return std::nullopt;
  PresetAnswer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

std::optional<std::string> TerminalUi::AskLine(std::string_view prompt) {
  out_ << prompt << std::flush;
  std::string line;
  if (!std::getline(in_, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

Answer TerminalUi::MessageBox(std::string_view text, Buttons buttons, Icon,
                              std::string_view title) {
  if (buttons == Buttons::kOk) {
    out_ << title << ": " << OneLine(text) << '\n';
    return Answer::kOk;
  }
  const std::string question = "\"" + OneLine(text) + "\" (" + std::string(ChoicesOf(buttons)) + ")";
  if (auto preset = NextAnswer()) {
    auto kind = preset->kind;
    if (kind == PresetAnswer::Kind::kText) {
      if (auto word = WordKind(preset->text)) kind = *word;
    }
    if (auto answer = Interpret(kind, buttons)) return *answer;
    throw UnansweredQuestion("the answer given does not fit the question " + question);
  }
  if (!interactive_)
    throw UnansweredQuestion("the command asks " + question +
                             ": answer with --yes, --no or --cancel");
  while (true) {
    const auto line = AskLine(std::string(title) + ": " + question + "? ");
    if (!line) return buttons == Buttons::kYesNo ? Answer::kNo : Answer::kCancel;
    if (auto word = WordKind(*line))
      if (auto answer = Interpret(*word, buttons)) return *answer;
  }
}

std::optional<std::string> TerminalUi::InputBox(std::string_view prompt, std::string_view title,
                                                std::string_view default_text) {
  if (auto preset = NextAnswer()) {
    switch (preset->kind) {
      case PresetAnswer::Kind::kText: return preset->text;
      case PresetAnswer::Kind::kCancel: return std::nullopt;
      default:
        throw UnansweredQuestion("the command asks \"" + OneLine(prompt) +
                                 "\": answer with --answer TEXT or --cancel");
    }
  }
  if (!interactive_)
    throw UnansweredQuestion("the command asks \"" + OneLine(prompt) +
                             "\": answer with --answer TEXT or --cancel");
  std::string ask = std::string(title) + ": " + OneLine(prompt);
  if (!default_text.empty()) ask += " [" + std::string(default_text) + "]";
  auto line = AskLine(ask + " ");
  if (line && line->empty() && !default_text.empty()) return std::string(default_text);
  return line;
}

}  // namespace tavrin::platform
