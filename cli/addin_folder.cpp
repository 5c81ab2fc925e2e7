#include "cli/addin_folder.h"

#include <cstdlib>

namespace tavrin::cli {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

std::string AddinFolder(const GlobalOptions& globals) {
  if (!globals.addin_dir.empty()) return globals.addin_dir;
  if (std::string home = Environment("TAVRIN_HOME"); !home.empty()) return home;
#ifdef _WIN32
  if (std::string app_data = Environment("APPDATA"); !app_data.empty())
    return app_data + "\\Tavrin";
#else
  if (std::string config = Environment("XDG_CONFIG_HOME"); !config.empty())
    return config + "/tavrin";
  if (std::string home = Environment("HOME"); !home.empty()) return home + "/.config/tavrin";
#endif
  return {};
}

}  // namespace tavrin::cli
