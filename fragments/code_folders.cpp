#include "fragments/code_folders.h"

#include "base/text.h"

namespace tavrin::fragments {
namespace {

using platform::PathStyle;

enum Root { kRoot, kCode, kLibrary, kFragments, kClasses, kTemplates, kErrorHandlers };

constexpr std::array<std::string_view, 4> kFixedFolders = {"Fragments", "Classes", "Templates",
                                                           "ErrorHandlers"};

}  // namespace

const std::array<std::string_view, kPseudoRootCount>& PseudoRootNames() {
  static constexpr std::array<std::string_view, kPseudoRootCount> names = {
      "<root>", "<code>", "<library>", "<fragments>", "<classes>", "<templates>",
      "<errorhandlers>"};
  return names;
}

std::string EnsureTrailingBackslash(std::string_view path, PathStyle style) {
  return platform::EnsureTrailingSeparator(path, style);
}

std::string ParentFolder(std::string_view path) {
  return std::string(platform::FolderPart(path));
}

std::string JoinPath(const std::vector<std::string>& parts, PathStyle style) {
  if (parts.empty()) return "";
  std::string result = EnsureTrailingBackslash(parts.front(), style);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    std::string_view part = parts[i];
    result = EnsureTrailingBackslash(result, style);
    if (!result.empty())
      while (!part.empty() && platform::IsPathSeparator(part.front())) part.remove_prefix(1);
    result += part;
  }
  return platform::NativePath(result, style);
}

CodeFolders::CodeFolders(std::string addin_folder, std::string_view base_folder,
                         std::string_view library_folder, PathStyle style)
    : style_(style) {
  folders_[kRoot] = platform::NativePath(addin_folder, style);
  folders_[kCode] = platform::IsAbsolutePath(base_folder, style)
                        ? platform::NativePath(base_folder, style)
                        : JoinPath({folders_[kRoot], std::string(base_folder)}, style);
  for (std::size_t i = 0; i < kFixedFolders.size(); ++i)
    folders_[kFragments + i] = JoinPath({folders_[kCode], std::string(kFixedFolders[i])}, style);
  // The library is known last: "<library>" inside its own setting stands
  // for nothing.
  if (platform::IsAbsolutePath(library_folder, style)) {
    folders_[kLibrary] = platform::NativePath(library_folder, style);
  } else {
    std::string expanded = Expand(library_folder, kLibrary);
    if (FindIgnoreCase(expanded, folders_[kRoot]) == std::string::npos &&
        !platform::IsAbsolutePath(expanded, style))
      expanded = JoinPath({folders_[kRoot], expanded}, style);
    folders_[kLibrary] = expanded;
  }
}

std::string CodeFolders::CodeFolder(int index) const {
  if (index < 0 || index >= kPseudoRootCount) return "";
  return folders_[static_cast<std::size_t>(index)];
}

std::string CodeFolders::Expand(std::string_view path, int unknown) const {
  std::string result(path);
  for (int index = 0; index < kPseudoRootCount; ++index) {
    const std::string_view root = PseudoRootNames()[static_cast<std::size_t>(index)];
    const auto at = FindIgnoreCase(result, root);
    if (at == std::string::npos) continue;
    const std::string folder = index == unknown ? "" : folders_[static_cast<std::size_t>(index)];
    result = JoinPath({result.substr(0, at), folder, result.substr(at + root.size())}, style_);
  }
  return result;
}

std::string CodeFolders::ExpandPseudoRoots(std::string_view path) const {
  return Expand(path, -1);
}

std::string CodeFolders::ResolvePath(std::string_view path, std::string_view base) const {
  std::string resolved = ExpandPseudoRoots(path);
  const std::string folder =
      base.empty() ? folders_[kRoot] : platform::NativePath(base, style_);
  if (FindIgnoreCase(platform::NativePath(resolved, style_), folder) == std::string::npos &&
      !platform::IsAbsolutePath(resolved, style_))
    resolved = JoinPath({folder, resolved}, style_);
  return platform::NativePath(resolved, style_);
}

std::string CodeFolders::FileSetting(std::string_view value) const {
  if (platform::IsAbsolutePath(value, style_)) return platform::NativePath(value, style_);
  return ResolvePath(value);
}

}  // namespace tavrin::fragments
