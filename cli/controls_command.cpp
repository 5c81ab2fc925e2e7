// `tavrin controls`: the control builder on the command line. The list of
// names and types comes from --controls or from the columns of a table of
// an SQLite file; the controls are laid out below a form's controls and
// either the form's .frm text is printed (a new form when no -i is given)
// or the form file is rewritten in place (-i).
#include <iostream>
#include <memory>

#include "builders/control_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "cli/addin_session.h"
#include "cli/answer_file.h"
#include "cli/command.h"
#include "cli/proc_record.h"
#include "cli/sqlite_column_source.h"
#include "cli/usage_error.h"
#include "formtools/control_layout.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"

namespace tavrin::cli {
namespace {

using builders::DialogAction;

struct ControlsArguments {
  std::string controls;  // "Name, Paid As CheckBox"
  std::string sqlite;    // a database file
  std::string table;
  std::string in_place;  // the .frm to rewrite
};

nlohmann::json JsonOf(const std::vector<formtools::PlacedControl>& controls) {
  nlohmann::json list = nlohmann::json::array();
  for (const formtools::PlacedControl& c : controls)
    list.push_back({{"name", c.name},   {"class", c.prog_id}, {"caption", c.caption},
                    {"left", c.left},   {"top", c.top},       {"width", c.width},
                    {"height", c.height}, {"tabIndex", c.tab_index}});
  return list;
}

int RunControls(const GlobalOptions& globals, const ControlsArguments& a) {
  std::string list = a.controls;
  if (!a.sqlite.empty()) {
    if (a.table.empty()) throw UsageError("--sqlite needs --table");
    SqliteColumnSource source;
    const auto columns = source.Columns(a.sqlite, a.table);
    if (!columns) throw UsageError(columns.error());
    list = formtools::EntriesText(formtools::EntriesFor(*columns));
  } else if (list.empty()) {
    throw UsageError("controls needs --controls, or --sqlite and --table");
  }

  AddinSession session(globals);
  const fragments::Settings settings = session.Load(/*interactive=*/false);
  platform::StdFileSystem files;
  const auto project = ide::memory::MemoryVbe::Create()->AddProject("Project1");
  std::shared_ptr<ide::memory::MemoryComponent> form;
  if (!a.in_place.empty()) {
    Result<std::string> bytes = files.ReadFile(a.in_place);
    if (!bytes) throw UsageError(bytes.error());
    auto opened = project->AddSourceFile(a.in_place, *bytes);
    if (!opened) throw UsageError(opened.error());
    form = *opened;
  } else {
    form = project->AddComponent(ide::ComponentType::kVBForm, "Form1", "");
  }
  const auto designer = form->Designer();
  if (!designer) throw UsageError(a.in_place + " is not a form");

  // The same dialog as the add-in's, answered from the options.
  builders::ScriptedDialogHost host;
  host.Answer(std::string(builders::kControlDialogTitle),
              {DialogAction::Text("controls", list), DialogAction::Ok()});
  builders::ControlDialog dialog(form->Name(), formtools::FormStateOf(*designer),
                                 settings.type_prefixes, nullptr);
  const bool confirmed = host.Show(dialog);
  CheckAnswered(host, confirmed);
  const auto layout = dialog.Layout();
  formtools::AddToForm(*designer, layout.controls);

  const std::string text = form->SourceBytes();
  if (!a.in_place.empty())
    if (Status status = files.WriteFile(a.in_place, text); !status) throw UsageError(status.error());
  if (globals.json) {
    nlohmann::json json = {{"controls", JsonOf(layout.controls)}};
    if (a.in_place.empty()) json["text"] = text;
    std::cout << DumpJson(json) << "\n";
  } else if (a.in_place.empty()) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  return kDone;
}

}  // namespace

Command AddControlsCommand(CLI::App& app) {
  auto a = std::make_shared<ControlsArguments>();
  CLI::App* command = app.add_subcommand(
      "controls", "Lays out labelled controls on a form from a list or a database table");
  command->add_option("--controls", a->controls,
                      "The names and types, e.g. \"CustomerName, Paid As CheckBox\"");
  command->add_option("--sqlite", a->sqlite, "An SQLite file whose table gives the controls");
  command->add_option("--table", a->table, "The table of --sqlite");
  command->add_option("-i,--in-place", a->in_place,
                      "The .frm file to add the controls to (rewritten)");
  return {command, [a](const GlobalOptions& globals) { return RunControls(globals, *a); }};
}

}  // namespace tavrin::cli
