// Source files are read as Windows-1252 (what the IDE writes) or UTF-8 and
// held as UTF-8. Decoding and encoding are exact inverses on every input, so a
// file that is loaded and saved unchanged keeps its bytes.
#pragma once

#include <string>
#include <string_view>

namespace tavrin {

enum class Encoding { kWindows1252, kUtf8, kUtf8WithBom };

struct DecodedText {
  std::string text;  // UTF-8
  Encoding encoding = Encoding::kWindows1252;
};

// UTF-8 when the bytes start with a byte-order mark, or are valid UTF-8 and
// hold at least one multi-byte character; Windows-1252 otherwise.
DecodedText DecodeSource(std::string_view bytes);
std::string EncodeSource(std::string_view text, Encoding encoding);

std::string Windows1252ToUtf8(std::string_view bytes);
// Characters that Windows-1252 cannot hold become "?", as the system's own
// conversion does.
std::string Utf8ToWindows1252(std::string_view text);

}  // namespace tavrin
