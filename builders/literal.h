// Literals of the constant builder: the text a value makes for a constant of
// a type, the type a literal picked up in the code suggests, and a name
// suggested by it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin::builders {

struct Literal {
  std::string text;     // the literal to write; empty when refused
  std::string problem;  // why the value does not fit; empty when it does
};

// A String is quoted (its quotes doubled) unless it is a quoted literal
// already; a Date goes between # signs; a Boolean is True or False; a
// number must be one and lie in the type's range (&H and &O for the whole
// number types).
Literal LiteralFor(std::string_view value, std::string_view type);

// The type of a literal picked up in the code: String, Date, Boolean, Long
// for a whole number, Double for a decimal one; "" for anything else.
std::string LiteralType(std::string_view literal);

// The words of a string literal joined with each capitalised ("max file
// size" gives MaxFileSize); "" when it holds no letter. At most 40
// characters.
std::string NameFromLiteral(std::string_view literal);

}  // namespace tavrin::builders
