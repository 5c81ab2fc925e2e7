// The Windows dialog host on small models: their fields become controls,
// the user's changes reach the model and the model's answers show at once,
// a refused OK keeps the dialog open on the field, Escape cancels, the
// place and remembered values come back next time, and tab pages show
// their own fields.
#include "win/windows_dialog_host.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include "platform/ui.h"
#include "tests/win/dialog_robot.h"
#include "tests/win/screenshot.h"
#include "win/registry_settings_store.h"

namespace tavrin::win {
namespace {

using builders::Field;
using builders::FieldKind;
using builders::MakeField;
using namespace test_support;

class SampleModel : public builders::DialogModel {
 public:
  SampleModel() {
    fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
    fields_.back().remember = true;
    fields_.push_back(MakeField("kind", FieldKind::kChoice, "&Kind:"));
    fields_.back().items = {"Sub", "Function"};
    fields_.back().selected = 0;
    fields_.push_back(MakeField("static", FieldKind::kCheck, "&Static"));
    fields_.push_back(MakeField("echo", FieldKind::kLabel));
  }
  std::string Title() const override { return "Sample Dialog"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override {
    changes.emplace_back(id);
    // A Function cannot be Static here; the label echoes the name.
    builders::FindField(fields_, "static")->enabled = fields_[1].selected == 0;
    builders::FindField(fields_, "echo")->text = "Name: " + fields_[0].text;
  }
  std::optional<builders::Refusal> Accept() override {
    ++accepts;
    if (fields_[0].text.empty()) return builders::Refusal{"Give a name.", "name"};
    return std::nullopt;
  }

  std::vector<std::string> changes;
  int accepts = 0;

 private:
  std::vector<Field> fields_;
};

bool CanShowWindows() {
  UniqueHwnd probe(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                     nullptr, nullptr));
  return static_cast<bool>(probe);
}

class WindowsDialogHostTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!CanShowWindows()) GTEST_SKIP() << "no display to show dialogs on";
    Forget();
  }
  void TearDown() override { Forget(); }
  void Forget() {
    for (const char* title : {"Sample Dialog", "Paged Dialog"})
      for (const char* key : {"name", "Left", "Top"})
        store_.DeleteSetting(platform::kAppTitle, DialogSettingsSection(title), key);
  }

  RegistrySettingsStore store_;
  WindowsDialogHost host_{nullptr, &store_};
  SampleModel model_;
  HWND dialog_ = nullptr;
};

