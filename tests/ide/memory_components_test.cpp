// VBComponents.Add, Remove and Import, VBComponent.Export and Name, and the
// VBComponentsEvents they raise.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ide/events.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/ide_error.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

// Records every component event as "Added Module1", "Renamed Module1>Util".
class RecordingSink : public IVBComponentsEventsSink {
 public:
  void ItemAdded(std::shared_ptr<IComponent> c) override { log.push_back("Added " + c->Name()); }
  void ItemRemoved(std::shared_ptr<IComponent> c) override {
    log.push_back("Removed " + c->Name());
  }
  void ItemRenamed(std::shared_ptr<IComponent> c, std::string_view old_name) override {
    log.push_back("Renamed " + std::string(old_name) + ">" + c->Name());
  }
  std::vector<std::string> log;
};

class ComponentsTest : public ::testing::Test {
 protected:
  ComponentsTest() {
    vbe_->SetFileSystem(&files_);
    files_.AddSampleProject("/in");
    files_.AddFile("/in/Widget.ctl",
                   "VERSION 5.00\r\nBegin VB.UserControl Widget\r\nEnd\r\n"
                   "Attribute VB_Name = \"Widget\"\r\n");
    connection_ = vbe_->Events()->VBComponentsEvents(project_)->Advise(sink_);
  }

  std::shared_ptr<IComponents> Components() { return project_->VBComponents(); }

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::shared_ptr<MemoryProject> project_ = vbe_->AddProject("Project1");
  testing::MemoryFileSystem files_;
  std::shared_ptr<RecordingSink> sink_ = std::make_shared<RecordingSink>();
  EventConnection connection_;
};

TEST_F(ComponentsTest, AddNamesNewComponentsWithTheFirstFreeNumber) {
  project_->AddComponent(ComponentType::kStdModule, "Module2", "");
  sink_->log.clear();
  const struct {
    ComponentType type;
    const char* name;
  } cases[] = {
      {ComponentType::kStdModule, "Module1"},   {ComponentType::kStdModule, "Module3"},
      {ComponentType::kClassModule, "Class1"},  {ComponentType::kVBForm, "Form1"},
      {ComponentType::kVBForm, "Form2"},        {ComponentType::kUserControl, "UserControl1"},
      {ComponentType::kVBMDIForm, "MDIForm1"},  {ComponentType::kPropPage, "PropertyPage1"},
  };
  std::vector<std::string> expected_log;
  for (const auto& each : cases) {
    const auto component = Components()->Add(each.type);
    EXPECT_EQ(component->Name(), each.name);
    EXPECT_EQ(component->Type(), each.type);
    EXPECT_EQ(component->CodeModule()->CountOfLines(), 0);
    expected_log.push_back(std::string("Added ") + each.name);
  }
  EXPECT_EQ(sink_->log, expected_log);
  EXPECT_EQ(testing::IdeErrorNumber([&] { Components()->Add(ComponentType::kResFile); }), 5);
}

TEST_F(ComponentsTest, ImportTakesTheKindAndTheNameFromTheFile) {
  const struct {
    const char* path;
    ComponentType type;
    const char* name;
  } cases[] = {
      {"/in/basMain.bas", ComponentType::kStdModule, "basMain"},
      {"/in/clsStockItem.cls", ComponentType::kClassModule, "clsStockItem"},
      {"/in/frmMain.frm", ComponentType::kVBForm, "frmMain"},
      {"/in/Widget.ctl", ComponentType::kUserControl, "Widget"},
  };
  for (const auto& each : cases) {
    const auto component = Components()->Import(each.path);
    EXPECT_EQ(component->Name(), each.name) << each.path;
    EXPECT_EQ(component->Type(), each.type) << each.path;
    EXPECT_EQ(Components()->Item(each.name), component);
  }
  EXPECT_EQ(sink_->log, (std::vector<std::string>{"Added basMain", "Added clsStockItem",
                                                  "Added frmMain", "Added Widget"}));
}

TEST_F(ComponentsTest, ErrorsLeaveTheProjectAsItWas) {
  Components()->Import("/in/basMain.bas");
  Components()->Add(ComponentType::kStdModule);  // Module1
  sink_->log.clear();
  auto module = Components()->Item("Module1");
  const struct {
    const char* what;
    std::function<void()> action;
    int error;
  } cases[] = {
      {"import a missing file", [&] { Components()->Import("/in/none.bas"); }, 53},
      {"import a name taken", [&] { Components()->Import("/in/basMain.bas"); }, 32813},
      {"rename to a keyword", [&] { module->SetName("Dim"); }, 380},
      {"rename to a number first", [&] { module->SetName("1abc"); }, 380},
      {"rename with a blank", [&] { module->SetName("a b"); }, 380},
      {"rename to an empty name", [&] { module->SetName(""); }, 380},
      {"rename to a name taken", [&] { module->SetName("BASMAIN"); }, 32813},
  };
  for (const auto& each : cases) EXPECT_EQ(testing::IdeErrorNumber(each.action), each.error) << each.what;
  EXPECT_EQ(Components()->Count(), 2);
  EXPECT_EQ(module->Name(), "Module1");
  EXPECT_TRUE(sink_->log.empty());
}

TEST_F(ComponentsTest, ExportWritesTheBytesItWasLoadedFrom) {
  for (const char* name : {"basMain.bas", "clsStockItem.cls", "frmMain.frm", "Widget.ctl"}) {
    const std::string in = std::string("/in/") + name;
    Components()->Import(in)->Export(std::string("/out/") + name);
    EXPECT_EQ(files_.files().at(std::string("/out/") + name), files_.files().at(in)) << name;
  }
}

TEST_F(ComponentsTest, RenameRewritesTheFileAndRaisesItemRenamed) {
  auto form = Components()->Import("/in/Widget.ctl");
  form->SetName("Gadget");
  form->SetName("gadget");  // its own name in another case is no clash
  form->Export("/out/Gadget.ctl");
  EXPECT_EQ(files_.files().at("/out/Gadget.ctl"),
            "VERSION 5.00\r\nBegin VB.UserControl gadget\r\nEnd\r\n"
            "Attribute VB_Name = \"gadget\"\r\n");
  EXPECT_EQ(sink_->log, (std::vector<std::string>{"Added Widget", "Renamed Widget>Gadget",
                                                  "Renamed Gadget>gadget"}));
}

TEST_F(ComponentsTest, RemoveTakesTheComponentOutAndRaisesItemRemoved) {
  auto first = Components()->Add(ComponentType::kStdModule);
  Components()->Add(ComponentType::kClassModule);
  Components()->Remove(*first);
  EXPECT_EQ(Components()->Count(), 1);
  EXPECT_EQ(Components()->Item(1)->Name(), "Class1");
  EXPECT_EQ(testing::IdeErrorNumber([&] { Components()->Remove(*first); }), 5);
  EXPECT_EQ(Components()->Add(ComponentType::kStdModule)->Name(), "Module1");
  EXPECT_EQ(sink_->log, (std::vector<std::string>{"Added Module1", "Added Class1",
                                                  "Removed Module1", "Added Module1"}));
}

}  // namespace
}  // namespace tavrin::ide::memory
