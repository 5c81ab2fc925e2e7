// The fragment commands over an add-in folder of their own on disk: its
// settings in the context, a module open, and a scripted dialog host.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "builders/scripted_dialog_host.h"
#include "fragments/settings.h"
#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/support/temp_folder.h"

namespace tavrin::addin {

class FragmentFixture : public CodePaneTest {
 protected:
  struct NoDialog : settings::SettingsDialog {
    void ShowModal() override {}
  };

  void Write(const std::filesystem::path& relative, std::string_view bytes) {
    const std::filesystem::path path = folder_.path() / relative;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
  }
  std::string Read(const std::filesystem::path& relative) {
    std::ifstream in(folder_.path() / relative, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // Loads the folder's settings into the context and opens `code`. A
  // tvrusr.ini is written when missing: not a first run, nothing seeded.
  void Load(const Lines& code, int line, int column) {
    if (!std::filesystem::exists(folder_.path() / "tvrusr.ini")) Write("tvrusr.ini", "");
    settings_ = fragments::LoadSettings(services_, false);
    context_.settings = &settings_;
    context_.files = &files_;
    context_.profiles = &profiles_;
    context_.dialogs = &host_;
    Open(code, line, column);
  }

  testing::TempFolder folder_;
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
  NoDialog dialog_;
  settings::SettingsServices services_{profiles_, files_, ui_, dialog_, folder_.path().string()};
  fragments::Settings settings_;
  builders::ScriptedDialogHost host_;
};

}  // namespace tavrin::addin
