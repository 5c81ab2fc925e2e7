#include "win/windows_settings_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/fake_ui.h"

namespace tavrin::win {
namespace {

class RecordingShell : public platform::Shell {
 public:
  std::vector<std::string> opened;
  bool fails = false;
  std::string TempFolder() override { return "C:\\Temp\\"; }
  Status OpenDocument(std::string_view path) override {
    opened.emplace_back(path);
    if (fails) return Error{"No program is registered for INI files"};
    return {};
  }
};

TEST(WindowsSettingsDialogTest, NamesAndOpensTheSettingsFile) {
  testing::FakeUi ui;
  RecordingShell shell;
  WindowsSettingsDialog dialog(ui, shell, "C:\\Tools\\Tavrin\\");
  dialog.ShowModal();
  EXPECT_EQ(shell.opened, std::vector<std::string>{"C:\\Tools\\Tavrin\\tvrusr.ini"});
  ASSERT_EQ(ui.boxes_shown.size(), 1u);
  EXPECT_NE(ui.boxes_shown[0].text.find("C:\\Tools\\Tavrin\\tvrusr.ini"), std::string::npos);
  EXPECT_EQ(ui.boxes_shown[0].text.find("%1"), std::string::npos);
}

TEST(WindowsSettingsDialogTest, SaysWhenTheFileCannotBeOpened) {
  testing::FakeUi ui;
  RecordingShell shell;
  shell.fails = true;
  WindowsSettingsDialog(ui, shell, "C:\\Tavrin\\").ShowModal();
  ASSERT_EQ(ui.boxes_shown.size(), 2u);
  EXPECT_EQ(ui.boxes_shown[1].text, "No program is registered for INI files");
}

}  // namespace
}  // namespace tavrin::win
