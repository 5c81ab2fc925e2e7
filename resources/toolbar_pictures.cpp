#include "resources/toolbar_pictures.h"

#include "resources/letter_pictures.h"

namespace tavrin::resources {

std::optional<std::string> LoadResPicture(std::string_view name) {
  const auto icons = ToolbarIconFiles();
  if (icons.empty()) return LetterPicture(name);
  for (const EmbeddedFile& icon : icons) {
    if (icon.path == name) return std::string(icon.bytes);
  }
  return std::nullopt;
}

}  // namespace tavrin::resources
