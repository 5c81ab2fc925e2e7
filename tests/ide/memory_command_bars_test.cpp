#include <gtest/gtest.h>

#include "ide/command_bars.h"
#include "ide/events.h"
#include "ide/memory/memory_addins.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/ide_error.h"

namespace tavrin::ide::memory {
namespace {

using testing::IdeErrorNumber;

class CountingSink : public ICommandBarEventsSink {
 public:
  int clicks = 0;
  void Click(std::shared_ptr<ICommandBarControl>, bool& handled, bool&) override {
    ++clicks;
    handled = true;
  }
};

class MemoryCommandBarsTest : public ::testing::Test {
 protected:
  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::shared_ptr<ICommandBars> bars_ = vbe_->CommandBars();
};

TEST_F(MemoryCommandBarsTest, BarsAreFoundByNameAndMissingOnesRaise) {
  EXPECT_EQ(bars_->Item("code window")->Name(), "Code Window");
  EXPECT_EQ(bars_->Item("Code Window")->Position(), BarPosition::kPopup);
  EXPECT_NE(IdeErrorNumber([&] { bars_->Item("Tavrin"); }), 0);
  const auto bar = bars_->Add("Tavrin", BarPosition::kTop, false, true);
  EXPECT_EQ(bars_->Item("Tavrin"), bar);
  EXPECT_EQ(IdeErrorNumber([&] { bars_->Add("TAVRIN", BarPosition::kTop, false, true); }), 5);
  EXPECT_EQ(bars_->Add("", BarPosition::kTop, false, true)->Name(), "Custom 1");
}

TEST_F(MemoryCommandBarsTest, MembersAControlLacksRaise438) {
  const auto bar = bars_->Add("Tavrin", BarPosition::kTop, false, true);
  const auto button = bar->Controls()->Add(ControlType::kButton);
  const auto popup = bar->Controls()->Add(ControlType::kPopup);
  EXPECT_EQ(IdeErrorNumber([&] { button->Controls(); }), kErrorNoSuchMember);
  EXPECT_EQ(IdeErrorNumber([&] { popup->Style(); }), kErrorNoSuchMember);
  EXPECT_EQ(IdeErrorNumber([&] { popup->GetPicture(); }), kErrorNoSuchMember);
  vbe_->SetCommandBarsHavePicture(false);
  EXPECT_EQ(IdeErrorNumber([&] { button->GetPicture(); }), kErrorNoSuchMember);
  EXPECT_EQ(IdeErrorNumber([&] { button->PasteFace(); }), 5);  // nothing on the clipboard
  vbe_->ClipboardSetData({"x", "bytes"});
  button->PasteFace();
  EXPECT_EQ(IdeErrorNumber([&] { bar->Controls()->Add(ControlType::kEdit, 1, {}, 9); }), 5);
}

TEST_F(MemoryCommandBarsTest, ControlsKeepTheirOrderAndFindControlSearchesPopups) {
  const auto bar = bars_->Add("Tavrin", BarPosition::kTop, false, true);
  const auto first = bar->Controls()->Add(ControlType::kButton);
  const auto popup = bar->Controls()->Add(ControlType::kPopup);
  const auto inner = popup->Controls()->Add(ControlType::kButton);
  inner->SetTag("inner");
  const auto before = bar->Controls()->Add(ControlType::kButton, 1, {}, 1);
  EXPECT_EQ(before->Index(), 1);
  EXPECT_EQ(first->Index(), 2);
  EXPECT_EQ(inner->Parent(), popup->CommandBar());
  EXPECT_EQ(bar->FindControl(std::nullopt, std::nullopt, "inner"), nullptr);
  EXPECT_EQ(bar->FindControl(std::nullopt, std::nullopt, "inner", true), inner);
  EXPECT_EQ(bars_->FindControl(std::nullopt, std::nullopt, "inner"), inner);
  EXPECT_EQ(bars_->FindControl(ControlType::kButton, 22)->Caption(), "&Paste");
  first->Delete();
  EXPECT_EQ(bar->Controls()->Count(), 2);
  EXPECT_EQ(IdeErrorNumber([&] { bars_->Item("Standard")->Delete(); }), 5);
  bar->Delete();
  EXPECT_NE(IdeErrorNumber([&] { bars_->Item("Tavrin"); }), 0);
}

TEST_F(MemoryCommandBarsTest, ClicksReachTheConnectedSinksWhileConnected) {
  const auto bar = bars_->Add("Tavrin", BarPosition::kTop, false, true);
  const auto button = bar->Controls()->Add(ControlType::kButton);
  const auto other = bar->Controls()->Add(ControlType::kButton);
  auto sink = std::make_shared<CountingSink>();
  {
    EventConnection connection = vbe_->Events()->CommandBarEvents(button)->Advise(sink);
    button->Execute();
    other->Execute();
    button->SetEnabled(false);
    button->Execute();
    button->SetEnabled(true);
    button->Execute();
    EXPECT_EQ(vbe_->MemoryEventHub()->ConnectionCount(), 1);
  }
  button->Execute();
  EXPECT_EQ(sink->clicks, 2);
  EXPECT_EQ(vbe_->MemoryEventHub()->ConnectionCount(), 0);
}

TEST_F(MemoryCommandBarsTest, ToolWindowsLiveWhileTheirCreatorHoldsThem) {
  vbe_->RegisterDocumentClass("Lib.Doc", [] { return std::make_shared<IUserDocument>(); });
  const std::shared_ptr<IAddIn> add_in = vbe_->RegisterAddIn("Lib.Connect", "Lib", true);
  std::shared_ptr<IUserDocument> document;
  auto window = vbe_->Windows()->CreateToolWindow(add_in, "Lib.Doc", "Doc", "DocPlace", document);
  EXPECT_NE(document, nullptr);
  EXPECT_EQ(window->Type(), WindowType::kToolWindow);
  EXPECT_FALSE(window->Visible());
  EXPECT_EQ(vbe_->Windows()->Item("Doc"), window);
  EXPECT_EQ(IdeErrorNumber([&] {
              vbe_->Windows()->CreateToolWindow(add_in, "Lib.Missing", "M", "M", document);
            }),
            429);
  window.reset();
  EXPECT_TRUE(vbe_->ToolWindows().empty());
  EXPECT_EQ(vbe_->Addins()->Item("lib.connect"), add_in);
  EXPECT_EQ(IdeErrorNumber([&] { vbe_->Addins()->Item("TabOrder.Connect"); }), 9);
}

}  // namespace
}  // namespace tavrin::ide::memory
