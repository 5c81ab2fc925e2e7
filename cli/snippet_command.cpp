#include <iostream>
#include <memory>
#include <optional>

#include "addin/code_line_commands.h"
#include "addin/code_lines.h"
#include "cli/addin_session.h"
#include "codegen/snippets.h"
#include "cli/command.h"
#include "cli/positions.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "platform/std_file_system.h"

namespace tavrin::cli {
namespace {

struct SnippetArguments {
  std::string name;
  std::string file;
  PositionOptions position;
  OutputOptions output;
};

void CheckSnippetName(const std::string& name) {
  const auto& names = codegen::SnippetCommandNames();
  if (std::find(names.begin(), names.end(), name) != names.end()) return;
  std::string known;
  for (std::string_view each : names) known += (known.empty() ? "" : ", ") + std::string(each);
  throw UsageError("unknown snippet '" + name + "'; the snippets are: " + known);
}

int RunSnippet(const GlobalOptions& globals, const SnippetArguments& arguments) {
  CheckSnippetName(arguments.name);
  if (!HasPosition(arguments.position))
    throw UsageError("snippet needs the caret: --caret L:C");
  platform::StdFileSystem files;
  SourceSession session(files, arguments.file);
  session.Pane()->SetSelection(
      ResolvePosition(arguments.position, *session.Pane()->CodeModule()));

  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  addin::Context context{session.Vbe(), ui, ide_options};
  // Only the commands that need them load the settings (and seed the
  // add-in's folder on first use).
  std::optional<AddinSession> addin_session;
  std::optional<fragments::Settings> settings;
  if (addin::ReadsSettings(arguments.name)) {
    addin_session.emplace(globals);
    settings = addin_session->Load(/*interactive=*/false);
    context.settings = &*settings;
    context.files = &addin_session->Files();
  }
  addin::InsertCodeLines(context, arguments.name);
  session.WriteResult(arguments.output, globals.json, std::cout);
  return kDone;
}

}  // namespace

Command AddSnippetCommand(CLI::App& app) {
  auto arguments = std::make_shared<SnippetArguments>();
  CLI::App* command = app.add_subcommand(
      "snippet", "Inserts a code-line snippet (If, loops, With, Select Case, error lines) at the caret");
  command->add_option("name", arguments->name, "The snippet, e.g. \"If Then Else\"")->required();
  command->add_option("file", arguments->file, "A .bas, .cls, .frm, .ctl or .dsr file")
      ->required();
  AddPositionOptions(*command, arguments->position);
  AddOutputOptions(*command, arguments->output);
  return {command, [arguments](const GlobalOptions& globals) {
            return RunSnippet(globals, *arguments);
          }};
}

}  // namespace tavrin::cli
