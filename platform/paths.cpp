#include "platform/paths.h"

namespace tavrin::platform {

PathStyle NativePathStyle() {
#ifdef _WIN32
  return PathStyle::kWindows;
#else
  return PathStyle::kPosix;
#endif
}

char Separator(PathStyle style) { return style == PathStyle::kWindows ? '\\' : '/'; }

bool IsPathSeparator(char c) { return c == '\\' || c == '/'; }

std::string EnsureTrailingSeparator(std::string_view path, PathStyle style) {
  std::string result(path);
  if (!result.empty() && !IsPathSeparator(result.back())) result += Separator(style);
  return result;
}

std::string_view FolderPart(std::string_view path) {
  const auto last = path.find_last_of("\\/");
  return last == std::string_view::npos ? std::string_view() : path.substr(0, last + 1);
}

bool IsAbsolutePath(std::string_view path, PathStyle style) {
  const bool drive = path.size() >= 3 && path[1] == ':' && IsPathSeparator(path[2]);
  // A network path needs a server name and a separator after it.
  const bool network = path.size() >= 3 && IsPathSeparator(path[0]) &&
                       IsPathSeparator(path[1]) &&
                       path.find_first_of("\\/", 2) != std::string_view::npos;
  const bool posix_root = style == PathStyle::kPosix && !path.empty() && path[0] == '/';
  return drive || network || posix_root;
}

std::string NativePath(std::string_view path, PathStyle style) {
  const char separator = Separator(style);
  std::string result;
  result.reserve(path.size());
  for (std::size_t i = 0; i < path.size(); ++i) {
    const char c = path[i];
    if (!IsPathSeparator(c)) {
      result += c;
      continue;
    }
    const bool network_start = i == 1 && IsPathSeparator(path[0]);
    if (!result.empty() && IsPathSeparator(result.back()) && !network_start) continue;
    result += style == PathStyle::kPosix ? separator : c;
  }
  return result;
}

}  // namespace tavrin::platform
