// The members of the type libraries the open projects reference, for the
// builders' lists, through the context's type library scanner.
#pragma once

#include <vector>

#include "addin/context.h"
#include "scan/project_scanner.h"

namespace tavrin::addin {

// Nothing while the context has no scanner. A library that cannot be read
// is told to the user once (the scanner reports each failure once); the
// builder goes on with the others.
std::vector<scan::ProjectSymbol> ReferencedLibrarySymbols(Context& context);

}  // namespace tavrin::addin
