// Profile files through kernel32's private-profile calls. Text crosses in
// the system's ANSI code page, as the add-in's INI files have always been
// written; the core sees UTF-8.
#pragma once

#include "platform/profile_file.h"

namespace tavrin::win {

class PrivateProfileFile : public platform::ProfileFile {
 public:
  platform::ProfileBuffer SectionNames(std::string_view file, std::size_t buffer_size) override;
  platform::ProfileBuffer ReadSection(std::string_view file, std::string_view section,
                                      std::size_t buffer_size) override;
  Status WriteSection(std::string_view file, std::string_view section,
                      std::optional<std::string_view> lines) override;
  Status WriteString(std::string_view file, std::string_view section, std::string_view key,
                     std::string_view value) override;
};

}  // namespace tavrin::win
