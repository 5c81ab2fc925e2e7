#include "builders/name_check.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "resources/string_table.h"

namespace tavrin::builders {
namespace {

// The words a name may not be.
constexpr std::array<std::string_view, 62> kReservedWords = {
    "And",      "As",     "Boolean",    "ByRef",    "Byte",     "ByVal",
    "Call",     "Case",   "Const",      "Currency", "Date",     "Declare",
    "Dim",      "Do",     "Double",     "Each",     "Else",     "ElseIf",
    "End",      "Enum",   "Eqv",        "Event",    "Exit",     "False",
    "For",      "Friend", "Function",   "Get",      "GoSub",    "GoTo",
    "If",       "Imp",    "Implements", "In",       "Integer",  "Is",
    "Let",      "Like",   "Long",       "Loop",     "Me",       "Mod",
    "New",      "Next",   "Not",        "Nothing",  "Object",   "On",
    "Optional", "Or",     "ParamArray", "Private",  "Property", "Public",
    "ReDim",    "Select", "Set",        "Static",   "String",   "Sub",
    "Then",     "Type"};

bool IsLetter(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c >= 0x80;
}

bool IsNameCharacter(unsigned char c) {
  return IsLetter(c) || (c >= '0' && c <= '9') || c == '_';
}

std::string Message(int id) {
  return std::string(resources::LoadResString(id));
}

} // namespace

std::optional<std::string> NameProblem(std::string_view name) {
  const std::string_view trimmed = TrimBlanks(name);
  if (trimmed.empty())
    return Message(1001);
  if (!IsLetter(static_cast<unsigned char>(trimmed.front())))
    return Message(1002);
  if (!std::all_of(trimmed.begin(), trimmed.end(), [](char c) {
        return IsNameCharacter(static_cast<unsigned char>(c));
      }))
    return Message(1003);
  if (trimmed.size() > 255)
    return Message(1004);
  if (std::any_of(kReservedWords.begin(), kReservedWords.end(),
                  [&](std::string_view word) {
                    return EqualsIgnoreCase(word, trimmed);
                  }))
    return Message(1005);
  return std::nullopt;
}

} // namespace tavrin::builders
