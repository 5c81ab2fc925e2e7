// Visual Basic code as a coloured HTML fragment: keywords navy, function
// words black, comments green, blanks as &nbsp;, lines ended by <br>.
//
// The fragment keeps the converter's long-standing oddities on purpose, since
// pages made with it look that way: only "<" and ">" are escaped; digits end a
// word ("Text1" colours "Text"); a word standing before a string literal or a
// "'" comment is written after it; a "Rem" comment starts one character
// before the "R" and loses its last character.
#pragma once

#include <string>
#include <string_view>

namespace tavrin::transform {

// The two word lists, each entry enclosed in "*".
extern const std::string_view kHtmlFunctionWords;
extern const std::string_view kHtmlKeywords;

inline constexpr std::string_view kFunctionWordFont = "<font color=#000000>";
inline constexpr std::string_view kKeywordFont = "<font color=#000080>";
inline constexpr std::string_view kCommentFont = "<font color=#008000>";

// The fragment for `code`, lines separated by CR LF.
std::string ConvertCodeToHtml(std::string_view code);

}  // namespace tavrin::transform
