// Columns over UTF-8 text. The IDE counts columns in characters, so every
// conversion between a 1-based column and a byte offset goes through here.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavrin::utf8 {

bool IsValid(std::string_view text);
// Number of characters (code points) in valid UTF-8; stray bytes count one each.
int CharCount(std::string_view text);
// Byte offset of a 1-based column; columns past the end give text.size()
// plus nothing (the caller decides whether padding is wanted).
std::size_t OffsetOfColumn(std::string_view text, int column);
// 1-based column of a byte offset.
int ColumnOfOffset(std::string_view text, std::size_t offset);

}  // namespace tavrin::utf8
