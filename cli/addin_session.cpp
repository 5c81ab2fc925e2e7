#include "cli/addin_session.h"

#include <cstdlib>
#include <iostream>

#include "cli/usage_error.h"
#include "resources/string_table.h"

namespace tavrin::cli {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

std::string AddinFolder(const GlobalOptions& globals) {
  if (!globals.addin_dir.empty()) {
    platform::StdFileSystem files;
    if (!files.FolderExists(globals.addin_dir))
      throw UsageError("the add-in folder '" + globals.addin_dir + "' does not exist");
    return globals.addin_dir;
  }
  if (std::string home = Environment("TAVRIN_HOME"); !home.empty()) return home;
#ifdef _WIN32
  if (std::string app_data = Environment("APPDATA"); !app_data.empty())
    return app_data + "\\Tavrin";
#else
  if (std::string config = Environment("XDG_CONFIG_HOME"); !config.empty())
    return config + "/tavrin";
  if (std::string home = Environment("HOME"); !home.empty()) return home + "/.config/tavrin";
#endif
  throw UsageError("no add-in folder: give --addin-dir or set TAVRIN_HOME");
}

void ToolSettingsDialog::ShowModal() {
  ui_.MessageBox(resources::LoadResString(2416), platform::Buttons::kOk,
                 platform::Icon::kInformation, platform::kAppTitle);
}

AddinSession::AddinSession(const GlobalOptions& globals)
    : ui_(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr),
      services_{profiles_, files_, ui_, dialog_, AddinFolder(globals)} {}

fragments::Settings AddinSession::Load(bool interactive) {
  return fragments::LoadSettings(services_, interactive);
}

}  // namespace tavrin::cli
