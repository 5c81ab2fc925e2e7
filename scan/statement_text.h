// Text helpers over Visual Basic statements, shared by the declaration
// parser and the builders. Comparisons are exact (case-sensitive).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrin::scan {

// The statements of a code text, each trimmed. A text without ": " is one
// statement and keeps a trailing comment; otherwise colons outside quotes
// separate statements and an apostrophe outside quotes ends the text.
// (The result is 0-based; its size is the count.)
std::vector<std::string> SplitStatements(std::string_view text);

// The last blank-separated word before the first "(": the procedure name of
// a declaration; empty when the text has no "(".
std::string ProcNameFromDecl(std::string_view text);

// The type a type-declaration character stands for ("%" gives "Integer");
// empty for any other character.
std::string TypeFromTypeChar(char type_char);

inline constexpr std::string_view kTypeChars = "!#$%&@";

}  // namespace tavrin::scan
