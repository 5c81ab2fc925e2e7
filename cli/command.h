// A command of the tool: its CLI11 subcommand and what it runs once the
// command line is parsed.
#pragma once

#include <functional>

#include <CLI/CLI.hpp>

#include "cli/global_options.h"

namespace tavrin::cli {

struct Command {
  CLI::App* app = nullptr;
  // Returns the exit status; raises UsageError for bad usage or input.
  std::function<int(const GlobalOptions&)> run;
};

Command AddSnippetCommand(CLI::App& app);
Command AddLinesCommand(CLI::App& app);
Command AddCommentCommand(CLI::App& app);
Command AddHtmlCommand(CLI::App& app);
Command AddAccessKeysCommand(CLI::App& app);
Command AddSettingsCommand(CLI::App& app);
Command AddNameCommand(CLI::App& app);
Command AddPathCommand(CLI::App& app);
Command AddFoldersCommand(CLI::App& app);
Command AddIniCommand(CLI::App& app);
Command AddCommandsCommand(CLI::App& app);
Command AddProcsCommand(CLI::App& app);
Command AddDeclCommand(CLI::App& app);
Command AddProcedureCommand(CLI::App& app);
Command AddCallCommand(CLI::App& app);
Command AddExplicitArgsCommand(CLI::App& app);
Command AddHeaderCommand(CLI::App& app);
Command AddTemplateCommand(CLI::App& app);
Command AddTreeCommand(CLI::App& app);
Command AddFindCommand(CLI::App& app);
Command AddTabOrderCommand(CLI::App& app);
Command AddVariableCommand(CLI::App& app);
Command AddConstantCommand(CLI::App& app);
Command AddPropertyCommand(CLI::App& app);
Command AddEnumCommand(CLI::App& app);
Command AddTypeCommand(CLI::App& app);
Command AddSelectEnumCommand(CLI::App& app);
Command AddFragmentsCommand(CLI::App& app);
Command AddFragmentCommand(CLI::App& app);
Command AddClassCommand(CLI::App& app);
Command AddControlsCommand(CLI::App& app);

}  // namespace tavrin::cli
