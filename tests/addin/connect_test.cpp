#include <gtest/gtest.h>

#include <algorithm>

#include "resources/string_table.h"
#include "tests/addin/connect_fixture.h"

namespace tavrin::addin {
namespace {

std::string Caption(int id) { return std::string(resources::LoadResString(id)); }

// Captions of a bar's tree in screen order, nested entries indented.
void CollectCaptions(ide::ICommandBarControls& controls, const std::string& indent,
                     std::vector<std::string>& out) {
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    out.push_back(indent + control->Caption());
    if (control->Type() == ide::ControlType::kPopup)
      CollectCaptions(*control->Controls(), indent + "  ", out);
  }
}

std::vector<std::string> TableCaptions(CommandBarRoot bar, bool testing) {
  std::vector<std::string> out;
  for (const CommandRow& row : CommandTable()) {
    if (row.bar != bar || (row.testing_only && !testing)) continue;
    out.push_back(std::string(static_cast<std::size_t>(row.depth) * 2, ' ') +
                  Caption(row.caption_id));
  }
  return out;
}

TEST_F(ConnectTest, BuildsTheToolbarAndTheCodeWindowEntryFromTheTable) {
  OpenProject();
  ConnectAddin();
  std::vector<std::string> toolbar;
  CollectCaptions(*Toolbar()->Controls(), "", toolbar);
  EXPECT_EQ(toolbar, TableCaptions(CommandBarRoot::kToolbar, false));

  const auto insert = CodeWindowBar()->Controls()->Item(Caption(kTavrinInsertCaption));
  std::vector<std::string> code_window{insert->Caption()};
  CollectCaptions(*insert->Controls(), "  ", code_window);
  EXPECT_EQ(code_window, TableCaptions(CommandBarRoot::kCodeWindow, false));
  EXPECT_TRUE(ErrorsShown().empty());
  // Commands build with the loaded settings and read the code folders.
  EXPECT_NE(connect_.CommandContext().settings, nullptr);
  EXPECT_NE(connect_.CommandContext().files, nullptr);
}

TEST_F(ConnectTest, ControlsTakeGroupsPicturesStylesAndTooltipsFromTheTable) {
  OpenProject();
  ConnectAddin();
  for (const auto& bound : connect_.Controls()) {
    SCOPED_TRACE(bound.row->handler.empty() ? Caption(bound.row->caption_id) : bound.row->handler);
    auto& control = dynamic_cast<ide::memory::MemoryCommandBarControl&>(*bound.control);
    EXPECT_EQ(control.Type(), bound.row->type);
    EXPECT_EQ(control.BeginGroup(), bound.row->begin_group);
    const bool on_bar = bound.row->depth == 0;
    EXPECT_EQ(control.TooltipText(), on_bar ? control.Caption() : "");
    if (bound.row->picture) {
      EXPECT_EQ(control.Face().name, std::to_string(bound.row->caption_id));
      EXPECT_EQ(control.FaceMask().name, std::to_string(bound.row->caption_id) + "m");
      EXPECT_EQ(control.Style(),
                on_bar ? ide::ButtonStyle::kIcon : ide::ButtonStyle::kIconAndCaption);
    } else {
      EXPECT_TRUE(control.Face().name.empty());
    }
  }
}

TEST_F(ConnectTest, TheTestingFlagAddsTheControlBuilderToTheMenuOnly) {
  const auto control_entries = [&] {
    int count = 0;
    for (const auto& bound : connect_.Controls()) count += bound.row->caption_id == 183 ? 1 : 0;
    return count;
  };
  ConnectAddin();
  EXPECT_FALSE(connect_.State()->testing);
  EXPECT_EQ(control_entries(), 1);  // the toolbar button
  Disconnect();

  files_.AddFile("/addin/vbcode/testing.txt", "");
  ConnectAddin();
  EXPECT_TRUE(connect_.State()->testing);
  EXPECT_EQ(control_entries(), 2);
  std::vector<std::string> toolbar;
  CollectCaptions(*Toolbar()->Controls(), "", toolbar);
  EXPECT_EQ(toolbar, TableCaptions(CommandBarRoot::kToolbar, true));
}

TEST_F(ConnectTest, TheTestingFlagIsLookedForInTheCodeRootOfTheSettings) {
  files_.AddFile("/addin/tvrusr.ini",
                 "[Developer]\r\nDeveloper=Tester\r\n[File Locations]\r\nBase Folder=\\mycode\\\r\n");
  files_.AddFile("/addin/vbcode/testing.txt", "");
  ConnectAddin();
  EXPECT_FALSE(connect_.State()->testing);
  Disconnect();
  files_.AddFile("/addin/mycode/testing.txt", "");
  ConnectAddin();
  EXPECT_TRUE(connect_.State()->testing);
}

TEST_F(ConnectTest, TheFirstConnectionSeedsTheAddinFolderAndOpensTheSettingsDialog) {
  files_ = {};
  ConnectAddin();
  EXPECT_EQ(settings_dialog_.shown, 1);
  EXPECT_TRUE(files_.FileExists("/addin/tvrtp.ini"));
  EXPECT_TRUE(files_.FileExists("/addin/tvrusr.ini"));
  std::string code_root = connect_.State()->CodeRoot();
  std::replace(code_root.begin(), code_root.end(), '\\', '/');  // Windows joins with "\\"
  EXPECT_EQ(code_root, "/addin/vbcode/");
  EXPECT_EQ(BarsNamed("Tavrin"), 1);
}

TEST_F(ConnectTest, TenConnectionsLeaveOneToolbarWhileConnectedAndNothingAfter) {
  OpenProject();
  const int built_in_bars = vbe_->MemoryBars()->Count();
  const int code_window_entries = CodeWindowBar()->Controls()->Count();
  for (int i = 0; i < 10; ++i) {
    ConnectAddin();
    EXPECT_EQ(BarsNamed("Tavrin"), 1);
    EXPECT_EQ(CodeWindowBar()->Controls()->Count(), code_window_entries + 1);
    EXPECT_EQ(vbe_->ToolWindows().size(), 3u);
    Disconnect();
    EXPECT_EQ(vbe_->MemoryBars()->Count(), built_in_bars);
    EXPECT_EQ(CodeWindowBar()->Controls()->Count(), code_window_entries);
    EXPECT_EQ(vbe_->MemoryEventHub()->ConnectionCount(), 0);
    EXPECT_TRUE(vbe_->ToolWindows().empty());
    EXPECT_FALSE(connect_.WatcherLoaded());
  }
  EXPECT_TRUE(ErrorsShown().empty());
}

TEST_F(ConnectTest, ConnectingTwiceWithoutDisconnectingDoublesNothing) {
  ConnectAddin();
  const auto controls = connect_.Controls().size();
  ConnectAddin();
  EXPECT_EQ(BarsNamed("Tavrin"), 1);
  EXPECT_EQ(connect_.Controls().size(), controls);
  EXPECT_EQ(vbe_->ToolWindows().size(), 3u);
}

TEST_F(ConnectTest, ALeftOverToolbarIsReusedNotDuplicated) {
  ConnectAddin();
  const int controls = Toolbar()->Controls()->Count();
  Disconnect();
  // A bar and an entry left behind by a disconnection that never happened.
  auto left_over = vbe_->CommandBars()->Add("Tavrin", ide::BarPosition::kTop, false, true);
  left_over->Controls()->Add(ide::ControlType::kButton)->SetCaption("stale");
  CodeWindowBar()->Controls()->Add(ide::ControlType::kPopup)->SetCaption(
      Caption(kTavrinInsertCaption));
  const int code_window_entries = CodeWindowBar()->Controls()->Count();

  ConnectAddin();
  EXPECT_EQ(BarsNamed("Tavrin"), 1);
  EXPECT_EQ(Toolbar().get(), left_over.get());
  EXPECT_EQ(Toolbar()->Controls()->Count(), controls);
  EXPECT_EQ(CodeWindowBar()->Controls()->Count(), code_window_entries);
}

TEST_F(ConnectTest, NoProjectOpenDisablesTheBarAndTheCodeWindowEntryUntilOneIs) {
  ConnectAddin();
  const auto insert = CodeWindowBar()->Controls()->Item(Caption(kTavrinInsertCaption));
  connect_.TimerTick();
  EXPECT_FALSE(Toolbar()->Enabled());
  EXPECT_FALSE(insert->Enabled());
  EXPECT_EQ(connect_.State()->current_project_file, "");

  OpenProject("C:\\Work\\Inventory.vbp");
  connect_.TimerTick();
  EXPECT_TRUE(Toolbar()->Enabled());
  EXPECT_TRUE(insert->Enabled());
  EXPECT_EQ(connect_.State()->current_project_file, "C:\\Work\\Inventory.vbp");

  vbe_->RemoveProject(vbe_->ActiveVBProject());
  connect_.TimerTick();
  EXPECT_FALSE(Toolbar()->Enabled());
  EXPECT_EQ(connect_.State()->current_project_file, "");
}

TEST_F(ConnectTest, TheWatcherReinitialisesTheExplorerWhenTheActiveProjectChanges) {
  ConnectAddin();
  ASSERT_NE(explorer_, nullptr);
  explorer_->calls.clear();
  struct Step {
    const char* file_name;  // of the project opened before the tick; null: none
    const char* expected_current;
    bool reinitialised;
  };
  const Step steps[] = {
      {nullptr, "", false},
      {"", "NewProject", true},
      {nullptr, "NewProject", false},
  };
  for (const Step& step : steps) {
    if (step.file_name) OpenProject(step.file_name);
    explorer_->calls.clear();
    connect_.TimerTick();
    EXPECT_EQ(connect_.State()->current_project_file, step.expected_current);
    EXPECT_EQ(!explorer_->calls.empty(), step.reinitialised);
  }
  // Another project with a file: activating it changes the name.
  auto saved = vbe_->AddProject("Saved", "C:\\Work\\Saved.vbp");
  saved->AddComponent(ide::ComponentType::kStdModule, "M", "")->CodeModule()->CodePane()->Show();
  explorer_->calls.clear();
  connect_.TimerTick();
  EXPECT_EQ(connect_.State()->current_project_file, "C:\\Work\\Saved.vbp");
  EXPECT_EQ(explorer_->calls, std::vector<std::string>{"Initialize"});
  // The same name in other letters is the same project.
  connect_.State()->current_project_file = "c:\\work\\SAVED.VBP";
  explorer_->calls.clear();
  connect_.TimerTick();
  EXPECT_TRUE(explorer_->calls.empty());
}

TEST_F(ConnectTest, TheTickDoesNothingWhileNotConnected) {
  connect_.TimerTick();
  ConnectAddin();
  Disconnect();
  connect_.TimerTick();
  EXPECT_EQ(connect_.State(), nullptr);
  EXPECT_TRUE(ErrorsShown().empty());
}

TEST_F(ConnectTest, ConnectModeTwoRespectsTheSeparateTabOrderAddIn) {
  struct Case {
    const char* name;
    int mode;
    bool registered;
    bool connected;
    bool tab_order_window;
  };
  const Case cases[] = {
      {"external, tab order add-in connected", 2, true, true, false},
      {"external, tab order add-in not connected", 2, true, false, true},
      {"external, no tab order add-in", 2, false, false, true},
      {"from the add-in manager, tab order add-in connected", 0, true, true, true},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    Reset();
    if (each.registered) vbe_->RegisterAddIn("TabOrder.Connect", "Tab order", each.connected);
    connect_.AddinInstance_OnConnection(vbe_, each.mode, add_in_);
    int tab_order_windows = 0;
    for (const auto& [guid, window] : vbe_->ToolWindows())
      tab_order_windows += guid == kTabOrderWindow.guid_position ? 1 : 0;
    EXPECT_EQ(tab_order_windows, each.tab_order_window ? 1 : 0);
    EXPECT_EQ(vbe_->ToolWindows().size(), each.tab_order_window ? 3u : 2u);
    Disconnect();
  }
}

TEST_F(ConnectTest, ToolWindowsKeepTheirClassesCaptionsAndPlaces) {
  ConnectAddin();
  std::vector<std::pair<std::string, std::string>> windows;
  for (const auto& [guid, window] : vbe_->ToolWindows()) windows.emplace_back(guid, window->Caption());
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"_T_A_B__O_R_D_E_R_", "TabOrder"},
      {"DirectAccessTavrin", "Shortcuts and Search"},
      {"CodeExplorerTavrin", "Code Explorer"}};
  EXPECT_EQ(windows, expected);
  EXPECT_EQ(ProgIdOf(kCodeExplorerWindow), "Tavrin.docCodeExplorer");
  EXPECT_EQ(explorer_->calls, std::vector<std::string>{"Initialize"});
}

