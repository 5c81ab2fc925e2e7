// "Explicit Arg&ument...": the call at the caret rewritten with named
// arguments, the called procedure found in the module or the projects.
#pragma once

#include <string_view>

#include "addin/command_host.h"
#include "addin/context.h"
#include "base/result.h"
#include "ide/object_model.h"
#include "transform/explicit_arguments.h"

namespace tavrin::addin {

// Where a call's procedure is looked for: a plain name (or "Me.") in the
// module itself, then among the public procedures of the standard modules;
// "basData.Save" in that module; "rs.Save" in the class of the variable rs
// when the code declares it; any other object's method in the one class
// module of the projects that has a public procedure of that name. Only
// Subs and Functions are found.
transform::ArgumentsLookup CalledProcedures(ide::IVbe& vbe, ide::IComponent& current,
                                            int caret_line);

// Rewrites the call at the active pane's caret; the error says why not
// (transform::kCalledProcedureMissing among others). Raises ide::Error.
Result<transform::CallRewrite> RewriteCallAtCaret(ide::IVbe& vbe);

// The command: the reason a call cannot be rewritten goes to the user.
bool ExplicitArguments(Context& context);

void RunExplicitArguments(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
