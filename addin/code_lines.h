// The code-line commands: blocks written into the active code pane at the
// caret, indented like the code around them, with the caret left where the
// programmer types next.
#pragma once

#include <string_view>

#include "addin/context.h"

namespace tavrin::addin {

// The dispatcher: runs the command only when a code pane is ready (and then
// does nothing else). Returns false for a command name it does not know.
bool InsertCodeLines(Context& context, std::string_view command_name);

// "If Then", "If Then Else", "If Then Else If", "If Then ElseIf Else".
void InsertIfBlock(Context& context, std::string_view command_name);

// "IfDoLoopWhile", "IfDoLoopUntil", "ForEachNext", "ForNext", "While".
void InsertLoopBlock(Context& context, std::string_view command_name);

// A With block for the chosen object expression; false when it is empty.
bool InsertWithBlock(Context& context, std::string_view object_text);

// The most ElseIf parts one command writes.
inline constexpr int kMaxElseIfCount = 999;

}  // namespace tavrin::addin
