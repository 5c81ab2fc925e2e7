// Profile files read and written by the core itself, with the results of the
// Windows private-profile calls: blanks around "=" trimmed in what is read,
// comment lines read like any other line, the first of two sections or keys
// of one name used, a new section appended at the end, and every byte
// outside the section written (other sections, their comments, blank lines,
// CR LF or LF) left as it was. Files are Windows-1252 or UTF-8 (kept as
// found); writes replace the file atomically.
#pragma once

#include <memory>

#include "platform/file_system.h"
#include "platform/profile_file.h"

namespace tavrin::platform {

class PortableProfileFile : public ProfileFile {
 public:
  explicit PortableProfileFile(FileSystem& files);
  ~PortableProfileFile() override;

  ProfileBuffer SectionNames(std::string_view file, std::size_t buffer_size) override;
  ProfileBuffer ReadSection(std::string_view file, std::string_view section,
                            std::size_t buffer_size) override;
  Status WriteSection(std::string_view file, std::string_view section,
                      std::optional<std::string_view> lines) override;
  Status WriteString(std::string_view file, std::string_view section, std::string_view key,
                     std::string_view value) override;

 private:
  class Parsed;
  // The last file read, parsed: the model reads a file once per section, so
  // a file is parsed again only when its bytes changed.
  const Parsed& Load(std::string_view file);

  FileSystem& files_;
  std::string cached_path_;
  std::string cached_bytes_;
  std::unique_ptr<Parsed> cached_;
};

}  // namespace tavrin::platform
