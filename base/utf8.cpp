#include "base/utf8.h"

namespace tavrin::utf8 {
namespace {

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// Length of the well-formed sequence starting at text[i], or 0 when malformed.
std::size_t SequenceLength(std::string_view text, std::size_t i) {
  const auto lead = static_cast<unsigned char>(text[i]);
  std::size_t length = 0;
  char32_t minimum = 0;
  char32_t value = 0;
  if (lead < 0x80) return 1;
  if ((lead & 0xE0) == 0xC0) { length = 2; minimum = 0x80; value = lead & 0x1F; }
  else if ((lead & 0xF0) == 0xE0) { length = 3; minimum = 0x800; value = lead & 0x0F; }
  else if ((lead & 0xF8) == 0xF0) { length = 4; minimum = 0x10000; value = lead & 0x07; }
  else return 0;
  if (i + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    const auto c = static_cast<unsigned char>(text[i + k]);
    if (!IsContinuation(c)) return 0;
    value = (value << 6) | (c & 0x3F);
  }
  if (value < minimum || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return 0;
  return length;
}

}  // namespace

bool IsValid(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = SequenceLength(text, i);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

int CharCount(std::string_view text) {
  int count = 0;
  for (std::size_t i = 0; i < text.size(); ++count) {
    const std::size_t length = SequenceLength(text, i);
    i += length == 0 ? 1 : length;
  }
  return count;
}

std::size_t OffsetOfColumn(std::string_view text, int column) {
  std::size_t i = 0;
  for (int c = 1; c < column && i < text.size(); ++c) {
    const std::size_t length = SequenceLength(text, i);
    i += length == 0 ? 1 : length;
  }
  return i;
}

int ColumnOfOffset(std::string_view text, std::size_t offset) {
  if (offset > text.size()) offset = text.size();
  return CharCount(text.substr(0, offset)) + 1;
}

}  // namespace tavrin::utf8
