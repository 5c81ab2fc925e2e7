// Explicit arguments over arbitrary text, every name a procedure of three
// arguments (the last a ParamArray when the selector says so). Whatever it
// reads: a rewrite keeps the statement's number of lines, its caret lies
// in it, and a second rewrite at its caret changes nothing more (nested
// and unclosed calls too: "z(z(2), ").
#include <cstdint>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fuzz/fuzz_support.h"
#include "transform/explicit_arguments.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrin;
  const fuzz::Input input = fuzz::TakeSelector(data, size);
  // Text as a code pane holds it: no control character but the tab, and no
  // line break inside a line.
  for (const char c : input.rest)
    if (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\r' && c != '\n') return 0;
  const auto lines = SplitAnyLineBreak(input.rest);
  if (lines.empty()) return 0;
  const int line = 1 + input.selector % static_cast<int>(lines.size());
  const int column = 1 + input.selector / 8;
  const bool param_array = (input.selector & 1) != 0;
  const transform::ArgumentsLookup any = [&](const transform::CalledName&) {
    std::vector<scan::C4_ProcArgument> arguments(3);
    arguments[0].init("a");
    arguments[1].init("Optional b");
    arguments[2].init(param_array ? "ParamArray c()" : "Optional c");
    return std::optional(arguments);
  };
  const auto once = transform::ExplicitArguments(lines, line, column, any);
  if (!once) return 0;
  const auto rewritten = SplitCrLf(once->text);
  fuzz::Check(static_cast<int>(rewritten.size()) == once->last_line - once->first_line + 1,
              "the statement keeps its number of lines");
  fuzz::Check(once->caret_line >= once->first_line && once->caret_line <= once->last_line,
              "the caret stays in the statement");
  const auto twice = transform::ExplicitArguments(rewritten, once->caret_line - once->first_line + 1,
                                                  once->caret_column, any);
  fuzz::Check(twice && twice->text == once->text, "a second rewrite changes nothing");
  return 0;
}
