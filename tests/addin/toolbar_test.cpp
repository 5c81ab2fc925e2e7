#include <gtest/gtest.h>

#include "tests/addin/connect_fixture.h"

namespace tavrin::addin {
namespace {

using ide::BarPosition;

class ToolbarTest : public ConnectTest {
 protected:
  void Save(std::string_view key, std::string_view value) {
    ASSERT_TRUE(settings_.SaveSetting(kSettingsApp, kSettingsSection, key, value));
  }
};

TEST_F(ToolbarTest, ReadsTheSavedPlaceWithDefaultsForWhatIsMissingOrUnusable) {
  struct Case {
    const char* pos;  // null: not saved
    const char* index;
    const char* left;
    const char* top;
    ToolbarPlace expected;
  };
  const Case cases[] = {
      {nullptr, nullptr, nullptr, nullptr, {BarPosition::kTop, 0, 0, 0}},
      {"0", "2", "5", "30", {BarPosition::kLeft, 2, 5, 30}},
      {"4", nullptr, "300", "200", {BarPosition::kFloating, 0, 300, 200}},
      {" 3 ", "1", nullptr, nullptr, {BarPosition::kBottom, 1, 0, 0}},
      {"abc", "x", "1.5", "", {BarPosition::kTop, 0, 0, 0}},
      {"7", "-1", "-20", "99999", {BarPosition::kTop, -1, -20, 99999}},
      {"-1", nullptr, nullptr, nullptr, {BarPosition::kTop, 0, 0, 0}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.pos ? each.pos : "(none)");
    files_ = {};
    if (each.pos) Save("ToolbarPos", each.pos);
    if (each.index) Save("ToolbarIndex", each.index);
    if (each.left) Save("ToolbarLeft", each.left);
    if (each.top) Save("ToolbarTop", each.top);
    EXPECT_EQ(ReadToolbarPlace(settings_, ""), each.expected);
  }
}

TEST_F(ToolbarTest, TheKeysTakeThePrefix) {
  Save("MyToolbarPos", "2");
  EXPECT_EQ(ReadToolbarPlace(settings_, "My").position, BarPosition::kRight);
  EXPECT_EQ(ReadToolbarPlace(settings_, "").position, BarPosition::kTop);
}

TEST_F(ToolbarTest, FirstStartDocksTheBarAtTheTopAndShowsIt) {
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  EXPECT_EQ(bar->Name(), "Tavrin");
  EXPECT_EQ(bar->Position(), BarPosition::kTop);
  EXPECT_EQ(bar->RowIndex(), 0);
  EXPECT_EQ(bar->Left(), 0);
  EXPECT_TRUE(bar->Visible());
}

TEST_F(ToolbarTest, EachKindOfPositionRestoresItsOwnValues) {
  struct Case {
    const char* pos;
    int row_index;
    int left;
    int top;
  };
  // Saved: row 3, left 40, top 50. What is not restored stays as the IDE
  // put it (0).
  const Case cases[] = {
      {"0", 3, 0, 50}, {"2", 3, 0, 50}, {"1", 3, 40, 0}, {"3", 3, 40, 0}, {"4", 0, 40, 50}};
  for (const Case& each : cases) {
    SCOPED_TRACE(each.pos);
    vbe_ = ide::memory::MemoryVbe::Create();
    Save("ToolbarPos", each.pos);
    Save("ToolbarIndex", "3");
    Save("ToolbarLeft", "40");
    Save("ToolbarTop", "50");
    const auto bar = CreateToolbar(*vbe_, settings_, "");
    EXPECT_EQ(static_cast<int>(bar->Position()), std::stoi(each.pos));
    EXPECT_EQ(bar->RowIndex(), each.row_index);
    EXPECT_EQ(bar->Left(), each.left);
    EXPECT_EQ(bar->Top(), each.top);
  }
}

TEST_F(ToolbarTest, SaveAndRemoveStoresThePlaceAndDeletesBothBars) {
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  bar->SetPosition(BarPosition::kRight);
  bar->SetRowIndex(1);
  bar->SetTop(77);
  vbe_->CommandBars()->Add(kCodeExplorerPopUpName, BarPosition::kPopup, false, true);
  SaveAndRemoveToolbar(*vbe_, settings_, "");
  EXPECT_EQ(BarsNamed("Tavrin"), 0);
  EXPECT_EQ(BarsNamed("CodeExplorerPopUp"), 0);
  EXPECT_EQ(ReadToolbarPlace(settings_, ""), (ToolbarPlace{BarPosition::kRight, 1, 0, 77}));
  SaveAndRemoveToolbar(*vbe_, settings_, "");  // nothing left to remove: no error
}

TEST_F(ToolbarTest, AddBarControlSetsPictureMaskStyleAndTooltip) {
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  const auto button =
      AddBarControl(*vbe_, *bar, 103, ide::ControlType::kButton, true, 103, nullptr, "", false, 0);
  EXPECT_EQ(button->Caption(), "&Add Variable...");
  EXPECT_EQ(button->TooltipText(), "&Add Variable...");
  EXPECT_TRUE(button->BeginGroup());
  EXPECT_EQ(button->GetPicture().name, "103");
  EXPECT_EQ(button->GetMask().name, "103m");
  EXPECT_EQ(button->Style(), ide::ButtonStyle::kIcon);

  const auto popup =
      AddBarControl(*vbe_, *bar, 122, ide::ControlType::kPopup, false, 0, nullptr, "", false, 0);
  const auto entry =
      AddBarControl(*vbe_, *bar, 101, ide::ControlType::kButton, false, 101, popup, "", false, 0);
  EXPECT_EQ(entry->Style(), ide::ButtonStyle::kIconAndCaption);
  EXPECT_EQ(entry->TooltipText(), "");
  EXPECT_EQ(popup->Controls()->Count(), 1);

  const auto forced =
      AddBarControl(*vbe_, *bar, 102, ide::ControlType::kButton, false, 102, nullptr, "", true, 0);
  EXPECT_EQ(forced->Style(), ide::ButtonStyle::kIconAndCaption);
  const auto plain =
      AddBarControl(*vbe_, *bar, 109, ide::ControlType::kButton, false, 0, nullptr, "", false, 0);
  EXPECT_EQ(plain->Style(), ide::ButtonStyle::kAutomatic);
}

TEST_F(ToolbarTest, WithoutAPicturePropertyTheFaceGoesThroughTheClipboard) {
  vbe_->SetCommandBarsHavePicture(false);
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  const auto button =
      AddBarControl(*vbe_, *bar, 101, ide::ControlType::kButton, false, 101, nullptr, "", false, 0);
  auto& memory_button = dynamic_cast<ide::memory::MemoryCommandBarControl&>(*button);
  EXPECT_EQ(memory_button.Face().name, "101");
  EXPECT_EQ(button->Style(), ide::ButtonStyle::kIcon);
}

TEST_F(ToolbarTest, AMissingBitmapLeavesTheControlWithoutAPicture) {
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  const auto button =
      AddBarControl(*vbe_, *bar, 109, ide::ControlType::kButton, false, 109, nullptr, "", false, 0);
  EXPECT_EQ(button->Caption(), "&Settings...");
  EXPECT_EQ(button->GetPicture().name, "");
  EXPECT_EQ(button->Style(), ide::ButtonStyle::kAutomatic);
}

TEST_F(ToolbarTest, AFaceIdCopiesTheFaceOfAnIdeControl) {
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  const auto copied =
      AddBarControl(*vbe_, *bar, 109, ide::ControlType::kButton, false, 0, nullptr, "", false, 19);
  EXPECT_EQ(copied->GetPicture().name, "face 19");
  EXPECT_EQ(copied->Style(), ide::ButtonStyle::kIcon);
  const auto unknown = AddBarControl(*vbe_, *bar, 109, ide::ControlType::kButton, false, 0,
                                     nullptr, "", false, 99999);
  EXPECT_EQ(unknown->GetPicture().name, "");
}

TEST_F(ToolbarTest, EnableAddinWithoutTheBarsChangesNothingAndRaisesNothing) {
  EnableAddin(*vbe_, false);
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  EnableAddin(*vbe_, false);
  EXPECT_FALSE(bar->Enabled());
  EnableAddin(*vbe_, true);
  EXPECT_TRUE(bar->Enabled());
}

}  // namespace
}  // namespace tavrin::addin
