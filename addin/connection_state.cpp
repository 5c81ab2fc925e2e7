#include "addin/connection_state.h"

namespace tavrin::addin {
namespace {

// Joins a folder and a name with the folder's own separator.
std::string JoinFolder(std::string_view folder, std::string_view name) {
  std::string joined(folder);
  const char separator = joined.find('\\') != std::string::npos ? '\\' : '/';
  if (!joined.empty() && joined.back() != '\\' && joined.back() != '/') joined += separator;
  return joined + std::string(name);
}

}  // namespace

ConnectionState::ConnectionState(const HostServices& services, std::shared_ptr<ide::IVbe> vbe,
                                 std::shared_ptr<ide::IAddIn> add_in)
    : services_(services),
      vbe_(std::move(vbe)),
      add_in_(std::move(add_in)),
      context_{*vbe_, services_.ui, services_.ide_options} {}

// STAND-IN until the settings and code folders are merged: the code root is
// the default "vbcode" folder beside the add-in, and nothing is loaded.
void ConnectionState::InitCodeFolders() {}
void ConnectionState::CompleteCodeFolders() {}
std::string ConnectionState::CodeRoot() const {
  return JoinFolder(JoinFolder(services_.addin_folder, "vbcode"), "");
}
void ConnectionState::LoadSettings() {}
bool ConnectionState::CodeExplorerVisible() const { return true; }
// END STAND-IN

bool ConnectionState::ReadTestingFlag() {
  testing = services_.files.FileExists(CodeRoot() + std::string(kTestingFile));
  return testing;
}

}  // namespace tavrin::addin
