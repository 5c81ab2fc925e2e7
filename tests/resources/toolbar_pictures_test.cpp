#include "resources/toolbar_pictures.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tavrin::resources {
namespace {

constexpr std::size_t kBmpSize = 54 + 16 * 16 * 3;

// Pixels of the mask that are black (where the picture shows); -1 when a
// pixel is neither black nor white.
int ShownPixels(const std::string& mask) {
  int shown = 0;
  for (std::size_t at = 54; at + 3 <= mask.size(); at += 3) {
    const std::string pixel = mask.substr(at, 3);
    if (pixel == std::string(3, '\0')) {
      ++shown;
    } else if (pixel != std::string(3, '\xFF')) {
      return -1;
    }
  }
  return shown;
}

// Every picture identifier of the toolbar and menus (and, with the icon set,
// of the Code Explorer's context menu) has a 24-bit 16x16 picture of its
// own and a black-and-white mask that shows part of it.
TEST(ToolbarPicturesTest, EveryIdentifierHasItsOwnPictureAndAMaskShowingIt) {
  std::vector<int> ids = {101, 102, 103, 104, 105, 106, 111, 181, 182, 183, 194, 195};
  if (!ToolbarIconFiles().empty()) ids.insert(ids.end(), {201, 3001, 3002, 3006, 3007});
  std::set<std::string> faces;
  for (const int id : ids) {
    SCOPED_TRACE(id);
    const auto picture = LoadResPicture(std::to_string(id));
    const auto mask = LoadResPicture(std::to_string(id) + "m");
    ASSERT_TRUE(picture && mask);
    for (const std::string* bmp : {&*picture, &*mask}) {
      ASSERT_EQ(bmp->size(), kBmpSize);
      EXPECT_EQ(bmp->substr(0, 2), "BM");
      EXPECT_EQ(bmp->substr(18, 8), std::string("\x10\0\0\0\x10\0\0\0", 8));  // 16 x 16
      EXPECT_EQ((*bmp)[28], 24);  // bits per pixel
    }
    const int shown = ShownPixels(*mask);
    EXPECT_GT(shown, 8);
    EXPECT_LT(shown, 256);
    faces.insert(*picture);
  }
  EXPECT_EQ(faces.size(), ids.size());
}

TEST(ToolbarPicturesTest, UnknownNamesGiveNoPicture) {
  for (const char* name : {"", "m", "109", "101mm", "abc"})
    EXPECT_FALSE(LoadResPicture(name).has_value()) << name;
}

}  // namespace
}  // namespace tavrin::resources
