// The pictures a build without the icon set carries: one letter per
// command (S, C, V, O, P, L, ?, F, I, B, Q, E), same format and names as
// LoadResPicture.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::resources {

std::optional<std::string> LetterPicture(std::string_view name);

}  // namespace tavrin::resources
