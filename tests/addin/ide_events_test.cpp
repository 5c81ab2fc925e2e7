#include <gtest/gtest.h>

#include <functional>

#include "tests/addin/connect_fixture.h"

namespace tavrin::addin {
namespace {

using Strings = std::vector<std::string>;

// A control of a form, named by its class name for the recordings.
class NamedControl : public ide::IControl {
 public:
  explicit NamedControl(std::string name) : name_(std::move(name)) {}
  std::string ClassName() override { return name_; }
  std::string ProgId() override { return "VB." + name_; }
  std::shared_ptr<ide::ICollection<ide::IProperty>> Properties() override { return nullptr; }

 private:
  std::string name_;
};

class IdeEventsTest : public ConnectTest {
 public:
  void SetUp() override {
    project_ = OpenProject();
    ConnectAddin();
    ASSERT_NE(explorer_, nullptr);
    ASSERT_NE(tab_order_, nullptr);
  }
  ide::memory::MemoryEvents& Events() { return *vbe_->MemoryEventHub(); }
  std::shared_ptr<ide::IComponent> Module() { return project_->Components().front(); }

  std::shared_ptr<ide::memory::MemoryProject> project_;
  std::shared_ptr<ide::IControl> button_ = std::make_shared<NamedControl>("cmdOk");
};

TEST_F(IdeEventsTest, EachEventIsForwardedOnlyUnderItsCondition) {
  struct Case {
    const char* event;
    std::function<void(IdeEventsTest&)> raise;
    Strings to_explorer;   // when the explorer is ready
    Strings to_tab_order;  // when the tab order window is visible
  };
  const Case cases[] = {
      {"project added", [](auto& t) { t.vbe_->AddProject("Second"); }, {"VBProjectAdd Second"}, {}},
      {"project renamed",
       [](auto& t) { t.Events().RaiseProjectRenamed(t.project_, "OldName"); },
       {"VBProjectRemove OldName", "VBProjectAdd Project1"},
       {}},
      {"project removed",
       [](auto& t) { t.vbe_->RemoveProject(t.project_); },
       {"VBProjectRemove Project1"},
       {"RefreshList 0"}},
      {"component added",
       [](auto& t) { t.project_->AddComponent(ide::ComponentType::kClassModule, "Class1", ""); },
       {"VBComponentAdd Class1"},
       {}},
      {"component removed",
       [](auto& t) { t.Events().RaiseComponentRemoved(t.Module()); },
       {"VBComponentRemove Project1 Module1"},
       {}},
      {"component renamed",
       [](auto& t) { t.Events().RaiseComponentRenamed(t.Module(), "basOld"); },
       {"VBComponentRemove Project1 basOld", "VBComponentAdd Module1"},
       {}},
      {"component activated",
       [](auto& t) { t.Events().RaiseComponentActivated(t.Module()); },
       {},
       {"RefreshList 0"}},
      {"component selected", [](auto& t) { t.Events().RaiseComponentSelected(t.Module()); }, {}, {}},
      {"control added",
       [](auto& t) { t.Events().RaiseControlAdded(nullptr, t.button_); },
       {},
       {"ControlAdded cmdOk"}},
      {"control renamed",
       [](auto& t) { t.Events().RaiseControlRenamed(nullptr, t.button_, "Command1", 2); },
       {},
       {"ControlRenamed cmdOk Command1 2"}},
      {"control removed",
       [](auto& t) { t.Events().RaiseControlRemoved(nullptr, t.button_); },
       {},
       {"ControlRemoved cmdOk"}},
  };
  for (const Case& each : cases) {
    for (const bool ready : {false, true}) {
      for (const bool visible : {false, true}) {
        SCOPED_TRACE(std::string(each.event) + (ready ? ", explorer ready" : "") +
                     (visible ? ", tab order visible" : ""));
        Reset();
        SetUp();
        explorer_->initialized = ready;
        explorer_->calls.clear();
        connect_.Window(kTabOrderWindow).window->SetVisible(visible);
        each.raise(*this);
        EXPECT_EQ(explorer_->calls, ready ? each.to_explorer : Strings{});
        EXPECT_EQ(tab_order_->calls, visible ? each.to_tab_order : Strings{});
      }
    }
  }
  EXPECT_TRUE(ErrorsShown().empty());
}

TEST_F(IdeEventsTest, AFailingNotificationIsReportedAndLaterEventsStillArrive) {
  explorer_->fail = true;
  ASSERT_NO_THROW(Events().RaiseComponentRemoved(Module()));
  ASSERT_EQ(ErrorsShown().size(), 1u);
  EXPECT_TRUE(ErrorsShown()[0].starts_with("Error in CmpHandler_ItemRemoved: error 91")) << ErrorsShown()[0];
  explorer_->calls.clear();
  Events().RaiseComponentAdded(Module());
  EXPECT_EQ(explorer_->calls, Strings{"VBComponentAdd Module1"});
}

TEST_F(IdeEventsTest, NoEventArrivesAfterDisconnection) {
  Disconnect();
  auto explorer = explorer_;
  explorer->calls.clear();
  vbe_->AddProject("Later");
  EXPECT_TRUE(explorer->calls.empty());
}

}  // namespace
}  // namespace tavrin::addin
