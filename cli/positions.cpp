#include "cli/positions.h"

#include <algorithm>
#include <charconv>

#include "base/utf8.h"
#include "cli/usage_error.h"

namespace tavrin::cli {
namespace {

// The IDE's editor lets the caret stand past the end of a line, up to its
// longest line of 1023 characters.
constexpr int kMaxVirtualColumn = 1024;

int ParseNumber(std::string_view text, std::string_view option, std::string_view whole) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || text.empty())
    throw UsageError(std::string(option) + " takes line numbers and columns, not '" +
                     std::string(whole) + "'");
  return value;
}

struct Position {
  int line;
  int column;
};

Position ParsePosition(std::string_view text, std::string_view option, std::string_view whole) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos)
    throw UsageError(std::string(option) + " takes L:C (line:column), not '" +
                     std::string(whole) + "'");
  return {ParseNumber(text.substr(0, colon), option, whole),
          ParseNumber(text.substr(colon + 1), option, whole)};
}

void CheckPosition(const Position& position, ide::ICodeModule& module,
                   std::string_view option, std::string_view whole) {
  const int count = module.CountOfLines();
  const std::string where = std::string(option) + " " + std::string(whole);
  if (position.line < 1 || position.column < 1)
    throw UsageError(where + ": lines and columns start at 1");
  if (position.line > count + 1)
    throw UsageError(where + " is past the end of the module (it has " +
                     std::to_string(count) + " lines)");
  const int length = utf8::CharCount(module.Lines(position.line, 1));
  if (position.column > std::max(length + 1, kMaxVirtualColumn))
    throw UsageError(where + " is past the end of line " + std::to_string(position.line));
}

}  // namespace

void AddPositionOptions(CLI::App& command, PositionOptions& options) {
  auto* caret = command.add_option("--caret", options.caret, "No selection: the caret at L:C");
  auto* select = command.add_option("--select", options.select,
                                    "A selection L1:C1-L2:C2, as the IDE reports it");
  auto* lines = command.add_option("--lines", options.lines, "Lines A-B (or A) inclusive");
  caret->excludes(select)->excludes(lines);
  select->excludes(lines);
}

bool HasPosition(const PositionOptions& options) {
  return !options.caret.empty() || !options.select.empty() || !options.lines.empty();
}

ide::TextRange ResolvePosition(const PositionOptions& options, ide::ICodeModule& module) {
  if (!options.caret.empty()) {
    const Position caret = ParsePosition(options.caret, "--caret", options.caret);
    CheckPosition(caret, module, "--caret", options.caret);
    return {caret.line, caret.column, caret.line, caret.column};
  }
  if (!options.select.empty()) {
    const auto dash = options.select.find('-');
    if (dash == std::string::npos)
      throw UsageError("--select takes L1:C1-L2:C2, not '" + options.select + "'");
    const std::string_view text = options.select;
    const Position start = ParsePosition(text.substr(0, dash), "--select", text);
    const Position end = ParsePosition(text.substr(dash + 1), "--select", text);
    CheckPosition(start, module, "--select", text);
    CheckPosition(end, module, "--select", text);
    if (end.line < start.line || (end.line == start.line && end.column < start.column))
      throw UsageError("--select " + options.select + " ends before it starts");
    return {start.line, start.column, end.line, end.column};
  }
  const int count = module.CountOfLines();
  int first = 1;
  int last = std::max(count, 1);
  if (!options.lines.empty()) {
    const std::string_view text = options.lines;
    const auto dash = text.find('-');
    first = ParseNumber(text.substr(0, dash), "--lines", text);
    last = dash == std::string_view::npos ? first
                                          : ParseNumber(text.substr(dash + 1), "--lines", text);
    if (first < 1 || last < first)
      throw UsageError("--lines " + options.lines + " is not a range of lines A-B");
    if (last > std::max(count, 1))
      throw UsageError("--lines " + options.lines + " is past the end of the module (it has " +
                       std::to_string(count) + " lines)");
  }
  const int end_column = utf8::CharCount(module.Lines(last, 1)) + 1;
  return {first, 1, last, end_column};
}

}  // namespace tavrin::cli
