// "Explicit Arg&ument...": the call at the caret rewritten with named
// arguments, the called procedure found in the module or the projects.
#pragma once

#include <string_view>
#include <vector>

#include "addin/command_host.h"
#include "addin/context.h"
#include "base/result.h"
#include "ide/object_model.h"
#include "scan/project_scanner.h"
#include "transform/explicit_arguments.h"

namespace tavrin::addin {

// Where a call's procedure is looked for: a plain name (or "Me.") in the
// module itself, then among the public procedures of the standard modules;
// "basData.Save" in that module; "rs.Save" in the class of the variable rs
// when the code declares it; any other object's method in the one class
// module of the projects that has a public procedure of that name. Only
// Subs and Functions are found. What the projects do not declare is looked
// for among the procedures of the referenced libraries' modules (`libraries`,
// from the type library scanner): "Foo", or "Module.Foo" and "Library.Foo".
transform::ArgumentsLookup CalledProcedures(ide::IVbe& vbe, ide::IComponent& current,
                                            int caret_line,
                                            std::vector<scan::ProjectSymbol> libraries = {});

// Rewrites the call at the active pane's caret; the error says why not
// (transform::kCalledProcedureMissing among others). Raises ide::Error.
Result<transform::CallRewrite> RewriteCallAtCaret(
    ide::IVbe& vbe, std::vector<scan::ProjectSymbol> libraries = {});

// The command: the reason a call cannot be rewritten goes to the user.
bool ExplicitArguments(Context& context);

void RunExplicitArguments(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
