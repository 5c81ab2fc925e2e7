#include "base/encoding.h"

#include <array>

#include "base/utf8.h"

namespace tavrin {
namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";

// 0x80..0x9F. The five bytes Windows-1252 leaves undefined map to the C1
// control characters of the same value, as the system's conversion does, so
// they survive a round trip.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

int Windows1252Byte(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  for (std::size_t i = 0; i < kHighControls.size(); ++i)
    if (kHighControls[i] == c) return static_cast<int>(0x80 + i);
  return -1;
}

bool HasMultiByte(std::string_view text) {
  for (char c : text)
    if (static_cast<unsigned char>(c) >= 0x80) return true;
  return false;
}

}  // namespace

// Source text is nearly all ASCII: runs of it are copied in one piece.
std::size_t AsciiRunEnd(std::string_view text, std::size_t from) {
  while (from < text.size() && static_cast<unsigned char>(text[from]) < 0x80) ++from;
  return from;
}

std::string Windows1252ToUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t run_end = AsciiRunEnd(bytes, i);
    out.append(bytes, i, run_end - i);
    if ((i = run_end) == bytes.size()) break;
    const auto b = static_cast<unsigned char>(bytes[i]);
    AppendUtf8(out, b < 0xA0 ? char32_t{kHighControls[b - 0x80]} : char32_t{b});
  }
  return out;
}

std::string Utf8ToWindows1252(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t run_end = AsciiRunEnd(text, i);
    out.append(text, i, run_end - i);
    if ((i = run_end) == text.size()) break;
    const auto lead = static_cast<unsigned char>(text[i]);
    std::size_t length = (lead & 0xE0) == 0xC0 ? 2 : (lead & 0xF0) == 0xE0 ? 3
                       : (lead & 0xF8) == 0xF0 ? 4 : 1;
    if (i + length > text.size() || !utf8::IsValid(text.substr(i, length))) length = 1;
    char32_t c = length == 1 ? U'?' : lead & (0xFF >> (length + 1));
    for (std::size_t k = 1; k < length; ++k)
      c = (c << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    const int byte = Windows1252Byte(c);
    out += byte < 0 ? '?' : static_cast<char>(byte);
    i += length;
  }
  return out;
}

DecodedText DecodeSource(std::string_view bytes) {
  if (bytes.substr(0, kBom.size()) == kBom)
    return {std::string(bytes.substr(kBom.size())), Encoding::kUtf8WithBom};
  if (HasMultiByte(bytes) && utf8::IsValid(bytes))
    return {std::string(bytes), Encoding::kUtf8};
  return {Windows1252ToUtf8(bytes), Encoding::kWindows1252};
}

std::string EncodeSource(std::string_view text, Encoding encoding) {
  switch (encoding) {
    case Encoding::kUtf8WithBom: return std::string(kBom) + std::string(text);
    case Encoding::kUtf8: return std::string(text);
    case Encoding::kWindows1252: return Utf8ToWindows1252(text);
  }
  return std::string(text);
}

}  // namespace tavrin
