// The commands over the add-in's settings: settings, name, path, folders.
#include <iostream>
#include <memory>

#include <nlohmann/json.hpp>

#include "base/text.h"
#include "cli/addin_session.h"
#include "cli/command.h"
#include "cli/usage_error.h"
#include "platform/ui.h"
#include "settings/naming.h"
#include "settings/setting_checks.h"

namespace tavrin::cli {
namespace {

using settings::Item;

std::string Dump(const nlohmann::ordered_json& json) {
  return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}


struct SettingsArguments {
  bool interactive = false;
  std::string key;
  std::string value;
};

void PrintSettings(const fragments::Settings& loaded, bool json) {
  platform::SilentUi ui;
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    const settings::Section section = *settings::ItemInSection(item, ui);
    const std::string key = settings::Item2Name(item, ui);
    const std::string section_name = settings::Section2Name(section, ui);
    const std::string file = settings::IniFile2Name(*settings::Section2IniFile(section, ui), ui);
    const std::string type(settings::IniItemTypeName(*settings::Item2IniItemType(item, ui)));
    const std::string value = loaded.Text(item);
    if (json)
      list.push_back({{"key", key}, {"section", section_name}, {"file", file}, {"type", type},
                      {"value", value}});
    else
      std::cout << file << " [" << section_name << "] " << key << " (" << type << ") = " << value
                << '\n';
  }
  if (json) std::cout << Dump(list) << '\n';
}

// The value in the item's type, checked as the settings dialog checks it.
settings::SettingValue CheckedValue(Item item, const std::string& text) {
  if (const auto problem = settings::SettingTextProblem(item, text)) throw UsageError(*problem);
  return settings::SettingValueOf(item, text);
}

// A folder setting whose folder is missing: created when the user says so.
void CheckFolder(Item item, const std::string& key, const std::string& text,
                 const fragments::Settings& loaded, AddinSession& session) {
  if (item != Item::kBaseFolder && item != Item::kLibraryFolder) return;
  const bool base = item == Item::kBaseFolder;
  const fragments::CodeFolders folders(
      session.Folder(), base ? text : loaded.Text(Item::kBaseFolder),
      base ? loaded.Text(Item::kLibraryFolder) : text);
  if (const auto problem = settings::CheckFolderSetting(
          key, folders.CodeFolder(base ? 1 : 2), session.Files(), session.Services().ui))
    throw UsageError(*problem);
}

int RunSettings(const GlobalOptions& globals, const SettingsArguments& arguments) {
  AddinSession session(globals);
  fragments::Settings loaded = session.Load(arguments.interactive);
  PrintSettings(loaded, globals.json);
  return kDone;
}

int RunSettingsSet(const GlobalOptions& globals, const SettingsArguments& arguments) {
  const auto item = settings::ItemOfKey(arguments.key);
  if (!item) throw UsageError("unknown setting '" + arguments.key + "'; see tavrin settings");
  platform::SilentUi ui;
  const std::string key = settings::Item2Name(*item, ui);
  const settings::SettingValue value = CheckedValue(*item, arguments.value);
  AddinSession session(globals);
  fragments::Settings loaded = session.Load(false);
  CheckFolder(*item, key, arguments.value, loaded, session);
  if (const Status saved = settings::SaveItem(loaded.values, session.Services(), *item, value);
      !saved)
    throw UsageError(ReplaceAll(saved.error(), "\r\n", ": "));
  std::cout << key << " = " << settings::ValueAsText(value) << '\n';
  return kDone;
}

struct NameArguments {
  std::string typed;
  std::string type;
  std::string scope = "local";
  bool constant = false;
};

int ScopeCode(const std::string& scope) {
  if (scope == "global") return settings::kScopeGlobal;
  if (scope == "module") return settings::kScopeModule;
  if (scope == "byref") return settings::kScopeByRef;
  if (scope == "byval") return settings::kScopeByVal;
  return settings::kScopeLocal;
}

int RunName(const GlobalOptions& globals, const NameArguments& arguments) {
  AddinSession session(globals);
  const fragments::Settings loaded = session.Load(false);
  std::cout << loaded.ComposeName(arguments.typed, arguments.type, ScopeCode(arguments.scope),
                                  arguments.constant)
            << '\n';
  return kDone;
}

int RunPath(const GlobalOptions& globals, const std::string& text) {
  AddinSession session(globals);
  const fragments::Settings loaded = session.Load(false);
  std::cout << loaded.folders.ResolvePath(text) << '\n';
  return kDone;
}

int RunFolders(const GlobalOptions& globals) {
  AddinSession session(globals);
  const fragments::Settings loaded = session.Load(false);
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (int i = 0; i < fragments::kPseudoRootCount; ++i) {
    const std::string root(fragments::PseudoRootNames()[static_cast<std::size_t>(i)]);
    if (globals.json)
      list.push_back({{"pseudoRoot", root}, {"folder", loaded.folders.CodeFolder(i)}});
    else
      std::cout << root << '\t' << loaded.folders.CodeFolder(i) << '\n';
  }
  if (globals.json) std::cout << Dump(list) << '\n';
  return kDone;
}

}  // namespace

Command AddSettingsCommand(CLI::App& app) {
  auto arguments = std::make_shared<SettingsArguments>();
  CLI::App* command = app.add_subcommand(
      "settings", "Lists every setting: key, section, file, type and value");
  command->add_flag("--interactive", arguments->interactive,
                    "Loads as the add-in does at connection: first-run questions included");
  CLI::App* set = command->add_subcommand("set", "Writes one setting to its INI file");
  set->add_option("key", arguments->key, "The setting's key, e.g. \"Prefix Module\"")->required();
  set->add_option("value", arguments->value, "The new value (\"\" for empty)")->required();
  return {command, [arguments, set](const GlobalOptions& globals) {
            return set->parsed() ? RunSettingsSet(globals, *arguments)
                                 : RunSettings(globals, *arguments);
          }};
}

Command AddNameCommand(CLI::App& app) {
  auto arguments = std::make_shared<NameArguments>();
  CLI::App* command =
      app.add_subcommand("name", "Prints the name the naming rules compose for a declaration");
  command->add_option("typed", arguments->typed, "The name as the user types it")->required();
  command->add_option("--type", arguments->type, "The declared type, e.g. Long")->required();
  command->add_option("--scope", arguments->scope, "global, module, local, byref or byval")
      ->check(CLI::IsMember({"global", "module", "local", "byref", "byval"}));
  command->add_flag("--const", arguments->constant, "A constant");
  return {command, [arguments](const GlobalOptions& globals) {
            return RunName(globals, *arguments);
          }};
}

Command AddPathCommand(CLI::App& app) {
  auto text = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("path", "Prints a path resolved against the code folders");
  command->add_option("text", *text, "A path, e.g. \"<fragments>\\Headers\\x.bas\"")
      ->required();
  return {command, [text](const GlobalOptions& globals) { return RunPath(globals, *text); }};
}

Command AddFoldersCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("folders", "Prints the pseudo-roots and their folders");
  return {command, [](const GlobalOptions& globals) { return RunFolders(globals); }};
}

}  // namespace tavrin::cli
