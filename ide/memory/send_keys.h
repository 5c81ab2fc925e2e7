// Keystrokes typed into a code pane, as the language's SendKeys types them
// into the IDE's editor.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::ide::memory {

enum class KeyKind {
  kText, kBackspace, kDelete, kEnter, kLeft, kRight, kUp, kDown, kHome, kEnd, kTab,
  kNone,  // a key that changes nothing in the text (Esc, a Ctrl or Alt chord)
};

struct Keystroke {
  KeyKind kind = KeyKind::kText;
  std::string text;  // one character, for kText
  friend bool operator==(const Keystroke&, const Keystroke&) = default;
};

// Raises ide::Error (5) for an unknown {KEY} or an unclosed brace.
std::vector<Keystroke> ParseKeys(std::string_view keys);

// Types into the pane at its selection and leaves the caret after the typing.
void TypeKeys(ICodePane& pane, const std::vector<Keystroke>& keys, int tab_width);

}  // namespace tavrin::ide::memory
