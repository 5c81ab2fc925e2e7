#include "codegen/template_merge.h"

#include <algorithm>
#include <vector>

#include "base/text.h"

namespace tavrin::codegen {
namespace {

using Lines = std::vector<std::string>;

bool StartsWithWord(std::string_view text, std::string_view word) {
  return StartsWithIgnoreCase(text, word) &&
         (text.size() == word.size() || text[word.size()] == ' ');
}

// A line that may stand at the top of a body ahead of the merged text.
bool OpensBody(std::string_view line) {
  const std::string_view text = TrimBlanks(line);
  if (text.empty()) return false;
  return text.front() == '\'' || StartsWithWord(text, "Rem") ||
         StartsWithWord(text, "Const") || StartsWithWord(text, "Dim") ||
         StartsWithWord(text, "Static") || StartsWithIgnoreCase(text, "On Error ");
}

bool IsClosingLine(std::string_view line) {
  const std::string_view text = TrimBlanks(line);
  return StartsWithWord(text, "End Sub") || StartsWithWord(text, "End Function") ||
         StartsWithWord(text, "End Property");
}

bool IsLabelLine(std::string_view line, std::string_view label) {
  const std::string_view text = TrimBlanks(line);
  return !label.empty() && StartsWithIgnoreCase(text, label) &&
         TrimBlanks(text.substr(label.size())).substr(0, 1) == ":";
}

// Template text as lines: nothing for an empty text, a final CR LF ends the
// last line rather than starting one.
Lines ToLines(std::string_view text) {
  Lines lines;
  if (text.empty()) return lines;
  for (std::string_view line : SplitCrLf(text)) lines.emplace_back(line);
  if (text.ends_with(kCrLf)) lines.pop_back();
  return lines;
}

struct Parts {
  std::string top;
  std::string bottom;
};

// Cuts at the first occurrence of `marker`, which goes.
Parts CutAt(std::string_view text, std::string_view marker) {
  const std::size_t hit = text.find(marker);
  if (hit == std::string_view::npos) return {std::string(text), {}};
  return {std::string(text.substr(0, hit)), std::string(text.substr(hit + marker.size()))};
}

}  // namespace

bool HasLabelLine(std::string_view code, std::string_view label) {
  const auto lines = SplitCrLf(code);
  return std::any_of(lines.begin() + std::min<std::size_t>(1, lines.size()), lines.end(),
                     [&](std::string_view line) { return IsLabelLine(line, label); });
}

std::string RemoveMergeMarkers(std::string_view text) {
  std::string result = ReplaceAll(text, kEndOfTop, "");
  result = ReplaceAll(result, kBeginOfBottom, "");
  return ReplaceAll(result, kBeforeHandleExitLabel, "");
}

std::string MergeTemplate(std::string_view code, std::string_view template_text,
                          std::string_view exit_label) {
  const bool ends_with_break = code.ends_with(kCrLf);
  Lines lines;
  if (!code.empty())
    for (std::string_view line : SplitCrLf(code)) lines.emplace_back(line);
  if (ends_with_break) lines.pop_back();

  const int count = static_cast<int>(lines.size());
  int body = 0;  // first line after the declaration
  while (body < count && TrimBlanks(lines[body]).ends_with("_")) ++body;
  body = std::min(body + 1, count);
  int closing = count;
  for (int i = count - 1; i >= body; --i) {
    if (IsClosingLine(lines[i])) {
      closing = i;
      break;
    }
  }
  int top_at = body;
  while (top_at < closing && OpensBody(lines[top_at])) ++top_at;
  int exit_line = -1;
  for (int i = body; i < closing && exit_line < 0; ++i)
    if (IsLabelLine(lines[i], exit_label)) exit_line = i;

  std::string text = ReplaceAll(template_text, kEndOfTop, "");
  Lines top;
  Lines bottom;
  int bottom_at = exit_line >= 0 ? exit_line + 1 : closing;
  bool whole_ahead_of_label = false;
  if (text.find(kBeforeHandleExitLabel) != std::string::npos) {
    if (exit_line >= 0) {
      whole_ahead_of_label = true;
      bottom = ToLines(RemoveMergeMarkers(text));
      bottom_at = exit_line;
    } else {
      text = ReplaceAll(ReplaceAll(text, kBeginOfBottom, ""), kBeforeHandleExitLabel,
                        kBeginOfBottom);
    }
  }
  if (!whole_ahead_of_label) {
    const Parts parts = CutAt(text, kBeginOfBottom);
    top = ToLines(RemoveMergeMarkers(parts.top));
    bottom = ToLines(RemoveMergeMarkers(parts.bottom));
  }
  lines.insert(lines.begin() + bottom_at, bottom.begin(), bottom.end());
  lines.insert(lines.begin() + std::min(top_at, bottom_at), top.begin(), top.end());

  std::string merged = JoinCrLf(lines);
  if (ends_with_break) merged += kCrLf;
  return merged;
}

}  // namespace tavrin::codegen
