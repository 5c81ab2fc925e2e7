// The pictures of the toolbar buttons and menu entries, and their masks, as
// 16x16 bitmaps (the bytes of a .bmp file).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::resources {

// The bitmap resource of that name: "101" is the picture of control 101,
// "101m" its mask (black where the picture shows, white where the button
// shows through). nullopt for a name that has no bitmap.
std::optional<std::string> LoadResPicture(std::string_view name);

}  // namespace tavrin::resources
