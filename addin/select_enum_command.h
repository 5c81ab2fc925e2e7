// "&From Enum...": the Select From Enum builder shown through the context's
// dialog host and its block written below the caret line, with the caret
// where the programmer types next.
#pragma once

#include <string_view>

#include "addin/command_host.h"
#include "addin/context.h"

namespace tavrin::addin {

// True when a block was written. Without an enum to offer, or without a
// dialog host, the user is told so.
bool SelectFromEnum(Context& context);

void RunSelectFromEnum(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
