// The string resources: every caption, keyword and message of the add-in,
// English, looked up by number. One source (strings.txt) feeds this table and
// the Windows resource script.
#pragma once

#include <string_view>

namespace tavrin::resources {

// The string with this number; empty when there is none.
std::string_view LoadResString(int id);

}  // namespace tavrin::resources
