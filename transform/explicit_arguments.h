// Explicit arguments: the call at the caret rewritten with named arguments,
// "Foo a, , c" becoming "Foo Name:=a, Third:=c". The statement may span
// continued lines; its line breaks and blanks are kept, so it keeps its
// number of lines. Pure text: the caller says which procedure a name calls.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "scan/proc_arguments.h"

namespace tavrin::transform {

inline constexpr std::string_view kCalledProcedureMissing = "The called procedure is missing";

// The name a call uses: "Foo"; "basData.Save" and "rs.Save" (qualifier
// "basData", "rs"); ".Save" inside a With block (qualifier ".").
struct CalledName {
  std::string qualifier;
  std::string name;
};

// The declared arguments of the procedure a call names; nullopt when the
// caller knows no such procedure.
using ArgumentsLookup =
    std::function<std::optional<std::vector<scan::C4_ProcArgument>>(const CalledName&)>;

struct CallRewrite {
  CalledName called;
  int first_line = 0;  // the statement's physical lines, 1-based
  int last_line = 0;
  std::string text;  // their new text, CR LF between them
  int caret_line = 0;  // the caret, moved with the text it stood on
  int caret_column = 0;
};

// The calls of the statement at the caret are tried in turn: those whose
// text holds the caret, innermost first, then the others from the left.
// The first one `lookup` knows is rewritten: each argument given by place
// gets its name, arguments already named stay, left-out optional ones are
// dropped. Fails with kCalledProcedureMissing when no call is known, or
// says why the call cannot be named (no arguments, too many, a ParamArray).
// `lines` are the module's lines; `line` and `column` are 1-based, the
// column counted in characters.
Result<CallRewrite> ExplicitArguments(const std::vector<std::string_view>& lines, int line,
                                      int column, const ArgumentsLookup& lookup);

}  // namespace tavrin::transform
