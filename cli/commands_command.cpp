// `tavrin commands`: the toolbar and menu tree of the add-in, from its
// command table.
#include <iostream>
#include <memory>
#include <span>
#include <string>

#include <nlohmann/json.hpp>

#include "addin/command_table.h"
#include "cli/command.h"
#include "cli/usage_error.h"
#include "resources/string_table.h"

namespace tavrin::cli {
namespace {

using addin::CommandBarRoot;
using addin::CommandRow;

std::string_view BarName(CommandBarRoot bar) {
  return bar == CommandBarRoot::kToolbar ? addin::kToolbarName : addin::kCodeWindowBarName;
}

std::string_view TypeName(ide::ControlType type) {
  switch (type) {
    case ide::ControlType::kPopup: return "popup";
    case ide::ControlType::kDropdown: return "dropdown";
    default: return "button";
  }
}

nlohmann::ordered_json RowJson(const CommandRow& row) {
  nlohmann::ordered_json json = {
      {"caption", resources::LoadResString(row.caption_id)},
      {"identifier", row.caption_id},
      {"type", TypeName(row.type)},
      {"picture", row.picture},
      {"group", row.begin_group},
      {"handler", row.handler.empty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(row.handler)},
      {"testingOnly", row.testing_only},
  };
  if (row.IsPopup()) json["controls"] = nlohmann::ordered_json::array();
  return json;
}

// The rows as nested objects: each bar with its controls, each pop-up with
// its entries, in screen order.
nlohmann::ordered_json TreeJson(std::span<const CommandRow> rows) {
  nlohmann::ordered_json bars = nlohmann::ordered_json::array();
  std::vector<nlohmann::ordered_json*> open;  // the controls array of each depth
  for (const CommandRow& row : rows) {
    if (row.depth == 0 && (bars.empty() || bars.back()["bar"] != BarName(row.bar))) {
      bars.push_back({{"bar", BarName(row.bar)}, {"controls", nlohmann::ordered_json::array()}});
    }
    open.resize(static_cast<std::size_t>(row.depth));
    nlohmann::ordered_json& siblings = row.depth == 0 ? bars.back()["controls"] : *open.back();
    siblings.push_back(RowJson(row));
    if (row.IsPopup()) open.push_back(&siblings.back()["controls"]);
  }
  return bars;
}

// "  | &Tavrin [122, popup]" and "    &String... [127] mnuhDimString_Click".
std::string RowText(const CommandRow& row) {
  std::string line(static_cast<std::size_t>(row.depth + 1) * 2, ' ');
  if (row.begin_group) line += "| ";
  line += resources::LoadResString(row.caption_id);
  line += " [" + std::to_string(row.caption_id);
  if (row.picture) line += ", picture";
  if (row.type != ide::ControlType::kButton) line += ", " + std::string(TypeName(row.type));
  if (row.testing_only) line += ", testing only";
  line += "]";
  if (!row.handler.empty()) line += " " + std::string(row.handler);
  return line;
}

int RunCommands(const GlobalOptions& globals) {
  const auto rows = addin::CommandTable();
  if (globals.json) {
    std::cout << TreeJson(rows).dump(2) << '\n';
    return kDone;
  }
  std::optional<CommandBarRoot> bar;
  for (const CommandRow& row : rows) {
    if (row.depth == 0 && row.bar != bar) {
      bar = row.bar;
      std::cout << BarName(row.bar) << '\n';
    }
    std::cout << RowText(row) << '\n';
  }
  return kDone;
}

}  // namespace

Command AddCommandsCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand(
      "commands", "Lists the toolbar and menus: caption, identifier, picture, group, handler");
  return {command, [](const GlobalOptions& globals) { return RunCommands(globals); }};
}

}  // namespace tavrin::cli
