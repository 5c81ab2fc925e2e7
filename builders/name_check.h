// Whether a typed name can name a procedure, an argument, a variable or a
// constant, with the message the user sees when it cannot.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::builders {

// Blanks around the name are ignored. Letters beyond ASCII count as letters,
// as the IDE takes accented names.
std::optional<std::string> NameProblem(std::string_view name);

} // namespace tavrin::builders
