// "Insert Varia&ble...": a variable or constant in scope at the caret,
// picked in the list dialog, typed at the caret.
#pragma once

#include <string_view>

#include "addin/command_host.h"
#include "addin/context.h"

namespace tavrin::addin {

// A name selected on one line narrows the list and is replaced by the
// name picked; the caret goes after it. Without a name in scope the user is
// told so. True when a name was typed.
bool InsertVariable(Context& context);

void RunInsertVariable(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
