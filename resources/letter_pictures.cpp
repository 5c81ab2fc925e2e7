#include "resources/letter_pictures.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tavrin::resources {
namespace {

// Each picture is one letter drawn at twice the size of its 5x7 glyph, in
// one colour on the button face: easy to tell apart, kept as text, and
// needing nothing at build time.
struct Glyph {
  int id;
  std::uint32_t colour;  // 0xRRGGBB
  std::array<std::string_view, 7> rows;
};

constexpr std::uint32_t kButtonFace = 0xC0C0C0;
constexpr int kSize = 16;
constexpr int kLeft = 3;
constexpr int kTop = 1;

constexpr std::array kGlyphs = {
    Glyph{101, 0x000080, {" ### ", "#   #", "#    ", " ### ", "    #", "#   #", " ### "}},  // S: Sub
    Glyph{102, 0x800000, {" ### ", "#   #", "#    ", "#    ", "#    ", "#   #", " ### "}},  // C
    Glyph{103, 0x000080, {"#   #", "#   #", "#   #", "#   #", "#   #", " # # ", "  #  "}},  // V
    Glyph{104, 0x008000, {" ### ", "#   #", "#   #", "#   #", "#   #", "#   #", " ### "}},  // O
    Glyph{105, 0x800080, {"#### ", "#   #", "#   #", "#### ", "#    ", "#    ", "#    "}},  // P
    Glyph{106, 0x008080, {"#    ", "#    ", "#    ", "#    ", "#    ", "#    ", "#####"}},  // L
    Glyph{111, 0x0000FF, {" ### ", "#   #", "    #", "   # ", "  #  ", "     ", "  #  "}},  // ?
    Glyph{181, 0x808000, {"#####", "#    ", "#    ", "#### ", "#    ", "#    ", "#    "}},  // F
    Glyph{182, 0x008080, {"#####", "  #  ", "  #  ", "  #  ", "  #  ", "  #  ", "#####"}},  // I
    Glyph{183, 0x800000, {"#### ", "#   #", "#   #", "#### ", "#   #", "#   #", "#### "}},  // B
    Glyph{194, 0x000080, {" ### ", "#   #", "#   #", "#   #", "# # #", "#  # ", " ## #"}},  // Q
    Glyph{195, 0x008000, {"#####", "#    ", "#    ", "#### ", "#    ", "#    ", "#####"}},  // E
};

void PutLe(std::string& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
}

bool IsInk(const Glyph& glyph, int x, int y) {
  const int gx = (x - kLeft) / 2;
  const int gy = (y - kTop) / 2;
  if (x < kLeft || y < kTop || gx >= 5 || gy >= 7) return false;
  return glyph.rows[static_cast<std::size_t>(gy)][static_cast<std::size_t>(gx)] == '#';
}

// A 24-bit, bottom-up 16x16 .bmp file.
std::string Bitmap(const Glyph& glyph, bool mask) {
  constexpr int kRowBytes = kSize * 3;  // a multiple of 4: no padding
  constexpr int kPixelBytes = kRowBytes * kSize;
  constexpr int kHeaderBytes = 14 + 40;
  std::string out;
  out.reserve(kHeaderBytes + kPixelBytes);
  out += "BM";
  PutLe(out, kHeaderBytes + kPixelBytes, 4);
  PutLe(out, 0, 4);
  PutLe(out, kHeaderBytes, 4);
  PutLe(out, 40, 4);
  PutLe(out, kSize, 4);
  PutLe(out, kSize, 4);
  PutLe(out, 1, 2);
  PutLe(out, 24, 2);
  PutLe(out, 0, 4);  // no compression
  PutLe(out, kPixelBytes, 4);
  PutLe(out, 2835, 4);  // 72 dpi
  PutLe(out, 2835, 4);
  PutLe(out, 0, 4);
  PutLe(out, 0, 4);
  for (int y = kSize - 1; y >= 0; --y) {
    for (int x = 0; x < kSize; ++x) {
      const bool ink = IsInk(glyph, x, y);
      const std::uint32_t colour =
          mask ? (ink ? 0x000000 : 0xFFFFFF) : (ink ? glyph.colour : kButtonFace);
      PutLe(out, colour, 3);  // blue, green, red
    }
  }
  return out;
}

}  // namespace

std::optional<std::string> LetterPicture(std::string_view name) {
  const bool mask = !name.empty() && name.back() == 'm';
  if (mask) name.remove_suffix(1);
  for (const Glyph& glyph : kGlyphs) {
    if (name == std::to_string(glyph.id)) return Bitmap(glyph, mask);
  }
  return std::nullopt;
}

}  // namespace tavrin::resources