TEST_F(ConnectTest, AMissingToolWindowClassIsReportedAndTheRestStillConnects) {
  vbe_ = ide::memory::MemoryVbe::Create();  // no document classes registered
  ConnectAddin();
  EXPECT_EQ(ErrorsShown().size(), 3u);
  EXPECT_EQ(BarsNamed("Tavrin"), 1);
  int clickable = 0;
  for (const auto& bound : connect_.Controls()) clickable += bound.click.Connected() ? 1 : 0;
  EXPECT_GT(clickable, 100);
  EXPECT_EQ(vbe_->MemoryEventHub()->ConnectionCount(), clickable + 3);  // and the IDE events
}

TEST_F(ConnectTest, DisconnectionSavesTheToolbarPlace) {
  ConnectAddin();
  Toolbar()->SetPosition(ide::BarPosition::kFloating);
  Toolbar()->SetLeft(120);
  Toolbar()->SetTop(80);
  Toolbar()->SetRowIndex(2);
  Disconnect();
  EXPECT_EQ(Setting("ToolbarPos"), "4");
  EXPECT_EQ(Setting("ToolbarIndex"), "2");
  EXPECT_EQ(Setting("ToolbarLeft"), "120");
  EXPECT_EQ(Setting("ToolbarTop"), "80");

  ConnectAddin();
  EXPECT_EQ(Toolbar()->Position(), ide::BarPosition::kFloating);
  EXPECT_EQ(Toolbar()->Left(), 120);
  EXPECT_EQ(Toolbar()->Top(), 80);
  EXPECT_EQ(Toolbar()->RowIndex(), 0);  // not restored for a floating bar
}

TEST_F(ConnectTest, ConnectingWithoutAnIdeReportsAndBuildsNothing) {
  connect_.AddinInstance_OnConnection(nullptr, 1, add_in_);
  EXPECT_EQ(ErrorsShown().size(), 1u);
  EXPECT_EQ(BarsNamed("Tavrin"), 0);
  connect_.AddinInstance_OnStartupComplete();
  connect_.AddinInstance_OnAddInsUpdate();
  Disconnect();
  EXPECT_EQ(ErrorsShown().size(), 1u);
}

}  // namespace
}  // namespace tavrin::addin
