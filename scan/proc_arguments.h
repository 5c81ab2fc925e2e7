// The argument list of a procedure declaration: C4_ProcArguments splits it,
// C4_ProcArgument reads one argument. Plain text parsers, exact comparisons.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/result.h"

namespace tavrin::scan {

// One argument as written. The prefix words are matched without a blank
// after them and a one-character default written right after "=" is
// dropped: users' existing records depend on both, so they are kept.
struct C4_ProcArgument {
  std::string ArgDef;
  bool IsOptional = false;
  bool IsPassedByVal = false;
  std::string PassedBy;  // "ByVal" or "ByRef"; empty for an empty text
  bool IsParamArray = false;
  std::string Name;  // a type-declaration character stays part of it
  bool IsArray = false;
  std::string Type_;  // "Variant" when no "As" clause is written
  std::string DefaultValue;
  bool IsEnum = false;  // set by callers only

  void init(std::string_view arg_text);
};

class C4_ProcArguments {
 public:
  // Reads the arguments between the declaration's outer parentheses. An
  // argument list of one character gives no arguments (kept on purpose). A
  // name met twice (without regard to case) is an error; the arguments
  // before it stay in the list.
  Status init(std::string_view declaration_text);

  // Appends an argument keyed by its name; fails for a name already there.
  Status Add(C4_ProcArgument argument);

  int Count() const { return static_cast<int>(items_.size()); }
  // Declaration order; Item is 1-based.
  const std::vector<C4_ProcArgument>& Items() const { return items_; }
  const C4_ProcArgument& Item(int index) const { return items_.at(index - 1); }
  const C4_ProcArgument* Find(std::string_view name) const;

  const std::string& ArgListText() const { return arg_list_text_; }
  // "a, [b], [c]": names joined by ", ", optional ones in brackets.
  const std::string& ArgNameList() const { return arg_name_list_; }

 private:
  std::string arg_list_text_;
  std::string arg_name_list_;
  std::vector<C4_ProcArgument> items_;
  std::unordered_map<std::string, std::size_t> by_name_;  // upper-cased keys
};

// The pieces of an argument list split at commas outside double quotes;
// commas inside parentheses split too.
std::vector<std::string> SplitArgumentList(std::string_view text);

}  // namespace tavrin::scan
