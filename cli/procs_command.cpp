#include <iostream>
#include <memory>

#include "base/text.h"
#include "cli/command.h"
#include "cli/proc_record.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "platform/std_file_system.h"
#include "scan/module_scanner.h"

namespace tavrin::cli {
namespace {

int RunProcs(const GlobalOptions& globals, const std::string& file) {
  platform::StdFileSystem files;
  SourceSession session(files, file);
  const auto component = session.Pane()->CodeModule()->Parent();
  const auto scanned = scan::ScanModule(&session.Vbe(), *component);
  nlohmann::json records = nlohmann::json::array();
  bool problems = false;
  for (const scan::ScannedProcedure& procedure : scanned) {
    if (!procedure.status) {
      problems = true;
      std::cerr << "tavrin: " << procedure.def.Name() << ": " << procedure.status.error()
                << '\n';
    }
    if (globals.json) {
      nlohmann::json record = ProcRecordJson(procedure.def);
      if (!procedure.status) record["error"] = procedure.status.error();
      records.push_back(std::move(record));
    } else {
      std::cout << ProcRecordLine(procedure.def) << '\n';
    }
  }
  if (globals.json) std::cout << DumpJson(records) << '\n';
  return problems ? kProblemsFound : kDone;
}

struct DeclArguments {
  std::string text;
  std::string group;
};

int RunDecl(const GlobalOptions& globals, const DeclArguments& arguments) {
  // Text from a shell or a script may break lines with LF alone.
  std::vector<std::string> lines;
  for (std::string_view line : SplitAnyLineBreak(arguments.text)) lines.emplace_back(line);
  scan::C4_ProcDef def;
  if (const Status parsed = def.Init2(JoinCrLf(lines), arguments.group); !parsed)
    throw UsageError(parsed.error());
  if (globals.json)
    std::cout << DumpJson(ProcRecordJson(def)) << '\n';
  else
    std::cout << ProcRecordLine(def) << '\n';
  return kDone;
}

}  // namespace

Command AddProcsCommand(CLI::App& app) {
  auto file = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("procs", "Lists every procedure of a module with its declaration");
  command->add_option("file", *file, "A .bas, .cls, .frm, .ctl or .dsr file")->required();
  return {command, [file](const GlobalOptions& globals) { return RunProcs(globals, *file); }};
}

Command AddDeclCommand(CLI::App& app) {
  auto arguments = std::make_shared<DeclArguments>();
  CLI::App* command =
      app.add_subcommand("decl", "Parses a procedure text as a library procedure");
  command->add_option("text", arguments->text, "The procedure's text")->required();
  command->add_option("--group", arguments->group, "The group (library module) name");
  return {command, [arguments](const GlobalOptions& globals) {
            return RunDecl(globals, *arguments);
          }};
}

}  // namespace tavrin::cli
