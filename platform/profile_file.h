// Profile (INI) files through the operating system's private-profile calls,
// or an equivalent reader and writer where the system has none.
//
// The reads answer as the system fills a caller's buffer of `buffer_size`
// characters: NUL-terminated strings followed by one more NUL, and the count
// of characters written without that last NUL; `buffer_size - 2` when the
// buffer was too small (the caller then asks again with a bigger one).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"

namespace tavrin::platform {

struct ProfileBuffer {
  std::string buffer;      // exactly buffer_size characters
  std::size_t length = 0;  // the system's return value
};

class ProfileFile {
 public:
  virtual ~ProfileFile() = default;
  // GetPrivateProfileSectionNames: every section name in file order.
  virtual ProfileBuffer SectionNames(std::string_view file, std::size_t buffer_size) = 0;
  // GetPrivateProfileSection: the lines of the first section of that name
  // (case-insensitive), each as "key=value" or as the line itself.
  virtual ProfileBuffer ReadSection(std::string_view file, std::string_view section,
                                    std::size_t buffer_size) = 0;
  // WritePrivateProfileSection: `lines` (NUL-separated, ending in two NULs)
  // become the section's whole content; nullopt removes the section. A new
  // section goes to the end of the file, which is created when missing.
  virtual Status WriteSection(std::string_view file, std::string_view section,
                              std::optional<std::string_view> lines) = 0;
  // WritePrivateProfileString: sets one key, adding it (and its section)
  // when missing.
  virtual Status WriteString(std::string_view file, std::string_view section,
                             std::string_view key, std::string_view value) = 0;
};

// Fills a profile buffer from strings the way the system does: each string
// NUL-terminated, then a final NUL; cut to `buffer_size - 2` when too long.
ProfileBuffer FillProfileBuffer(const std::string& strings, std::size_t buffer_size);

}  // namespace tavrin::platform
