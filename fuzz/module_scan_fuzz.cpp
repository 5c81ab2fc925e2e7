// The module scanner over arbitrary text. Whatever it reads: the
// procedures follow each other without overlapping, each ends at or after
// its declaration, its top declarations end inside it, the procedure at
// its declaration line is itself, and every declaration lies within the
// text's lines.
#include <algorithm>
#include <cstdint>
#include <string_view>

#include "base/text.h"
#include "fuzz/fuzz_support.h"
#include "scan/module_text_scanner.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrin;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const scan::ModuleScan scan = scan::ScanModuleText(text);
  const int lines = static_cast<int>(SplitAnyLineBreak(text).size());
  const auto inside = [&](int line) { return line >= 1 && line <= std::max(lines, 1); };
  int previous_end = 0;
  for (const scan::ScannedProc& proc : scan.procedures) {
    fuzz::Check(proc.line > previous_end, "procedures do not overlap");
    fuzz::Check(proc.end_line >= proc.line, "a procedure ends at or after its declaration");
    fuzz::Check(proc.last_declaration_line >= proc.line &&
                    proc.last_declaration_line <= proc.end_line,
                "the top declarations end inside the procedure");
    fuzz::Check(scan::ProcedureAtLine(scan, proc.line) == &proc,
                "the procedure at its declaration is itself");
    for (const scan::Declaration& local : proc.locals)
      fuzz::Check(local.line >= proc.line && local.line <= proc.end_line,
                  "locals lie inside their procedure");
    previous_end = proc.end_line;
  }
  for (const scan::Declaration& declaration : scan.declarations)
    fuzz::Check(inside(declaration.line), "declarations lie within the text");
  fuzz::Check(scan.last_declaration_line <= std::max(lines, 0), "the declaration area ends in the text");
  return 0;
}
