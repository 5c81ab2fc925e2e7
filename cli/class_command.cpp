// `tavrin class`: the class builder on the command line. It fills the
// builder's dialog from options (or an answer file) and prints the new
// .cls file, or with --project writes it beside the project (or into -o's
// folder) and lists it in the .vbp.
#include <filesystem>
#include <iostream>
#include <memory>

#include "addin/class_builder.h"
#include "addin/code_line_commands.h"
#include "builders/scripted_dialog_host.h"
#include "cli/addin_session.h"
#include "cli/answer_file.h"
#include "cli/command.h"
#include "cli/proc_record.h"
#include "cli/usage_error.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "ide/memory/vbp_file.h"
#include "platform/ide_options.h"
#include "platform/std_file_system.h"
#include "platform/terminal_ui.h"

namespace tavrin::cli {
namespace {

using builders::DialogAction;

struct ClassArguments {
  std::string name;
  std::string kind;  // class or collection
  std::string item;
  std::string properties;
  std::string description;
  bool no_header = false;
  bool no_option_explicit = false;
  std::string project;  // the .vbp the class joins
  std::string output;   // the folder of the .cls; default the project's
  std::string answers;
};

builders::DialogScript ScriptOf(const ClassArguments& a) {
  builders::DialogScript script = {DialogAction::Text("name", a.name)};
  if (a.kind == "collection") {
    script.push_back(DialogAction::Pick("kind", std::string(builders::kCollectionClass)));
    if (!a.item.empty()) script.push_back(DialogAction::Text("item", a.item));
  } else if (a.kind.empty() || a.kind == "class") {
    if (!a.properties.empty()) script.push_back(DialogAction::Text("properties", a.properties));
  } else {
    throw UsageError("--kind must be class or collection");
  }
  if (!a.description.empty()) script.push_back(DialogAction::Text("description", a.description));
  if (a.no_header) script.push_back(DialogAction::Check("header", false));
  if (a.no_option_explicit) script.push_back(DialogAction::Check("option_explicit", false));
  script.push_back(DialogAction::Ok());
  return script;
}

// The member path the .vbp gives the file: relative to the project's
// folder when it lies below it, Windows separators as the IDE writes them.
std::string MemberPath(const std::filesystem::path& vbp, const std::filesystem::path& file) {
  const std::filesystem::path folder = std::filesystem::absolute(vbp).parent_path();
  std::filesystem::path relative = std::filesystem::absolute(file).lexically_relative(folder);
  if (relative.empty() || *relative.begin() == "..") relative = std::filesystem::absolute(file);
  std::string text = relative.generic_string();
  for (char& c : text)
    if (c == '/') c = '\\';
  return text;
}

int RunClass(const GlobalOptions& globals, const ClassArguments& a) {
  builders::ScriptedDialogHost host;
  if (!a.answers.empty()) {
    LoadAnswerFile(a.answers, host);
  } else {
    if (a.name.empty()) throw UsageError("class needs --name, or --answers");
    host.Answer(std::string(builders::kClassDialogTitle), ScriptOf(a));
  }
  AddinSession session(globals);
  const fragments::Settings settings = session.Load(/*interactive=*/false);
  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  platform::StdFileSystem files;
  const auto vbe = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::IProject> project;
  if (!a.project.empty()) {
    auto opened = vbe->OpenProject(files, a.project);
    if (!opened) throw UsageError(opened.error());
    project = *opened;
  } else {
    project = vbe->AddProject("Project1");
  }
  addin::Context context{*vbe, ui, ide_options, &settings, &session.Files(), &host};
  builders::ClassDialog dialog(addin::ClassTargetOf(context, *project), settings.Naming(),
                               settings.type_prefixes, addin::TemplateEnvironmentOf(context));
  const bool confirmed = host.Show(dialog);
  CheckAnswered(host, confirmed);
  if (!confirmed) return kDone;

  const std::string text = dialog.FileText();
  const std::string name = dialog.DeclaredName();
  std::string written;
  if (!a.project.empty()) {
    const std::filesystem::path folder = !a.output.empty()
                                             ? std::filesystem::path(a.output)
                                             : std::filesystem::path(a.project).parent_path();
    const std::filesystem::path file = folder / (name + ".cls");
    if (files.FileExists(file.string()))
      throw UsageError(file.string() + " exists already; the class was not written");
    Result<std::string> vbp = files.ReadFile(a.project);
    if (!vbp) throw UsageError(vbp.error());
    if (Status status = files.WriteFile(file.string(), text); !status)
      throw UsageError(status.error());
    const std::string listed =
        ide::memory::AddVbpMember(*vbp, "Class", name, MemberPath(a.project, file));
    if (Status status = files.WriteFile(a.project, listed); !status)
      throw UsageError(status.error());
    written = file.string();
  }
  if (globals.json) {
    nlohmann::json json = {{"name", name}, {"text", text}};
    if (!written.empty()) json["file"] = written;
    std::cout << DumpJson(json) << "\n";
  } else if (written.empty()) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  return kDone;
}

}  // namespace

Command AddClassCommand(CLI::App& app) {
  auto a = std::make_shared<ClassArguments>();
  CLI::App* command =
      app.add_subcommand("class", "Builds a class module: a plain class or a collection class");
  command->add_option("--name", a->name, "The name as typed; the naming rules add the prefix");
  command->add_option("--kind", a->kind, "class (default) or collection");
  command->add_option("--item", a->item, "A collection's item class (default the first class)");
  command->add_option("--properties", a->properties,
                      "A plain class's properties, e.g. \"Name As String, Total As Currency\"");
  command->add_option("--description", a->description, "The module header's description");
  command->add_flag("--no-header", a->no_header, "Leave the module header out");
  command->add_flag("--no-option-explicit", a->no_option_explicit, "Leave Option Explicit out");
  command->add_option("--project", a->project, "The .vbp the class joins (its file is written)");
  command->add_option("-o,--output", a->output, "With --project: the folder of the .cls file");
  command->add_option("--answers", a->answers,
                      "A JSON file answering the \"Add Class\" dialog instead of the options");
  return {command, [a](const GlobalOptions& globals) { return RunClass(globals, *a); }};
}

}  // namespace tavrin::cli
