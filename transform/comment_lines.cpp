#include "transform/comment_lines.h"

#include <utility>

#include "base/text.h"

namespace tavrin::transform {
namespace {

// The end column and the caret rule shared by both commands.
ide::TextRange FinishSelection(const CommentSelection& selection, int end_column_shift) {
  ide::TextRange range = selection.range;
  if (selection.end_adjusted)
    ++range.end_line;
  else
    range.end_column += end_column_shift;
  if (selection.caret_only) range.end_column = range.start_column;
  return range;
}

}  // namespace

CommentSelection ReadCommentSelection(ide::TextRange selection) {
  if (selection.end_line < selection.start_line ||
      (selection.end_line == selection.start_line &&
       selection.end_column < selection.start_column)) {
    std::swap(selection.start_line, selection.end_line);
    std::swap(selection.start_column, selection.end_column);
  }
  CommentSelection result{selection};
  result.end_adjusted = selection.end_line > selection.start_line && selection.end_column == 1;
  if (result.end_adjusted) --result.range.end_line;
  result.caret_only = result.range.start_column == result.range.end_column &&
                      result.range.start_line == result.range.end_line;
  return result;
}

std::vector<std::string> AddedCommentMarks(const std::vector<std::string>& lines) {
  std::vector<std::string> result;
  result.reserve(lines.size());
  for (const std::string& line : lines) result.push_back(kCommentMark + line);
  return result;
}

RemovedMarks RemovedCommentMarks(const std::vector<std::string>& lines) {
  RemovedMarks result{lines};
  for (std::size_t i = 0; i < result.lines.size(); ++i) {
    std::string& line = result.lines[i];
    const std::string_view rest = TrimLeftBlanks(line);
    if (rest.empty() || rest.front() != kCommentMark) continue;
    line.erase(line.size() - rest.size(), 1);
    ++result.changed;
    if (i + 1 == result.lines.size()) result.last_line_changed = true;
  }
  return result;
}

ide::TextRange SelectionAfterAddingMarks(const CommentSelection& selection) {
  return FinishSelection(selection, 1);
}

ide::TextRange SelectionAfterRemovingMarks(const CommentSelection& selection,
                                           bool last_line_changed) {
  return FinishSelection(selection, last_line_changed ? -1 : 0);
}

}  // namespace tavrin::transform
