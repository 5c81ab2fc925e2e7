// The operations through which every builder and transformation reads and
// writes the active code pane: whether a code command may run, the unit of
// indentation, the left margin of a block, inserting a block and placing the
// caret at a "<cursor>" marker.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "addin/context.h"

namespace tavrin::addin {

inline constexpr std::string_view kCursorMarker = "<cursor>";

// True only when a project is open and the active window is a code window
// (with its pane); every code command tests this first.
bool IsCodePaneReady(Context& context);

// The IDE's tab width as blanks; four when the IDE has no tab width.
std::string IndentString(platform::IdeOptions& options);

// The indentation of a code line in blanks; for a blank line or one that
// starts in column 1, the indentation of the line above.
int LeadingBlanks(ide::ICodeModule& module, int line);

// The width of the left margin of a block generated at the caret: the caret
// line's indentation, or the caret column on a blank line, never 0.
int CaretMargin(Context& context);

// Puts a block below the caret line, or in place of the caret line when it is
// empty, and when caret_column > 0 puts the caret on the block's first line
// at that column. Returns the block's first line. IDE errors are ignored
// step by step.
int InsertBlock(Context& context, std::string_view text, int caret_column);

// Removes every "<cursor>" marker from start_line on and, unless remove_only,
// puts the caret where the last one stood. Works on `pane`, or on the active
// pane when it is null.
void PlaceCursorMarker(Context& context, int start_line, bool remove_only,
                       std::shared_ptr<ide::ICodePane> pane = nullptr);

}  // namespace tavrin::addin
