// The commands over the fragment library: fragments (the tree), fragment
// insert, save, rename, move and delete.
#include <iostream>
#include <map>
#include <memory>
#include <optional>

#include <nlohmann/json.hpp>

#include "addin/code_line_commands.h"
#include "addin/fragment_commands.h"
#include "base/text.h"
#include "cli/addin_session.h"
#include "cli/command.h"
#include "cli/positions.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "fragments/fragment_library.h"
#include "platform/std_file_system.h"

namespace tavrin::cli {
namespace {

struct FragmentArguments {
  std::string name;
  std::string file;
  std::string folder;
  std::string new_name;
  std::vector<std::string> variables;  // NAME=VALUE
  PositionOptions position;
  OutputOptions output;
};

int RunFragments(const GlobalOptions& globals) {
  AddinSession session(globals);
  const fragments::Settings loaded = session.Load(false);
  const fragments::FragmentTree tree =
      fragments::ReadFragmentTree(loaded.folders, session.Files());
  for (const std::string& problem : tree.problems) std::cerr << "tavrin: " << problem << '\n';
  if (globals.json) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const fragments::FragmentEntry& entry : tree.entries)
      list.push_back({{"name", entry.name}, {"display", entry.display}, {"path", entry.path},
                      {"depth", entry.depth}, {"folder", entry.is_folder}});
    std::cout << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace)
              << '\n';
  } else {
    for (const fragments::FragmentEntry& entry : tree.entries)
      std::cout << Blanks(entry.depth * 2) << entry.name
                << (entry.is_folder && entry.depth > 0 ? "\\" : "") << '\n';
  }
  return tree.problems.empty() ? kDone : kBadInput;
}

fragments::FragmentEntry Find(const fragments::Settings& loaded, platform::FileSystem& files,
                              const std::string& name) {
  const fragments::FragmentTree tree = fragments::ReadFragmentTree(loaded.folders, files);
  if (auto found = fragments::FindFragment(tree, name)) return *found;
  throw UsageError("no fragment '" + name +
                   "'; name it by its path (\"<fragments>Loops\\ForEach.bas\") or by a file "
                   "name only one fragment has; see tavrin fragments");
}

fragments::VariableValues GivenVariables(const std::vector<std::string>& pairs) {
  fragments::VariableValues values;
  for (const std::string& pair : pairs) {
    const auto equals = pair.find('=');
    if (equals == std::string::npos || equals == 0)
      throw UsageError("--var takes NAME=VALUE, not '" + pair + "'");
    values[ToUpperAscii(TrimBlanks(pair.substr(0, equals)))] = pair.substr(equals + 1);
  }
  return values;
}

int RunInsert(const GlobalOptions& globals, const FragmentArguments& arguments) {
  if (!HasPosition(arguments.position))
    throw UsageError("fragment insert needs the caret: --caret L:C");
  AddinSession addin_session(globals);
  const fragments::Settings loaded = addin_session.Load(false);
  const fragments::FragmentEntry fragment =
      Find(loaded, addin_session.Files(), arguments.name);
  const fragments::VariableValues given = GivenVariables(arguments.variables);

  platform::StdFileSystem files;
  SourceSession session(files, arguments.file);
  session.Pane()->SetSelection(
      ResolvePosition(arguments.position, *session.Pane()->CodeModule()));
  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  addin::Context context{session.Vbe(), ui, ide_options, &loaded, &addin_session.Files()};
  context.profiles = &addin_session.Profiles();
  if (!addin::InsertFragment(context, fragment, given)) return kBadInput;
  session.WriteResult(arguments.output, globals.json, std::cout);
  return kDone;
}

std::string FolderOf(const fragments::Settings& loaded, platform::FileSystem& files,
                     const std::string& folder) {
  const std::string resolved = loaded.folders.ResolvePath(folder);
  if (!files.FolderExists(resolved))
    throw UsageError("the folder '" + resolved + "' does not exist");
  return resolved;
}

