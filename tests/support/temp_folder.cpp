#include "tests/support/temp_folder.h"

#include <random>

namespace tavrin::testing {

TempFolder::TempFolder() {
  std::random_device random;
  path_ = std::filesystem::temp_directory_path() /
          ("tavrin-test-" + std::to_string(random()) + std::to_string(random()));
  std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                               std::filesystem::perm_options::add, ignored);
  std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::File(std::string_view name) const {
  const auto u8 = (path_ / std::filesystem::path(std::u8string(name.begin(), name.end()))).u8string();
  return std::string(u8.begin(), u8.end());
}

}  // namespace tavrin::testing
