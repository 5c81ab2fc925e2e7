// Comment marks over a block of code lines, and what the selection becomes
// around them. Pure text work; the commands over the code pane are in
// transform/pane_transforms.h.
#pragma once

#include <string>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::transform {

inline constexpr char kCommentMark = '\'';

// The selection as the comment commands read it.
struct CommentSelection {
  ide::TextRange range;       // with the end line lowered when end_adjusted
  bool end_adjusted = false;  // the selection ended at column 1 of a later line
  bool caret_only = false;    // nothing selected
};

// A selection given end first is taken from its start.
CommentSelection ReadCommentSelection(ide::TextRange selection);

// Every line with "'" in front of it, indentation and earlier marks kept.
std::vector<std::string> AddedCommentMarks(const std::vector<std::string>& lines);

struct RemovedMarks {
  std::vector<std::string> lines;
  int changed = 0;                 // lines that lost a mark
  bool last_line_changed = false;  // the block's last line lost one
};

// One mark off every line whose first non-blank character is "'"; the
// blanks in front of the mark stay.
RemovedMarks RemovedCommentMarks(const std::vector<std::string>& lines);

// The selection after adding marks: the end column moves past the mark of
// the last line; a caret stays where it was.
ide::TextRange SelectionAfterAddingMarks(const CommentSelection& selection);
// The selection after removing marks: the end column moves back only when
// the last selected line lost a mark.
ide::TextRange SelectionAfterRemovingMarks(const CommentSelection& selection,
                                           bool last_line_changed);

}  // namespace tavrin::transform
