// The default add-in folder carried inside the binaries: the prefix
// standards file and the code-folder tree (headers, error handler, class
// template), each by its path relative to the add-in's folder ("/"
// separated). Text files are stored with LF line breaks.
#pragma once

#include <span>
#include <string_view>

namespace tavrin::resources {

struct EmbeddedFile {
  std::string_view path;
  std::string_view bytes;
};

std::span<const EmbeddedFile> DefaultAddinFiles();

}  // namespace tavrin::resources
