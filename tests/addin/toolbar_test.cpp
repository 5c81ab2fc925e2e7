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

TEST_F(ToolbarTest, AddBarControlGivesThePictureTheStyleAndTheTooltip) {
  using ide::ButtonStyle;
  const auto bar = CreateToolbar(*vbe_, settings_, "");
  const auto popup =
      AddBarControl(*vbe_, *bar, 122, ide::ControlType::kPopup, false, 0, nullptr, "", false, 0);
  const struct {
    const char* name;
    int caption_id, picture_id;
    bool in_popup, force_caption;
    int face_id;
    std::string picture;  // its name; the mask's adds "m"
    ButtonStyle style;
  } cases[] = {
      {"a picture on the bar", 103, 103, false, false, 0, "103", ButtonStyle::kIcon},
      {"a picture in a menu", 101, 101, true, false, 0, "101", ButtonStyle::kIconAndCaption},
      {"the caption forced", 102, 102, false, true, 0, "102", ButtonStyle::kIconAndCaption},
      {"no picture", 109, 0, false, false, 0, "", ButtonStyle::kAutomatic},
      {"a missing bitmap", 109, 109, false, false, 0, "", ButtonStyle::kAutomatic},
      {"the face of an IDE control", 109, 0, false, false, 19, "face 19", ButtonStyle::kIcon},
      {"an unknown face", 109, 0, false, false, 99999, "", ButtonStyle::kAutomatic},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto control =
        AddBarControl(*vbe_, *bar, c.caption_id, ide::ControlType::kButton, c.in_popup,
                      c.picture_id, c.in_popup ? popup : nullptr, "", c.force_caption, c.face_id);
    EXPECT_EQ(control->GetPicture().name, c.picture);
    if (c.face_id == 0 && !c.picture.empty()) {
      EXPECT_EQ(control->GetMask().name, c.picture + "m");
    }
    EXPECT_EQ(control->Style(), c.style);
    EXPECT_EQ(control->BeginGroup(), c.in_popup);
    EXPECT_EQ(control->TooltipText(), c.in_popup ? "" : control->Caption());
  }
  EXPECT_EQ(popup->Controls()->Count(), 1);
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
