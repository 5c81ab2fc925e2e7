// What kind of component a source file holds, and what a new one looks like.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ide/memory/source_file.h"
#include "ide/object_model.h"

namespace tavrin::ide::memory {

// True for the extensions of exported components: .bas .cls .frm .ctl .pag
// .dob .dsr (any case).
bool IsSourceFileName(std::string_view path);
// From the file's extension and, for forms, the designer class.
ComponentType ComponentTypeOf(std::string_view path, const SourceFile& source);
bool HasDesigner(ComponentType type);
// The word in a designer window's caption: "Form", "UserControl", ...
std::string DesignerCaptionWord(ComponentType type);
// The header lines the IDE writes for a new component of that type.
std::vector<std::string> NewComponentHeader(ComponentType type, std::string_view name);
// The stem of the names the IDE gives new components: "Module", "Class",
// "Form", ...
std::string NewComponentStem(ComponentType type);
// A letter first, then letters, digits and underscores, at most 40
// characters, and not one of the language's keywords.
bool IsValidComponentName(std::string_view name);
// The file's name without folder and extension.
std::string FileStem(std::string_view path);

}  // namespace tavrin::ide::memory