int RunSave(const GlobalOptions& globals, const FragmentArguments& arguments) {
  AddinSession addin_session(globals);
  const fragments::Settings loaded = addin_session.Load(false);
  platform::StdFileSystem files;
  SourceSession session(files, arguments.file);
  if (HasPosition(arguments.position))
    session.Pane()->SetSelection(
        ResolvePosition(arguments.position, *session.Pane()->CodeModule()));
  else
    session.Pane()->SetSelection({1, 1, 1, 1});
  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  addin::Context context{session.Vbe(), ui, ide_options, &loaded, &addin_session.Files()};
  const std::string text = addin::FragmentSourceText(context);
  if (text.empty()) throw UsageError("nothing to save: select lines or put the caret in a procedure");
  const Result<std::string> saved =
      fragments::SaveFragment(addin_session.Files(),
                              FolderOf(loaded, addin_session.Files(), arguments.folder),
                              arguments.new_name, text, loaded.folders.Style());
  if (!saved) throw UsageError(saved.error());
  std::cout << *saved << '\n';
  return kDone;
}

int RunManage(const GlobalOptions& globals, const FragmentArguments& arguments,
              std::string_view action) {
  AddinSession session(globals);
  const fragments::Settings loaded = session.Load(false);
  const fragments::FragmentEntry fragment = Find(loaded, session.Files(), arguments.name);
  const platform::PathStyle style = loaded.folders.Style();
  Result<std::string> done = std::string();
  if (action == "rename") {
    done = fragments::RenameFragment(session.Files(), fragment, arguments.new_name, style);
  } else if (action == "move") {
    done = fragments::MoveFragment(session.Files(), fragment,
                                   FolderOf(loaded, session.Files(), arguments.folder), style);
  } else if (Status deleted = fragments::DeleteFragment(session.Files(), fragment); !deleted) {
    done = Error{deleted.error()};
  }
  if (!done) throw UsageError(done.error());
  if (!done->empty()) std::cout << *done << '\n';
  return kDone;
}

}  // namespace

Command AddFragmentsCommand(CLI::App& app) {
  CLI::App* command =
      app.add_subcommand("fragments", "Lists the code folders' fragments as a tree");
  return {command, [](const GlobalOptions& globals) { return RunFragments(globals); }};
}

Command AddFragmentCommand(CLI::App& app) {
  auto arguments = std::make_shared<FragmentArguments>();
  CLI::App* command = app.add_subcommand("fragment", "Inserts, saves and manages fragments");
  command->require_subcommand(1);
  CLI::App* insert = command->add_subcommand("insert", "Inserts a fragment at the caret");
  insert->add_option("name", arguments->name, "The fragment: its path or file name")->required();
  insert->add_option("file", arguments->file, "A .bas, .cls, .frm, .ctl or .dsr file")
      ->required();
  insert->add_option("--var", arguments->variables, "A fragment variable: NAME=VALUE");
  AddPositionOptions(*insert, arguments->position);
  AddOutputOptions(*insert, arguments->output);
  CLI::App* save = command->add_subcommand(
      "save", "Saves the selection (or the procedure at the caret) as a new fragment");
  save->add_option("folder", arguments->folder, "The folder, e.g. \"<fragments>Loops\"")
      ->required();
  save->add_option("name", arguments->new_name, "The fragment's file name")->required();
  save->add_option("file", arguments->file, "The source file")->required();
  AddPositionOptions(*save, arguments->position);
  CLI::App* rename = command->add_subcommand("rename", "Renames a fragment file");
  rename->add_option("name", arguments->name, "The fragment")->required();
  rename->add_option("new-name", arguments->new_name, "Its new file name")->required();
  CLI::App* move = command->add_subcommand("move", "Moves a fragment file into another folder");
  move->add_option("name", arguments->name, "The fragment")->required();
  move->add_option("folder", arguments->folder, "The folder, e.g. \"<library>Data\"")->required();
  CLI::App* remove = command->add_subcommand("delete", "Deletes a fragment file");
  remove->add_option("name", arguments->name, "The fragment")->required();
  return {command, [=](const GlobalOptions& globals) {
            if (insert->parsed()) return RunInsert(globals, *arguments);
            if (save->parsed()) return RunSave(globals, *arguments);
            if (rename->parsed()) return RunManage(globals, *arguments, "rename");
            if (move->parsed()) return RunManage(globals, *arguments, "move");
            return RunManage(globals, *arguments, "delete");
          }};
}

}  // namespace tavrin::cli
