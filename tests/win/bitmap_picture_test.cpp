#include "win/bitmap_picture.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrin::win {
namespace {

// A 16x16 face: a red diagonal on grey, as the button bitmaps are drawn.
std::string Face() {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = 16;
  header.biHeight = 16;
  header.biPlanes = 1;
  header.biBitCount = 24;
  header.biSizeImage = 16 * 16 * 3;
  std::string pixels;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      pixels += x == y ? std::string("\x00\x00\xFF", 3) : std::string("\xC0\xC0\xC0", 3);
    }
  }
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof header;
  file.bfSize = file.bfOffBits + header.biSizeImage;
  return std::string(reinterpret_cast<const char*>(&file), sizeof file) +
         std::string(reinterpret_cast<const char*>(&header), sizeof header) + pixels;
}

TEST(BitmapPictureTest, BitmapFileRoundTrip) {
  const std::string face = Face();
  const UniqueBitmap bitmap = BitmapFromBmp(face);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(BmpFromBitmap(bitmap.get()), face);
}

TEST(BitmapPictureTest, PictureRoundTrip) {
  const std::string face = Face();
  const auto picture = PictureFromBmp(face);
  ASSERT_TRUE(picture);
  EXPECT_EQ(BmpFromPicture(picture.get()), face);
}

TEST(BitmapPictureTest, NotABitmap) {
  const std::string face = Face();
  for (const std::string& bytes : {std::string(), std::string("BM"), std::string("GIF89a") +
                                       std::string(60, '\0'), face.substr(0, 30)}) {
    EXPECT_FALSE(BitmapFromBmp(bytes));
    EXPECT_FALSE(PictureFromBmp(bytes));
    EXPECT_FALSE(SetClipboardBitmap(bytes));
  }
  EXPECT_EQ(BmpFromPicture(nullptr), "");
  EXPECT_EQ(BmpFromBitmap(nullptr), "");
}

TEST(BitmapPictureTest, ClipboardRoundTrip) {
  const std::string face = Face();
  if (!SetClipboardBitmap(face)) GTEST_SKIP() << "no clipboard here";
  EXPECT_EQ(ClipboardBitmap(), face);
}

}  // namespace
}  // namespace tavrin::win
