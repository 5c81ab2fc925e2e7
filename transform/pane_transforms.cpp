#include "transform/pane_transforms.h"

#include <algorithm>

#include "base/text.h"
#include "transform/comment_lines.h"
#include "transform/line_numbering.h"

namespace tavrin::transform {
namespace {

// The selected lines that exist in the module: lines past its end are not
// there to be numbered.
struct LineSpan {
  int first = 1;
  int last = 0;  // last < first: nothing to rewrite
};

LineSpan ExistingLines(const ide::TextRange& selection, int count) {
  const int first = std::min(selection.start_line, selection.end_line);
  const int last = std::max(selection.start_line, selection.end_line);
  return {std::max(first, 1), std::min(last, count)};
}

void FocusWindow(ide::ICodePane& pane) {
  if (const auto window = pane.Window()) window->SetFocus();
}

}  // namespace

std::vector<std::string> ReadLineBlock(ide::ICodeModule& module, int first, int last) {
  if (last < first) return {};
  const std::size_t count = static_cast<std::size_t>(last - first) + 1;
  const std::string text = module.Lines(first, static_cast<int>(count));
  std::vector<std::string> lines;
  lines.reserve(count);
  for (std::string_view line : SplitCrLf(text)) {
    if (lines.size() == count) break;
    lines.emplace_back(line);
  }
  lines.resize(count);
  return lines;
}

int ReplaceChangedLines(ide::ICodeModule& module, int first,
                        const std::vector<std::string>& before,
                        const std::vector<std::string>& after) {
  int replaced = 0;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (i < before.size() && before[i] == after[i]) continue;
    module.ReplaceLine(first + static_cast<int>(i), after[i]);
    ++replaced;
  }
  return replaced;
}

void AddLineNumbers(ide::ICodePane& pane, long long& start_number) {
  const ide::TextRange selection = pane.GetSelection();
  if (start_number == 0) start_number = selection.start_line;
  const auto module = pane.CodeModule();
  const LineSpan span = ExistingLines(selection, module->CountOfLines());
  if (span.first <= span.last) {
    // One read: the block and the line after it.
    std::vector<std::string> lines = ReadLineBlock(*module, span.first, span.last + 1);
    const std::string line_after = std::move(lines.back());
    lines.pop_back();
    ReplaceChangedLines(*module, span.first, lines,
                        AddedLineNumbers(lines, line_after, span.first, start_number));
  }
  pane.SetSelection(selection);
}

void RemoveLineNumbers(ide::ICodePane& pane) {
  const ide::TextRange selection = pane.GetSelection();
  const auto module = pane.CodeModule();
  const LineSpan span = ExistingLines(selection, module->CountOfLines());
  const std::vector<std::string> lines = ReadLineBlock(*module, span.first, span.last);
  ReplaceChangedLines(*module, span.first, lines, RemovedLineNumbers(lines));
  pane.SetSelection(selection);
}

void AddCommentMarks(ide::ICodePane& pane) {
  FocusWindow(pane);
  const CommentSelection selection = ReadCommentSelection(pane.GetSelection());
  const auto module = pane.CodeModule();
  const int count = module->CountOfLines();
  // The caret may stand on the line after the last one; nothing lies below it.
  const int first = std::max(selection.range.start_line, 1);
  const int last = std::min(selection.range.end_line, count + 1);
  if (first <= last) {
    const std::vector<std::string> lines = ReadLineBlock(*module, first, last);
    if (last > count) module->InsertLines(last, "");
    ReplaceChangedLines(*module, first, lines, AddedCommentMarks(lines));
  }
  pane.SetSelection(SelectionAfterAddingMarks(selection));
}

void RemoveCommentMarks(ide::ICodePane& pane) {
  FocusWindow(pane);
  const CommentSelection selection = ReadCommentSelection(pane.GetSelection());
  const auto module = pane.CodeModule();
  const int first = std::max(selection.range.start_line, 1);
  const int last = std::min(selection.range.end_line, module->CountOfLines());
  const std::vector<std::string> lines = ReadLineBlock(*module, first, last);
  const RemovedMarks removed = RemovedCommentMarks(lines);
  if (removed.changed > 0) ReplaceChangedLines(*module, first, lines, removed.lines);
  // The last line past the module's end never holds a mark.
  const bool last_changed = removed.last_line_changed && last == selection.range.end_line;
  pane.SetSelection(SelectionAfterRemovingMarks(selection, last_changed));
}

}  // namespace tavrin::transform
