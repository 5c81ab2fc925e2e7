// Add Procedure: shows the procedure builder and writes the procedure into
// the module at the caret.
#pragma once

#include <string>

#include "addin/context.h"
#include "builders/procedure_dialog.h"
#include "ide/object_model.h"

namespace tavrin::addin {

// Shows the procedure builder through context.dialogs (nothing happens
// without a host or a code pane) and on OK inserts the procedure below the
// one at the caret, or at the end of the declarations when the caret is in
// them; the caret goes to the first body line. False when nothing was
// inserted (Cancel, or an IDE error, which the user is told about).
bool AddProcedure(Context& context);

// The module the builder writes into: its kind, its name, and the classes
// of the open projects.
builders::ProcedureTarget ProcedureTargetOf(ide::IVbe& vbe, ide::ICodeModule& module);

// Inserts `code` into the module at the place for a caret on `caret_line`
// (named `name`, of `kind`) and answers the line the caret goes to, its
// first body line; raises ide::Error.
int InsertProcedureText(ide::ICodeModule& module, int caret_line, const std::string& code,
                        std::string_view name, ide::ProcKind kind);

}  // namespace tavrin::addin
