// Insert Line Of Code: shows the code line builder over the procedures of
// the active project (or of the code library) and inserts the call at the
// caret.
#pragma once

#include <string_view>
#include <vector>

#include "addin/context.h"
#include "builders/code_line_dialog.h"
#include "ide/object_model.h"

namespace tavrin::addin {

// The procedures the builder offers from a project: every Sub and Function
// of `current`, then the public ones of the project's standard modules, in
// the project's order.
std::vector<builders::CallableModule> ProjectCallables(ide::IVbe& vbe, ide::IProject& project,
                                                      std::string_view current);

// The public Subs and Functions of the source files in a library folder, one
// module per file.
std::vector<builders::CallableModule> LibraryCallables(platform::FileSystem& files,
                                                      std::string_view folder);

// The builder through context.dialogs; on OK the call goes below the caret
// line (or in place of an empty one) with the caret where the user types
// next. Without a dialog host the user is told. False when nothing was
// inserted.
bool InsertCodeLine(Context& context);

}  // namespace tavrin::addin
