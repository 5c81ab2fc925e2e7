#include "fragments/pseudo_root_path.h"

#include <optional>

#include "base/text.h"

namespace tavrin::fragments {
namespace {

std::string Backslashed(std::string_view path) { return ReplaceAll(path, "/", "\\"); }

// The rest of `path` after `folder`, when the path lies inside it.
std::optional<std::string> Inside(std::string_view path, const std::string& folder,
                                  platform::PathStyle style) {
  if (folder.empty()) return std::nullopt;
  const std::string prefix = EnsureTrailingBackslash(folder, style);
  const std::string native = platform::NativePath(path, style);
  const bool same = EqualsIgnoreCase(EnsureTrailingBackslash(native, style), prefix);
  if (!same && !StartsWithIgnoreCase(native, prefix)) return std::nullopt;
  return same ? std::string() : native.substr(prefix.size());
}

}  // namespace

std::string PseudoRootPath(const CodeFolders& folders, std::string_view path, int deepest_root) {
  if (!platform::IsAbsolutePath(path, folders.Style())) return std::string(path);
  // The longest folder that holds the path names it best.
  int best = -1;
  std::string rest;
  for (int index = 1; index <= deepest_root && index < kPseudoRootCount; ++index) {
    const std::string folder = folders.CodeFolder(index);
    const auto inside = Inside(path, folder, folders.Style());
    if (inside && (best < 0 || folder.size() > folders.CodeFolder(best).size())) {
      best = index;
      rest = *inside;
    }
  }
  if (best >= 0) return std::string(PseudoRootNames()[static_cast<std::size_t>(best)]) +
                        Backslashed(rest);
  if (const auto inside = Inside(path, folders.CodeFolder(0), folders.Style()))
    return "\\" + Backslashed(*inside);
  return std::string(path);
}

}  // namespace tavrin::fragments
