// tavrin call: the code line builder over a module, a project or the code
// library, answered from the options or an answer file.
#include <iostream>
#include <memory>
#include <optional>

#include "addin/code_line_builder.h"
#include "addin/code_pane.h"
#include "base/text.h"
#include "cli/addin_session.h"
#include "cli/answer_file.h"
#include "cli/command.h"
#include "cli/positions.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"

namespace tavrin::cli {
namespace {

struct CallArguments {
  std::string source;  // a module, a .vbp project, or "library"
  std::string procedure;
  std::vector<std::string> args;  // NAME=VALUE
  std::string result;
  bool explicit_arguments = false;
  bool each_line = false;
  bool comment = false;
  InsertOptions insert;  // the module the call goes into
  std::string answers;
};

std::vector<builders::CallableModule> CallablesOf(const CallArguments& arguments,
                                                  platform::FileSystem& files,
                                                  const fragments::Settings& settings,
                                                  std::string& current) {
  if (arguments.source == "library")
    return addin::LibraryCallables(files, settings.folders.CodeFolder(2));
  const auto vbe = ide::memory::MemoryVbe::Create();
  if (arguments.source.ends_with(".vbp")) {
    const auto project = vbe->OpenProject(files, arguments.source);
    if (!project) throw UsageError(project.error());
    return addin::ProjectCallables(*vbe, *project.value(), "");
  }
  SourceSession module(files, arguments.source);
  current = module.Component()->Name();
  return addin::ProjectCallables(module.Vbe(), *module.Component()->Project(), current);
}

// The options as a user's answers to the builder.
builders::DialogScript ScriptOf(const CallArguments& arguments,
                                const std::vector<builders::CallableModule>& modules) {
  using A = builders::DialogAction;
  for (const builders::CallableModule& module : modules) {
    for (const codegen::Callable& callable : module.procedures) {
      if (!EqualsIgnoreCase(callable.name, arguments.procedure)) continue;
      builders::DialogScript script = {A::Pick("module", module.name),
                                       A::Pick("procedure", callable.name)};
      for (const std::string& given : arguments.args) {
        const std::size_t equals = given.find('=');
        if (equals == std::string::npos) throw UsageError("--arg takes NAME=VALUE, not " + given);
        const std::string name(TrimBlanks(std::string_view(given).substr(0, equals)));
        std::string known;
        int index = -1;
        for (std::size_t i = 0; i < callable.arguments.size(); ++i) {
          known += (i ? ", " : "") + callable.arguments[i].Name;
          if (EqualsIgnoreCase(callable.arguments[i].Name, name)) index = static_cast<int>(i);
        }
        if (index < 0)
          throw UsageError(callable.name + " has no argument " + name +
                           (known.empty() ? "; it takes none" : "; its arguments: " + known));
        script.push_back(A::Text(builders::ArgumentFieldId(index), given.substr(equals + 1)));
      }
      if (!arguments.result.empty()) script.push_back(A::Text("result", arguments.result));
      if (arguments.explicit_arguments) script.push_back(A::Check("explicit"));
      if (arguments.each_line) script.push_back(A::Check("each_line"));
      if (arguments.comment) script.push_back(A::Check("comment"));
      script.push_back(A::Ok());
      return script;
    }
  }
  throw UsageError("no procedure " + arguments.procedure + " to call in " + arguments.source);
}

int RunCall(const GlobalOptions& globals, const CallArguments& arguments) {
  if (arguments.procedure.empty() && arguments.answers.empty())
    throw UsageError("call needs the procedure, or --answers");
  platform::StdFileSystem files;
  std::optional<SourceSession> target = OpenInsertTarget(files, arguments.insert);
  AddinSession addin_session(globals);
  const fragments::Settings settings = addin_session.Load(/*interactive=*/false);
  std::string current;
  auto modules = CallablesOf(arguments, files, settings, current);

  builders::ScriptedDialogHost host;
  if (!arguments.answers.empty())
    LoadAnswerFile(arguments.answers, host);
  else
    host.Answer(std::string(builders::kCodeLineDialogTitle), ScriptOf(arguments, modules));

  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  std::string margin;
  const auto vbe = ide::memory::MemoryVbe::Create();
  addin::Context context{target ? target->Vbe() : *vbe, ui, ide_options, &settings,
                         &addin_session.Files(), &host};
  if (target) margin = Blanks(addin::CaretMargin(context));

  builders::CodeLineDialog dialog(std::move(modules), current,
                                  builders::CallOptionsFrom(settings.values), margin);
  const bool confirmed = host.Show(dialog);
  CheckAnswered(host, confirmed);
  if (!confirmed) return kDone;  // cancelled: nothing written
  if (!target) {
    std::cout << ReplaceAll(dialog.Code(), "<cursor>", "") << "\r\n";
    return kDone;
  }
  const int first_line = addin::InsertBlock(context, dialog.Code(), 0);
  if (first_line > 0) addin::PlaceCursorMarker(context, first_line, false);
  WriteInsertTarget(*target, globals.json);
  return kDone;
}

}  // namespace

Command AddCallCommand(CLI::App& app) {
  auto a = std::make_shared<CallArguments>();
  CLI::App* command = app.add_subcommand(
      "call", "Builds a call to a procedure of a module, a project or the code library");
  command->add_option("source", a->source,
                      "A .bas/.cls/.frm file, a .vbp project, or \"library\" for the code "
                      "library folder")
      ->required();
  command->add_option("procedure", a->procedure, "The procedure to call");
  command->add_option("--arg", a->args, "An argument's value: NAME=VALUE");
  command->add_option("--result", a->result, "The variable a Function's result goes to");
  command->add_flag("--explicit", a->explicit_arguments, "Name the arguments: name:=value");
  command->add_flag("--each-line", a->each_line, "One argument per continuation line");
  command->add_flag("--comment", a->comment, "A comment line above the call");
  AddInsertOptions(*command, a->insert, "Insert the call into this module at the caret");
  command->add_option("--answers", a->answers,
                      "A JSON answer file for the dialog \"Insert Line Of Code\"");
  return {command, [a](const GlobalOptions& globals) { return RunCall(globals, *a); }};
}

}  // namespace tavrin::cli
