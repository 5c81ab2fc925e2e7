// Line numbers and comment marks over the selected lines of a code pane.
//
// Each command reads the selected block with one CodeModule::Lines call and
// replaces only the lines whose text changes: in the real IDE every call
// crosses into the host, so a block of thousands of lines costs one read and
// as many writes as there are changed lines. The result is the same as
// rewriting the block line by line.
//
// IDE failures raise ide::Error to the caller, whose guard reports them;
// lines already replaced stay replaced.
#pragma once

#include <string>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::transform {

// Lines first..last of the module (lines past its end read as empty).
std::vector<std::string> ReadLineBlock(ide::ICodeModule& module, int first, int last);

// Replaces the lines of the block starting at `first` whose text differs
// between `before` and `after` (same length). Returns how many were replaced.
int ReplaceChangedLines(ide::ICodeModule& module, int first,
                        const std::vector<std::string>& before,
                        const std::vector<std::string>& after);

// Numbers the selected lines. A start_number of 0 becomes the selection's
// first line (the caller sees the change). The selection is left as it was.
void AddLineNumbers(ide::ICodePane& pane, long long& start_number);
void RemoveLineNumbers(ide::ICodePane& pane);

// Comments or uncomments the selected lines; a selection dragged to column 1
// of a line leaves that line out. The window gets the focus first.
void AddCommentMarks(ide::ICodePane& pane);
void RemoveCommentMarks(ide::ICodePane& pane);

}  // namespace tavrin::transform
