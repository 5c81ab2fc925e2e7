// The pictures of the toolbar buttons and menu entries, and their masks, as
// 16x16 bitmaps (the bytes of a 24-bit .bmp file).
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "resources/default_files.h"

namespace tavrin::resources {

// The string resource crediting the icon set (for the About box).
inline constexpr int kPictureCreditId = 2040;

// The bitmap resource of that name: "101" is the picture of control 101,
// "101m" its mask (black where the picture shows, white where the button
// shows through). nullopt for a name that has no bitmap.
std::optional<std::string> LoadResPicture(std::string_view name);

// The icons the build converted (cmake/ToolbarPictures.cmake), by resource
// name; empty when it had no icon set, and the letter pictures serve then.
std::span<const EmbeddedFile> ToolbarIconFiles();

}  // namespace tavrin::resources
