// A fresh folder for one test, removed with everything in it afterwards.
#pragma once

#include <filesystem>
#include <string>

namespace tavrin::testing {

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  // A path inside the folder, as UTF-8.
  std::string File(std::string_view name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace tavrin::testing
