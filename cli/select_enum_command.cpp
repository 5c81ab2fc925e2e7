// tavrin select-enum: the Select From Enum builder over the enums of a
// module or a project, answered from the options or an answer file. The
// libraries the project references are named as ones the tool cannot read.
#include <iostream>
#include <memory>
#include <optional>

#include "addin/code_pane.h"
#include "addin/declaration_builders.h"
#include "addin/select_enum_command.h"
#include "base/text.h"
#include "builders/scripted_dialog_host.h"
#include "builders/select_enum_dialog.h"
#include "cli/addin_session.h"
#include "cli/answer_file.h"
#include "cli/command.h"
#include "cli/positions.h"
#include "cli/proc_record.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "ide/memory/memory_vbe.h"
#include "platform/ide_options.h"
#include "platform/std_file_system.h"
#include "platform/terminal_ui.h"
#include "scan/module_text_scanner.h"

namespace tavrin::cli {
namespace {

struct SelectEnumArguments {
  std::string file;
  std::string project;
  std::string enum_name;
  std::string expression;
  std::optional<std::string> case_else_code;
  bool no_case_else = false;
  bool return_values = false;
  std::string answers;
  PositionOptions position;
  OutputOptions output;
};

// What a user would do in the dialog with these options.
builders::DialogScript ScriptOf(const SelectEnumArguments& a, const builders::DeclarationTarget& target) {
  using A = builders::DialogAction;
  builders::DialogScript script;
  if (!a.enum_name.empty()) {
    std::string entry, known;
    for (const builders::EnumChoice& choice : builders::EnumChoices(target)) {
      known += (known.empty() ? "" : ", ") + choice.name;
      if (entry.empty() && EqualsIgnoreCase(choice.name, a.enum_name)) entry = choice.Entry();
    }
    if (entry.empty())
      throw UsageError("no enum " + a.enum_name + " is visible here" +
                       (known.empty() ? "; none is" : "; the enums: " + known));
    script.push_back(A::Pick("enum", entry));
  }
  if (!a.expression.empty()) script.push_back(A::Text("expression", a.expression));
  if (a.no_case_else) script.push_back(A::Check("case_else", false));
  if (a.case_else_code) script.push_back(A::Text("code_case_else", *a.case_else_code));
  if (a.return_values) script.push_back(A::Check("return_values"));
  script.push_back(A::Ok());
  return script;
}

int RunSelectEnum(const GlobalOptions& globals, const SelectEnumArguments& a) {
  if (a.file.empty() && a.project.empty())
    throw UsageError("select-enum needs a module file or --project X.vbp to take enums from");
  if (!a.file.empty() && !HasPosition(a.position))
    throw UsageError("writing into a file needs --caret L:C");
  platform::StdFileSystem files;
  AddinSession addin_session(globals);
  const fragments::Settings settings = addin_session.Load(/*interactive=*/false);
  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);

  std::optional<SourceSession> session;
  std::shared_ptr<ide::memory::MemoryVbe> vbe;
  if (!a.file.empty()) {
    session.emplace(files, a.file);
    session->Pane()->SetSelection(ResolvePosition(a.position, *session->Pane()->CodeModule()));
  } else {
    vbe = ide::memory::MemoryVbe::Create();
  }
  ide::IVbe& ide = session ? session->Vbe() : *vbe;
  if (!a.project.empty()) {
    auto* memory = dynamic_cast<ide::memory::MemoryVbe*>(&ide);
    const auto project = memory->OpenProject(files, a.project);
    if (!project) throw UsageError(project.error());
  }

  // The tool stays portable (no Windows layer): it names the libraries it
  // cannot read instead.
  scan::NoTypeLibraries reader;
  scan::TypeLibraryScanner libraries(reader);
  builders::ScriptedDialogHost host;
  addin::Context context{ide, ui, ide_options, &settings, &addin_session.Files(), &host};
  context.type_libraries = &libraries;
  // Each library that cannot be read, on a line of its own; the scanner
  // keeps what it read, so the builder does not report them again.
  for (const std::string& problem : libraries.Scan(ide).problems)
    std::cerr << "tavrin: " << problem << "\n";

  builders::DeclarationTarget target;
  if (session) {
    target = addin::DeclarationTargetOf(context);
  } else {
    // Printed as for a new procedure of a new module: the projects' public
    // enums and the libraries'.
    target.module_name = "Module1";
    target.module = scan::ScanModuleText("Sub Main()\r\nEnd Sub");
    target.caret_line = 2;
    target.project = scan::ScanProjects(ide);
    target.libraries = libraries.Scan(ide).symbols;
  }
  if (!a.answers.empty())
    LoadAnswerFile(a.answers, host);
  else
    host.Answer(std::string(builders::kSelectEnumDialogTitle), ScriptOf(a, target));

  if (session) {
    const bool written = addin::SelectFromEnum(context);
    if (host.shown.empty()) throw UsageError(builders::NoEnumMessage());
    CheckAnswered(host, written);
    if (!written) return kDone;  // cancelled: nothing written
    session->WriteResult(a.output, globals.json, std::cout);
    return kDone;
  }
  builders::SelectEnumDialog dialog(
      std::move(target),
      {settings.YesNo(settings::Item::kAddCaseElse), settings.Text(settings::Item::kCodeCaseElse),
       settings.YesNo(settings::Item::kInsertReturnValues)},
      "");
  if (dialog.Enums().empty()) throw UsageError(builders::NoEnumMessage());
  const bool confirmed = host.Show(dialog);
  CheckAnswered(host, confirmed);
  if (!confirmed) return kDone;
  const std::string text = ReplaceAll(dialog.Code(), "<cursor>", "");
  if (globals.json)
    std::cout << DumpJson({{"text", text}}) << "\n";
  else
    std::cout << text << "\r\n";
  return kDone;
}

}  // namespace

Command AddSelectEnumCommand(CLI::App& app) {
  auto a = std::make_shared<SelectEnumArguments>();
  CLI::App* command = app.add_subcommand(
      "select-enum", "Writes a Select Case with one Case per member of an enum");
  command->add_option("file", a->file, "A .bas, .cls, .frm or .ctl file to write into");
  command->add_option("--project", a->project,
                      "A .vbp project whose enums and referenced libraries are offered");
  command->add_option("--enum", a->enum_name, "The enum (default: the first offered)");
  command->add_option("--expression", a->expression, "The expression to test");
  command->add_flag("--no-case-else", a->no_case_else, "Leave out the Case Else");
  command->add_option("--case-else", a->case_else_code, "The code of the Case Else");
  command->add_flag("--return-values", a->return_values,
                    "In a Function, assign the return value in every Case");
  command->add_option("--answers", a->answers,
                      "A JSON answer file for the dialog \"Select Case From Enum\"");
  AddPositionOptions(*command, a->position);
  AddOutputOptions(*command, a->output);
  return {command, [a](const GlobalOptions& globals) { return RunSelectEnum(globals, *a); }};
}

}  // namespace tavrin::cli
