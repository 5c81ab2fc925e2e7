// The text of a call to a procedure: the call line the code line builder
// inserts at the caret. Pure text, margin in, text with a "<cursor>" marker
// out, like the other code-line texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "scan/proc_arguments.h"

namespace tavrin::codegen {

// A procedure that can be called: a Sub or a Function of a module or of a
// library file.
struct Callable {
  std::string module;
  std::string name;
  bool is_function = false;
  std::string return_type;  // of a Function; "" when not written
  std::vector<scan::C4_ProcArgument> arguments;
  std::string description;  // for the comment line
};

struct CallOptions {
  bool explicit_arguments = false;  // name:=value
  bool each_on_new_line = false;    // one argument per continuation line
  bool comment = false;             // a comment line above the call
};

// What the code line builder writes a Function's result into while the user
// has not named a variable: the caret stands where the name goes.
inline constexpr std::string_view kNewVariable = "<New Variable>";

// The call. `values` holds one value per argument, "" for one left out.
// Left-out optional arguments are dropped at the end, named or left as an
// empty place between commas before a given one. `result` is the variable
// of a Function ("" or kNewVariable: the caret goes where its name is
// typed); a result of an object type is assigned with Set.
std::string CallLineText(const Callable& callable, const std::vector<std::string>& values,
                         std::string_view result, const CallOptions& options,
                         std::string_view margin);

// Why the call cannot be written: a required argument without a value, or
// more values than arguments; nullopt when it can. `index` gets the
// argument at fault (0-based).
std::optional<std::string> CallLineProblem(const Callable& callable,
                                           const std::vector<std::string>& values,
                                           int* index = nullptr);

// How the builder shows an argument: "[Optional ]name As Type[ = default]".
std::string ArgumentCaption(const scan::C4_ProcArgument& argument);

// True when a variable of this type is an object, assigned with Set.
bool IsObjectTypeName(std::string_view type);

}  // namespace tavrin::codegen
