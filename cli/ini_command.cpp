// ini dump|get|set|remove|delete-section: the INI file model on one file.
#include <iostream>
#include <memory>

#include <nlohmann/json.hpp>

#include "base/text.h"
#include "cli/addin_session.h"
#include "cli/command.h"
#include "cli/usage_error.h"
#include "settings/ini_file.h"

namespace tavrin::cli {
namespace {

struct IniArguments {
  std::string file;
  std::string section;
  std::string key;
  std::string value;
};

// The file named as the model names it: bare names in the add-in's folder.
// Unlike the settings commands this never creates the add-in's folder.
class IniSession {
 public:
  IniSession(const GlobalOptions& globals, const std::string& file)
      : ini_(profiles_, files_, AddinFolder(globals)) {
    ini_.SetName(file);
    if (ini_.Name().empty()) throw UsageError("the folder of '" + file + "' does not exist");
    if (files_.FolderExists(ini_.Name()))
      throw UsageError("'" + ini_.Name() + "' is a folder, not an INI file");
  }
  settings::C4_IniFile& Ini() { return ini_; }

  // Saves one section; a refusal is bad input (status 2), nothing written.
  void Save(std::string_view section) {
    try {
      ini_.Item(section)->Save();
    } catch (const settings::IniSaveError& error) {
      throw UsageError(std::string(error.what()) + ": " + error.reason());
    }
  }

 private:
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
  settings::C4_IniFile ini_;
};

int RunDump(const GlobalOptions& globals, const IniArguments& arguments) {
  IniSession session(globals, arguments.file);
  const settings::C4_IniFile& ini = session.Ini();
  nlohmann::ordered_json sections = nlohmann::ordered_json::array();
  for (const auto& section : ini.Sections().Elements()) {
    nlohmann::ordered_json items = nlohmann::ordered_json::array();
    if (!globals.json) std::cout << "[" << section->Name() << "]\n";
    if (section->Items()) {
      for (const auto& item : *section->Items()) {
        items.push_back({{"key", item->Key()}, {"value", item->Value()}});
        if (!globals.json) std::cout << item->Key() << "=" << item->Value() << '\n';
      }
    }
    sections.push_back({{"name", section->Name()}, {"items", items}});
  }
  if (globals.json) {
    const nlohmann::ordered_json dump = {{"name", ini.Name()}, {"sections", sections}};
    std::cout << dump.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
  }
  return kDone;
}

int RunGet(const GlobalOptions& globals, const IniArguments& arguments) {
  IniSession session(globals, arguments.file);
  if (!session.Ini().ValueExists(arguments.section, arguments.key)) return kProblemsFound;
  std::cout << session.Ini().Value(arguments.section, arguments.key) << '\n';
  return kDone;
}

int RunSet(const GlobalOptions& globals, const IniArguments& arguments) {
  IniSession session(globals, arguments.file);
  session.Ini().SetValue(arguments.section, arguments.key, arguments.value);
  session.Save(arguments.section);
  return kDone;
}

int RunRemove(const GlobalOptions& globals, const IniArguments& arguments) {
  IniSession session(globals, arguments.file);
  if (!session.Ini().ValueExists(arguments.section, arguments.key)) return kProblemsFound;
  session.Ini().RemoveValue(arguments.section, arguments.key);
  session.Save(arguments.section);
  return kDone;
}

int RunDeleteSection(const GlobalOptions& globals, const IniArguments& arguments) {
  IniSession session(globals, arguments.file);
  if (!session.Ini().SectionExists(arguments.section)) return kProblemsFound;
  session.Ini().DeleteSection(arguments.section);
  session.Save(arguments.section);
  return kDone;
}

}  // namespace

Command AddIniCommand(CLI::App& app) {
  auto arguments = std::make_shared<IniArguments>();
  CLI::App* command = app.add_subcommand("ini", "Reads and writes an INI file through the model");
  command->require_subcommand(1);
  const auto add = [&](const char* name, const char* description, int fields) {
    CLI::App* sub = command->add_subcommand(name, description);
    sub->add_option("file", arguments->file, "The INI file; a bare name is in the add-in folder")
        ->required();
    if (fields >= 1) sub->add_option("section", arguments->section, "The section")->required();
    if (fields >= 2) sub->add_option("key", arguments->key, "The key")->required();
    if (fields >= 3) sub->add_option("value", arguments->value, "The value")->required();
    return sub;
  };
  CLI::App* dump = add("dump", "Prints every section and item", 0);
  CLI::App* get = add("get", "Prints one value (status 1 when the key is missing)", 2);
  CLI::App* set = add("set", "Sets one value and saves its section", 3);
  CLI::App* remove = add("remove", "Removes one key and saves its section", 2);
  CLI::App* delete_section =
      add("delete-section", "Empties a section (its header stays) and saves it", 1);
  return {command, [=](const GlobalOptions& globals) {
            if (dump->parsed()) return RunDump(globals, *arguments);
            if (get->parsed()) return RunGet(globals, *arguments);
            if (set->parsed()) return RunSet(globals, *arguments);
            if (remove->parsed()) return RunRemove(globals, *arguments);
            if (delete_section->parsed()) return RunDeleteSection(globals, *arguments);
            throw UsageError("ini needs dump, get, set, remove or delete-section");
          }};
}

}  // namespace tavrin::cli
