// The declaration parser over arbitrary text: a procedure taken from a
// library text, an argument list and one argument, and the statement
// helpers. The arguments that come back have names unique without regard to
// case, never more of them than the list has commas and one.
#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

#include "base/text.h"
#include "fuzz/fuzz_support.h"
#include "scan/proc_arguments.h"
#include "scan/proc_def.h"
#include "scan/statement_text.h"

namespace {

using namespace tavrin;

void CheckArguments(const scan::C4_ProcArguments& arguments, std::string_view text) {
  std::set<std::string> names;
  for (const scan::C4_ProcArgument& argument : arguments.Items())
    fuzz::Check(names.insert(ToUpperAscii(argument.Name)).second,
                "argument names are unique without regard to case");
  const auto commas = std::count(text.begin(), text.end(), ',');
  fuzz::Check(arguments.Count() <= commas + 1, "no more arguments than the list has commas and one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  scan::C4_ProcDef procedure;
  static_cast<void>(procedure.Init2(text, "Library"));
  CheckArguments(procedure.ProcArguments(), procedure.OneLineProcDef());

  scan::C4_ProcArguments arguments;
  static_cast<void>(arguments.init(text));
  CheckArguments(arguments, text);

  scan::C4_ProcArgument argument;
  argument.init(text);
  scan::SplitStatements(text);
  scan::ProcNameFromDecl(text);
  return 0;
}
