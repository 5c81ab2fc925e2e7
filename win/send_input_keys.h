// SendKeys over the system's keyboard input: the keystrokes go to the
// window that has the focus, as the language's SendKeys sends them, so the
// IDE's editor formats the line as if the programmer typed.
#pragma once

#include <string_view>

namespace tavrin::win {

// The syntax of ide::IVbe::SendKeys; raises ide::Error (5) for a key it does
// not know, before anything is typed.
void SendInputKeys(std::string_view keys);

}  // namespace tavrin::win
