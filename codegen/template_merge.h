// Merging a template into a procedure's text, guided by the markers
// "<end_of_top>", "<begin_of_bottom>" and "<BeforeHandleExitLabel>".
//
// The rules:
// - The top part goes to the top of the body: after the declaration (all its
//   continuation lines) and after the lines that open a body, that is
//   comments, Const, Dim, Static and On Error statements.
// - The bottom part goes right after the exit label line when the procedure
//   has one (so it runs on every way out, errors included), else right
//   before the closing End line (at the end when there is none).
// - A template holding "<BeforeHandleExitLabel>" in a procedure with an exit
//   label goes, as a whole, right ahead of the exit label line. Without an
//   exit label the marker divides top from bottom.
// - The exit label line is the first body line that starts with the label
//   and a colon, without regard to case.
// - Markers never reach the result. They are removed and nothing else, so
//   a template writes each at the start of the line it comes before; one
//   alone on its line leaves that line empty.
#pragma once

#include <string>
#include <string_view>

namespace tavrin::codegen {

inline constexpr std::string_view kEndOfTop = "<end_of_top>";
inline constexpr std::string_view kBeginOfBottom = "<begin_of_bottom>";
inline constexpr std::string_view kBeforeHandleExitLabel = "<BeforeHandleExitLabel>";

// `code` is a whole procedure, lines joined by CR LF (a final CR LF is kept).
std::string MergeTemplate(std::string_view code, std::string_view template_text,
                          std::string_view exit_label);

// True when a line of the procedure's body is the label's line.
bool HasLabelLine(std::string_view code, std::string_view label);

// The text with every merge marker taken out.
std::string RemoveMergeMarkers(std::string_view text);

}  // namespace tavrin::codegen
