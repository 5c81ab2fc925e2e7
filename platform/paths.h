// Folder paths as the IDE writes them (backslashes, "C:\..." and
// "\\server\share\...") and as the file system of the running platform wants
// them. Both separators are recognised everywhere; a separator that is added
// is the style's own.
#pragma once

#include <string>
#include <string_view>

namespace tavrin::platform {

enum class PathStyle { kWindows, kPosix };

PathStyle NativePathStyle();
char Separator(PathStyle style);
bool IsPathSeparator(char c);

// Appends a separator to a non-empty path that does not end in one.
std::string EnsureTrailingSeparator(std::string_view path, PathStyle style);
// The text up to and including the last separator; "" when there is none.
std::string_view FolderPart(std::string_view path);
// "C:\...", "C:/...", "\\server\..." (or "//server/..."); for the POSIX
// style also "/...".
bool IsAbsolutePath(std::string_view path, PathStyle style);
// The path for the file system: for the POSIX style every backslash becomes
// "/" and runs of separators collapse to one (a leading "//" of a network
// path stays). The Windows style only collapses runs after the start.
std::string NativePath(std::string_view path, PathStyle style);

}  // namespace tavrin::platform
