// The settings dialog over an add-in folder of its own, seeded as at first
// use, shown by a scripted host.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "builders/scripted_dialog_host.h"
#include "builders/settings_dialog.h"
#include "fragments/addin_folder.h"
#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "tests/support/fake_ui.h"
#include "tests/support/temp_folder.h"

namespace tavrin::builders {

class SettingsDialogFixture : public ::testing::Test {
 protected:
  // The host's own settings dialog, counted when it serves.
  struct CountingDialog : settings::SettingsDialog {
    void ShowModal() override { ++shown; }
    int shown = 0;
  };

  void SetUp() override {
    ASSERT_TRUE(fragments::SeedAddinFolder(files_, folder_.path().string()).ok());
    Reloaded();
  }
  std::string Read(std::string_view name) {
    std::ifstream in(folder_.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  void Write(std::string_view name, std::string_view bytes) {
    std::ofstream(folder_.File(name), std::ios::binary)
        .write(bytes.data(), std::streamsize(bytes.size()));
  }
  void ReadOnly(std::string_view name, bool read_only) {
    namespace fs = std::filesystem;
    fs::permissions(folder_.File(name), read_only ? fs::perms::owner_read : fs::perms::owner_all);
  }
  // Runs one showing of the dialog with the script; true on OK.
  bool Run(DialogScript script) {
    SettingsDialogModel model(services_);
    model.on_applied = [this] { ++applied_; };
    host_.Answer(std::string(kSettingsDialogTitle), std::move(script));
    return host_.Show(model);
  }
  settings::ValueTable Reloaded() {
    settings::ValueTable values;
    settings::LoadValueTable(values, services_, false);
    return values;
  }

  testing::TempFolder folder_;
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
  testing::FakeUi ui_;
  CountingDialog fallback_;
  settings::SettingsServices services_{profiles_, files_, ui_, fallback_, folder_.path().string()};
  ScriptedDialogHost host_;
  int applied_ = 0;
};

}  // namespace tavrin::builders
