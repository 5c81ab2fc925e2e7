// tavrin explicit-args: the call at the caret of a module rewritten with
// named arguments, as "Explicit Arg&ument..." rewrites it in the IDE. The
// procedure is found in the module, or in the modules of a project; the
// project's type libraries are named on standard error as unreadable here.
#include <iostream>
#include <memory>

#include "addin/explicit_arguments.h"
#include "cli/command.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "platform/std_file_system.h"
#include "scan/type_library.h"

namespace tavrin::cli {
namespace {

struct ExplicitArgsArguments {
  InsertOptions module;
  std::string project;  // a .vbp whose modules hold the called procedures
};

int RunExplicitArgs(const GlobalOptions& globals, const ExplicitArgsArguments& arguments) {
  if (arguments.module.file.empty())
    throw UsageError("explicit-args needs the module and the caret: -i FILE --caret L:C");
  platform::StdFileSystem files;
  std::optional<SourceSession> target = OpenInsertTarget(files, arguments.module);
  if (!arguments.project.empty()) {
    const auto project = target->Vbe().OpenProject(files, arguments.project);
    if (!project) throw UsageError(project.error());
    target->Pane()->Show();  // the module's pane stays the active one
  }
  // The tool reads no type library: the project's libraries are named as
  // unreadable and their procedures are not found.
  scan::NoTypeLibraries reader;
  scan::TypeLibraryScanner libraries(reader);
  scan::ReferencedSymbols referenced = libraries.Scan(target->Vbe());
  for (const std::string& problem : referenced.problems) std::cerr << "tavrin: " << problem << "\n";
  const auto rewrite =
      addin::RewriteCallAtCaret(target->Vbe(), std::move(referenced.symbols));
  if (!rewrite) throw UsageError(rewrite.error());
  WriteInsertTarget(*target, globals.json);
  return kDone;
}

}  // namespace

Command AddExplicitArgsCommand(CLI::App& app) {
  auto a = std::make_shared<ExplicitArgsArguments>();
  CLI::App* command = app.add_subcommand(
      "explicit-args", "Names the arguments of the call at the caret: Foo Name:=a, Other:=b");
  AddInsertOptions(*command, a->module, "The module to rewrite, in place");
  command->add_option("--project", a->project,
                      "A .vbp project whose modules declare the called procedures");
  return {command, [a](const GlobalOptions& globals) { return RunExplicitArgs(globals, *a); }};
}

}  // namespace tavrin::cli
