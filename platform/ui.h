// The user: message boxes, input boxes and questions. Real dialogs on
// Windows, the terminal (or answers given on the command line) in the tool,
// scripted answers in tests.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::platform {

enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Icon { kNone, kInformation, kExclamation, kCritical, kQuestion };
enum class Answer { kOk, kCancel, kYes, kNo };

class Ui {
 public:
  virtual ~Ui() = default;
  virtual Answer MessageBox(std::string_view text, Buttons buttons, Icon icon,
                            std::string_view title) = 0;
  // nullopt when the user cancels.
  virtual std::optional<std::string> InputBox(std::string_view prompt,
                                              std::string_view title,
                                              std::string_view default_text) = 0;
};

// Says nothing and asks nothing: for calls whose messages were shown before
// or cannot arise.
class SilentUi : public Ui {
 public:
  Answer MessageBox(std::string_view, Buttons, Icon, std::string_view) override {
    return Answer::kOk;
  }
  std::optional<std::string> InputBox(std::string_view, std::string_view,
                                      std::string_view) override {
    return std::nullopt;
  }
};

// The title of the add-in's message boxes.
inline constexpr std::string_view kAppTitle = "Tavrin";

}  // namespace tavrin::platform
