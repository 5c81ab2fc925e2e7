// `access-keys FORM`: access keys that more than one caption of the form
// uses; with --fix the user types new captions and the form is written.
#include <iostream>
#include <memory>
#include <sstream>

#include <nlohmann/json.hpp>

#include "cli/command.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "formtools/access_keys.h"
#include "formtools/verify_shortcuts.h"
#include "platform/std_file_system.h"
#include "resources/string_table.h"

namespace tavrin::cli {
namespace {

struct AccessKeyArguments {
  std::string file;
  bool fix = false;
  std::string output_path;
};

std::vector<std::string> Names(const formtools::ShortcutConflict& conflict) {
  std::vector<std::string> names;
  for (const auto& use : conflict.uses) names.push_back(formtools::CaptionDisplayName(use));
  return names;
}

void PrintReport(const std::vector<formtools::ShortcutConflict>& conflicts, bool json,
                 std::ostream& out) {
  if (json) {
    nlohmann::ordered_json report = nlohmann::ordered_json::array();
    for (const auto& conflict : conflicts)
      report.push_back({{"key", std::string(1, conflict.letter)}, {"controls", Names(conflict)}});
    out << report.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    return;
  }
  if (conflicts.empty()) out << resources::LoadResString(formtools::kShortcutsOkMessage) << '\n';
  for (const auto& conflict : conflicts) {
    out << conflict.letter << ':';
    const auto names = Names(conflict);
    for (std::size_t i = 0; i < names.size(); ++i) out << (i ? ", " : " ") << names[i];
    out << '\n';
  }
}

int RunAccessKeys(const GlobalOptions& globals, const AccessKeyArguments& arguments) {
  platform::StdFileSystem files;
  SourceSession session(files, arguments.file);
  const auto component = session.Component();
  const auto designer = component->Designer();
  if (!designer) throw UsageError("'" + arguments.file + "' is no form: it has no designer");
  const auto conflicts = formtools::FindShortcutConflicts(formtools::CollectAccessKeys(*designer));
  PrintReport(conflicts, globals.json, std::cout);
  if (arguments.fix && !conflicts.empty()) {
    // The check runs as in the IDE, on the form shown in its designer window.
    component->Vbe()->ActivateWindow(component->DesignerWindow());
    platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
    formtools::VerifyShortcuts(formtools::ActiveFormDesigner(session.Vbe()), ui);
    OutputOptions output{arguments.output_path, arguments.output_path.empty()};
    std::ostringstream ignored;
    session.WriteResult(output, false, ignored);
  }
  return conflicts.empty() ? kDone : kProblemsFound;
}

}  // namespace

Command AddAccessKeysCommand(CLI::App& app) {
  auto arguments = std::make_shared<AccessKeyArguments>();
  CLI::App* command = app.add_subcommand(
      "access-keys", "Reports access keys that more than one control of a form uses");
  command->add_option("form", arguments->file, "A .frm, .ctl or .dsr file")->required();
  command->add_flag("--fix", arguments->fix, "Ask for new captions and write the form");
  command->add_option("-o,--output", arguments->output_path,
                      "With --fix: write the form to OUT instead of FORM")
      ->needs(command->get_option("--fix"));
  return {command, [arguments](const GlobalOptions& globals) {
            return RunAccessKeys(globals, *arguments);
          }};
}

}  // namespace tavrin::cli