TEST_F(WindowsDialogHostTest, ControlsFollowTheModelBothWays) {
  std::wstring echoed;
  bool static_enabled = true;
  DialogRobot robot({
      [&] { return (dialog_ = FindDialog(L"Sample Dialog")) != nullptr; },
      [&] {
        EXPECT_EQ(TextOf(ChildWithText(dialog_, L"&Static")), L"&Static");
        TypeInto(ControlOf(dialog_, L"&Name:"), L"Total");
        PickItem(ControlOf(dialog_, L"&Kind:"), 1);
        echoed = TextOf(ChildWithText(dialog_, L"Name: Total"));
        static_enabled = ::IsWindowEnabled(ChildWithText(dialog_, L"&Static"));
        ::SetWindowPos(dialog_, nullptr, 40, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        PressKey(VK_RETURN);
        return true;
      },
  });
  EXPECT_TRUE(host_.Show(model_));
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(echoed, L"Name: Total");
  EXPECT_FALSE(static_enabled);
  EXPECT_EQ(model_.changes, (std::vector<std::string>{"name", "kind"}));
  EXPECT_EQ(builders::FindField(model_.Fields(), "kind")->text, "Function");

  // The next showing comes back where this one was, with the name kept.
  SampleModel again;
  RECT place{};
  std::wstring name;
  DialogRobot second({[&] {
    const HWND dialog = FindDialog(L"Sample Dialog");
    if (!dialog) return false;
    ::GetWindowRect(dialog, &place);
    name = TextOf(ControlOf(dialog, L"&Name:"));
    PressKey(VK_ESCAPE);
    return true;
  }});
  EXPECT_FALSE(host_.Show(again));
  EXPECT_EQ(name, L"Total");
  EXPECT_EQ(place.left, 40);
  EXPECT_EQ(place.top, 30);
}

TEST_F(WindowsDialogHostTest, RefusedOkKeepsTheDialogOnTheFieldAndEscapeCancels) {
  std::wstring message;
  bool name_focused = false;
  DialogRobot robot({
      [&] {
        if (!(dialog_ = FindDialog(L"Sample Dialog"))) return false;
        ClickButton(ChildWithText(dialog_, L"OK"));
        return true;
      },
      [&] {
        const HWND box = FindDialog(L"Tavrin");
        if (!box) return false;
        EXPECT_EQ(::GetWindow(box, GW_OWNER), dialog_);
        message = TextOf(ChildWithText(box, L"Give a name."));
        PressKey(VK_RETURN);
        return true;
      },
      [&] {
        if (!FindDialog(L"Sample Dialog")) return false;
        name_focused = ::GetFocus() == ControlOf(dialog_, L"&Name:");
        PressKey(VK_ESCAPE);
        return true;
      },
  });
  EXPECT_FALSE(host_.Show(model_));
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_EQ(message, L"Give a name.");
  EXPECT_TRUE(name_focused);
  EXPECT_EQ(model_.accepts, 1);
  EXPECT_EQ(store_.GetSetting(platform::kAppTitle, DialogSettingsSection("Sample Dialog"), "name",
                              "none"),
            "none");
}

// Two tab pages, a file field on the first, a preview beside them.
class PagedModel : public builders::DialogModel {
 public:
  PagedModel() {
    fields_.push_back(MakeField("file", FieldKind::kFile, "&Template file:"));
    fields_.back().page = "General";
    fields_.push_back(MakeField("count", FieldKind::kNumber, "&Count:"));
    fields_.back().page = "General";
    fields_.push_back(MakeField("folder", FieldKind::kFolder, "&Folder:"));
    fields_.back().page = "Folders";
    fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
    fields_.back().text = "Sub Main()\nEnd Sub\n";
  }
  std::string Title() const override { return "Paged Dialog"; }
  std::string HelpTopic() const override { return "paged"; }
  std::vector<Field>& Fields() override { return fields_; }
  std::optional<builders::Refusal> Accept() override { return std::nullopt; }

 private:
  std::vector<Field> fields_;
};

TEST_F(WindowsDialogHostTest, TabPagesShowTheirOwnFields) {
  PagedModel model;
  bool folder_hidden = false, folder_shown = false, file_hidden = false;
  DialogRobot robot({[&] {
    const HWND dialog = FindDialog(L"Paged Dialog");
    if (!dialog) return false;
    const HWND folder = ControlOf(dialog, L"&Folder:");
    folder_hidden = !::IsWindowVisible(folder);
    EXPECT_NE(ChildWithText(dialog, L"&Help"), nullptr);
    SaveScreenshot(dialog, ScreenshotFolder(1) + L"sample-pages.png");
    const HWND tabs = ChildOfClass(dialog, WC_TABCONTROLW);
    ::SendMessageW(tabs, TCM_SETCURSEL, 1, 0);
    NMHDR change{tabs, static_cast<UINT_PTR>(::GetDlgCtrlID(tabs)), TCN_SELCHANGE};
    ::SendMessageW(dialog, WM_NOTIFY, change.idFrom, reinterpret_cast<LPARAM>(&change));
    folder_shown = ::IsWindowVisible(folder);
    file_hidden = !::IsWindowVisible(ControlOf(dialog, L"&Template file:"));
    PressKey(VK_ESCAPE);
    return true;
  }});
  EXPECT_FALSE(host_.Show(model));
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp());
  EXPECT_TRUE(folder_hidden);
  EXPECT_TRUE(folder_shown);
  EXPECT_TRUE(file_hidden);
}

}  // namespace
}  // namespace tavrin::win
