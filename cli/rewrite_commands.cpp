// `lines add|remove FILE` and `comment add|remove FILE`: a rewrite of the
// selected lines of one source file.
#include <functional>
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/positions.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "platform/std_file_system.h"
#include "transform/pane_transforms.h"

namespace tavrin::cli {
namespace {

using PaneRewrite = std::function<void(ide::ICodePane&)>;

struct RewriteArguments {
  std::string action;
  std::string file;
  PositionOptions position;
  OutputOptions output;
};

int RunRewrite(const GlobalOptions& globals, const RewriteArguments& arguments,
               const PaneRewrite& add, const PaneRewrite& remove) {
  platform::StdFileSystem files;
  SourceSession session(files, arguments.file);
  const auto pane = session.Pane();
  const auto module = pane->CodeModule();
  pane->SetSelection(ResolvePosition(arguments.position, *module));
  // The whole of a module without code lines (a class or a form with only its
  // header) is no lines at all, not the empty line the caret stands on.
  const bool nothing_to_rewrite = !HasPosition(arguments.position) && module->CountOfLines() == 0;
  if (!nothing_to_rewrite) (arguments.action == "add" ? add : remove)(*pane);
  session.WriteResult(arguments.output, globals.json, std::cout);
  return kDone;
}

Command AddRewriteCommand(CLI::App& app, const std::string& name, const std::string& help,
                          PaneRewrite add, PaneRewrite remove) {
  auto arguments = std::make_shared<RewriteArguments>();
  CLI::App* command = app.add_subcommand(name, help);
  command->add_option("action", arguments->action, "add or remove")
      ->required()
      ->check(CLI::IsMember({"add", "remove"}));
  command->add_option("file", arguments->file, "A .bas, .cls, .frm, .ctl or .dsr file")
      ->required();
  AddPositionOptions(*command, arguments->position);
  AddOutputOptions(*command, arguments->output);
  return {command, [arguments, add, remove](const GlobalOptions& globals) {
            return RunRewrite(globals, *arguments, add, remove);
          }};
}

}  // namespace

Command AddLinesCommand(CLI::App& app) {
  return AddRewriteCommand(
      app, "lines", "Adds or removes line numbers over the position given (default: all)",
      [](ide::ICodePane& pane) {
        long long start_number = 0;
        transform::AddLineNumbers(pane, start_number);
      },
      [](ide::ICodePane& pane) { transform::RemoveLineNumbers(pane); });
}

Command AddCommentCommand(CLI::App& app) {
  return AddRewriteCommand(
      app, "comment", "Comments or uncomments the lines of the position given (default: all)",
      [](ide::ICodePane& pane) { transform::AddCommentMarks(pane); },
      [](ide::ICodePane& pane) { transform::RemoveCommentMarks(pane); });
}

}  // namespace tavrin::cli
