// The tool windows' models from the command line: `tree PROJECT`, `find
// PROJECT QUERY` and `tab-order FORM`.
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/command.h"
#include "cli/proc_record.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"
#include "toolwindows/code_explorer.h"
#include "toolwindows/search_index.h"
#include "toolwindows/tab_order.h"

namespace tavrin::cli {
namespace {

using toolwindows::NodeKind;

std::string_view KindName(NodeKind kind) {
  switch (kind) {
    case NodeKind::kProject:
      return "project";
    case NodeKind::kFolder:
      return "folder";
    case NodeKind::kComponent:
      return "component";
    case NodeKind::kProcedure:
      return "sub";
    case NodeKind::kFunction:
      return "function";
    case NodeKind::kProperty:
      return "property";
    case NodeKind::kAccessor:
      return "accessor";
    case NodeKind::kEnum:
      return "enum";
    case NodeKind::kType:
      return "type";
    case NodeKind::kConstant:
      return "constant";
    case NodeKind::kVariable:
      return "variable";
    case NodeKind::kDeclare:
      return "declare";
    case NodeKind::kEnumMember:
      return "enum member";
    case NodeKind::kTypeMember:
      return "type member";
  }
  return "";
}

std::vector<toolwindows::Node> ProjectTree(const std::string &path) {
  platform::StdFileSystem files;
  const auto vbe = ide::memory::MemoryVbe::Create();
  if (auto opened = vbe->OpenProject(files, path); !opened.ok())
    throw UsageError(opened.error());
  toolwindows::CodeExplorer explorer(*vbe);
  explorer.Build();
  return explorer.Tree();
}

nlohmann::json NodeJson(const toolwindows::Node &node) {
  nlohmann::json json = {{"caption", node.caption}, {"kind", KindName(node.kind)}};
  if (node.line > 0) {
    json["line"] = node.line;
    if (node.kind != NodeKind::kAccessor) json["public"] = node.is_public;
  }
  if (!node.children.empty()) {
    json["children"] = nlohmann::json::array();
    for (const auto &child : node.children) json["children"].push_back(NodeJson(child));
  }
  return json;
}

int RunTree(const GlobalOptions &globals, const std::string &project) {
  const auto tree = ProjectTree(project);
  if (globals.json) {
    nlohmann::json projects = nlohmann::json::array();
    for (const auto &node : tree) projects.push_back(NodeJson(node));
    std::cout << DumpJson(projects) << '\n';
  } else {
    std::cout << toolwindows::TreeAsText(tree);
  }
  return kDone;
}

struct FindArguments {
  std::string project;
  std::string query;
  std::size_t limit = 50;
};

int RunFind(const GlobalOptions &globals, const FindArguments &arguments) {
  const toolwindows::SearchIndex index(ProjectTree(arguments.project));
  const auto results = index.Find(arguments.query, arguments.limit);
  constexpr std::string_view kMatchNames[] = {"exact", "prefix", "camel-hump", "substring"};
  nlohmann::json records = nlohmann::json::array();
  for (const auto &result : results) {
    const auto &entry = *result.entry;
    if (globals.json) {
      records.push_back({{"name", entry.name},
                         {"kind", KindName(entry.kind)},
                         {"project", entry.project},
                         {"component", entry.component},
                         {"line", entry.line},
                         {"match", kMatchNames[int(result.match)]}});
    } else {
      std::cout << entry.component;
      if (entry.kind != NodeKind::kComponent) std::cout << '.' << entry.name << ':' << entry.line;
      std::cout << " (" << KindName(entry.kind) << ")\n";
    }
  }
  if (globals.json) std::cout << DumpJson(records) << '\n';
  return results.empty() ? kProblemsFound : kDone;
}

struct TabOrderArguments {
  std::string form;
  bool by_position = false;
  OutputOptions output;
};

int RunTabOrder(const GlobalOptions &globals, const TabOrderArguments &arguments) {
  platform::StdFileSystem files;
  SourceSession session(files, arguments.form);
  const auto designer = session.Component()->Designer();
  if (!designer) throw UsageError("'" + arguments.form + "' is no form: it has no designer");
  toolwindows::TabOrder order(*designer);
  if (arguments.by_position) order.OrderByPosition();
  const bool write = !arguments.output.output_path.empty() || arguments.output.in_place;
  if (write) {
    order.Apply();
    std::ostringstream ignored;
    session.WriteResult(arguments.output, false, ignored);
  }
  nlohmann::json records = nlohmann::json::array();
  for (const toolwindows::TabOrderLine &line : order.Lines()) {
    if (line.stop == toolwindows::TabOrderLine::kCaption) {
      if (!globals.json && !write) std::cout << '[' << line.text << "]\n";
      continue;
    }
    const std::size_t i = line.stop;
    const auto &stop = order.Stops()[i];
    const bool on_tab = stop.tab != toolwindows::kNoTab && stop.tab != toolwindows::kHiddenTab;
    if (globals.json)
      records.push_back({{"name", stop.name},
                         {"container", stop.container},
                         {"tab", on_tab ? nlohmann::json(stop.tab) : nlohmann::json()},
                         {"group", stop.tab == toolwindows::kNoTab
                                       ? nlohmann::json()
                                       : nlohmann::json(order.TabCaption(stop))},
                         {"tab_index", stop.tab_index},
                         {"position", i}});
    else if (!write)
      std::cout << i << ' ' << stop.name
                << (stop.tab_index != int(i) ? " (was " + std::to_string(stop.tab_index) + ")" : "")
                << '\n';
  }
  if (globals.json) std::cout << DumpJson(records) << '\n';
  return kDone;
}

}  // namespace

Command AddTreeCommand(CLI::App &app) {
  auto project = std::make_shared<std::string>();
  CLI::App *command = app.add_subcommand("tree",
                                         "Shows the Code Explorer's tree of a project: "
                                         "components by kind and members");
  command->add_option("project", *project, "A .vbp file")->required();
  return {command, [project](const GlobalOptions &globals) { return RunTree(globals, *project); }};
}

Command AddFindCommand(CLI::App &app) {
  auto arguments = std::make_shared<FindArguments>();
  CLI::App *command = app.add_subcommand("find",
                                         "Finds modules, procedures and properties of "
                                         "a project by name, best first");
  command->add_option("project", arguments->project, "A .vbp file")->required();
  command
      ->add_option("query", arguments->query,
                   "A name, its start, part of it, or the starts of its humps")
      ->required();
  command->add_option("--limit", arguments->limit, "The most results shown (50)");
  return {command,
          [arguments](const GlobalOptions &globals) { return RunFind(globals, *arguments); }};
}

Command AddTabOrderCommand(CLI::App &app) {
  auto arguments = std::make_shared<TabOrderArguments>();
  CLI::App *command = app.add_subcommand(
      "tab-order", "Lists the controls of a form in tab order, or orders them by position");
  command->add_option("form", arguments->form, "A .frm, .ctl, .pag or .dob file")->required();
  command->add_flag("--by-position", arguments->by_position,
                    "Order top to bottom, left to right (with -i or -o: write TabIndex)");
  AddOutputOptions(*command, arguments->output);
  return {command,
          [arguments](const GlobalOptions &globals) { return RunTabOrder(globals, *arguments); }};
}

}  // namespace tavrin::cli
