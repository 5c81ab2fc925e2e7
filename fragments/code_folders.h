// The code folders: the tree of reusable code under the add-in's folder
// (fragments, classes, templates, error handlers, a library), and paths
// written with pseudo-roots such as "<fragments>" that name its folders.
//
// Settings keep the IDE's backslash form ("\vbcode\"). The folders and the
// resolved paths come out in the file system's form of `style`: backslashes
// on Windows, "/" on POSIX, with single separators at every seam.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/paths.h"

namespace tavrin::fragments {

inline constexpr int kPseudoRootCount = 7;

// "<root>", "<code>", "<library>", "<fragments>", "<classes>", "<templates>",
// "<errorhandlers>", in index order.
const std::array<std::string_view, kPseudoRootCount>& PseudoRootNames();

// Appends a separator to a non-empty path that does not end in one.
std::string EnsureTrailingBackslash(std::string_view path,
                                    platform::PathStyle style = platform::PathStyle::kWindows);
// The text up to and including the last separator.
std::string ParentFolder(std::string_view path);
// Joins parts with one separator at each seam: a later part's leading
// separators are dropped when something stands before it.
std::string JoinPath(const std::vector<std::string>& parts,
                     platform::PathStyle style = platform::PathStyle::kWindows);

class CodeFolders {
 public:
  // `base_folder` and `library_folder` are the settings of the same names.
  CodeFolders(std::string addin_folder, std::string_view base_folder,
              std::string_view library_folder,
              platform::PathStyle style = platform::NativePathStyle());

  // The folder of a pseudo-root index 0..6; "" for any other index.
  std::string CodeFolder(int index) const;
  std::string ExpandPseudoRoots(std::string_view path) const;
  // The path with its pseudo-roots expanded, joined to `base` (default: the
  // add-in's folder) unless it is absolute or already holds `base`.
  std::string ResolvePath(std::string_view path, std::string_view base = "") const;
  // A file-path setting of "File Locations": as it is when absolute,
  // otherwise resolved.
  std::string FileSetting(std::string_view value) const;
  platform::PathStyle Style() const { return style_; }

 private:
  std::string Expand(std::string_view path, int known) const;

  platform::PathStyle style_;
  std::array<std::string, kPseudoRootCount> folders_;
};

}  // namespace tavrin::fragments
