#include "addin/referenced_libraries.h"

namespace tavrin::addin {

std::vector<scan::ProjectSymbol> ReferencedLibrarySymbols(Context& context) {
  if (!context.type_libraries) return {};
  scan::ReferencedSymbols scanned = context.type_libraries->Scan(context.vbe);
  if (!scanned.problems.empty()) {
    std::string message = "Some referenced libraries cannot be read:";
    for (const std::string& problem : scanned.problems) message += "\r\n\r\n" + problem;
    context.ui.MessageBox(message, platform::Buttons::kOk, platform::Icon::kInformation,
                          platform::kAppTitle);
  }
  return std::move(scanned.symbols);
}

}  // namespace tavrin::addin
