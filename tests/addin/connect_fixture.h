// The add-in connected to the in-memory IDE, with tool-window documents
// that record what they are told.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "addin/connect.h"
#include "addin/toolbar.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_command_bars.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/file_settings_store.h"
#include "platform/ide_options.h"
#include "platform/portable_profile_file.h"
#include "settings/settings_load.h"
#include "tests/support/fake_shell.h"
#include "tests/support/fake_ui.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {

class RecordingExplorer : public ICodeExplorerDocument {
 public:
  std::vector<std::string> calls;
  bool initialized = false;
  bool once_opened = false;
  bool fail = false;  // the next notification raises an error

  void Initialize(bool) override {
    initialized = true;
    calls.push_back("Initialize");
  }
  bool Initialized() override { return initialized; }
  bool OnceOpened() override { return once_opened; }
  void VBProjectAdd(std::shared_ptr<ide::IProject> project) override {
    calls.push_back("VBProjectAdd " + project->Name());
  }
  void VBProjectRemove(std::string_view name) override {
    calls.push_back("VBProjectRemove " + std::string(name));
  }
  void VBComponentAdd(std::shared_ptr<ide::IComponent> component) override {
    calls.push_back("VBComponentAdd " + component->Name());
  }
  void VBComponentRemove(std::string_view project, std::string_view component) override {
    if (std::exchange(fail, false)) throw ide::Error(91, "Object variable not set");
    calls.push_back("VBComponentRemove " + std::string(project) + " " + std::string(component));
  }
};

class RecordingTabOrder : public ITabOrderDocument {
 public:
  std::vector<std::string> calls;

  void RefreshList(int flag) override { calls.push_back("RefreshList " + std::to_string(flag)); }
  void ControlAdded(std::shared_ptr<ide::IControl> control) override {
    calls.push_back("ControlAdded " + control->ClassName());
  }
  void ControlRenamed(std::shared_ptr<ide::IControl> control, std::string_view old_name,
                      int old_index) override {
    calls.push_back("ControlRenamed " + control->ClassName() + " " + std::string(old_name) + " " +
                    std::to_string(old_index));
  }
  void ControlRemoved(std::shared_ptr<ide::IControl> control) override {
    calls.push_back("ControlRemoved " + control->ClassName());
  }
};

class CountingSettingsDialog : public settings::SettingsDialog {
 public:
  int shown = 0;
  void ShowModal() override { ++shown; }
};

class ConnectTest : public ::testing::Test {
 public:  // reached from the lambdas of case tables
  ConnectTest() {
    RegisterDocuments();
    // A developer is known: connecting asks no first-run questions.
    files_.AddFile("/addin/tvrusr.ini", "[Developer]\r\nDeveloper=Tester\r\n");
  }

  // Disconnects and starts over with a new IDE.
  void Reset() {
    Disconnect();
    vbe_ = ide::memory::MemoryVbe::Create();
    add_in_ = vbe_->RegisterAddIn("Tavrin.Connect", "Tavrin", true);
    RegisterDocuments();
  }

  void RegisterDocuments() {
    for (auto& [prog_id, factory] : ToolWindowDocumentClasses())
      vbe_->RegisterDocumentClass(prog_id, factory);
    vbe_->RegisterDocumentClass(ProgIdOf(kCodeExplorerWindow), [this] {
      explorer_ = std::make_shared<RecordingExplorer>();
      return explorer_;
    });
    vbe_->RegisterDocumentClass(ProgIdOf(kTabOrderWindow), [this] {
      tab_order_ = std::make_shared<RecordingTabOrder>();
      return tab_order_;
    });
  }

  void ConnectAddin(int mode = 1) { connect_.AddinInstance_OnConnection(vbe_, mode, add_in_); }
  void Disconnect() { connect_.AddinInstance_OnDisconnection(1); }

  std::shared_ptr<ide::memory::MemoryProject> OpenProject(std::string_view file_name = {}) {
    auto project = vbe_->AddProject("Project1", file_name);
    auto component = project->AddComponent(ide::ComponentType::kStdModule, "Module1",
                                            "Public Sub Main()\r\n    \r\nEnd Sub");
    component->CodeModule()->CodePane()->Show();
    component->CodeModule()->CodePane()->SetSelection({2, 5, 2, 5});
    return project;
  }

  int BarsNamed(std::string_view name) {
    int count = 0;
    for (const auto& bar : vbe_->MemoryBars()->Bars()) count += bar->Name() == name ? 1 : 0;
    return count;
  }
  std::shared_ptr<ide::ICommandBar> Toolbar() { return FindBar(*vbe_, kToolbarName); }
  std::shared_ptr<ide::ICommandBar> CodeWindowBar() { return FindBar(*vbe_, kCodeWindowBarName); }
  std::string Setting(std::string_view key) {
    return settings_.GetSetting(kSettingsApp, kSettingsSection, key, "(missing)");
  }
  // Errors the add-in reported to the user.
  std::vector<std::string> ErrorsShown() const {
    std::vector<std::string> errors;
    for (const auto& box : ui_.boxes_shown)
      if (box.text.starts_with("Error in ")) errors.push_back(box.text);
    return errors;
  }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::IAddIn> add_in_ = vbe_->RegisterAddIn("Tavrin.Connect", "Tavrin", true);
  testing::FakeUi ui_;
  platform::FixedIdeOptions options_;
  testing::MemoryFileSystem files_;
  platform::FileSettingsStore settings_{files_, "/home/user/tavrin-settings.ini"};
  testing::FakeShell shell_;
  platform::PortableProfileFile profiles_{files_};
  CountingSettingsDialog settings_dialog_;
  Connect connect_{
      HostServices{ui_, options_, settings_, files_, shell_, profiles_, settings_dialog_, "/addin"}};
  std::shared_ptr<RecordingExplorer> explorer_;
  std::shared_ptr<RecordingTabOrder> tab_order_;
};

}  // namespace tavrin::addin
