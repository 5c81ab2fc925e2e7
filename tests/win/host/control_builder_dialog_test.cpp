// "Add C&ontrol..." clicked in the test host with the testing marker in the
// code root: the database fields report that no provider opens the file
// (Wine ships none), then a typed list is laid out on the active form over
// COM (VBControls.Add, then each control's properties), saved as PNGs.
#include <filesystem>
#include <fstream>

#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

using ControlBuilderDialogTest = HostDialogsTest;

// "testing.txt" in the code root for the time of a test: it adds the
// control builder to the "&Tavrin" menu.
class TestingMarker {
 public:
  TestingMarker() : path_(win::WideToUtf8(ExeFolder()) + "vbcode") {
    std::filesystem::create_directories(path_);
    path_ /= "testing.txt";
    std::ofstream(path_) << "\n";
  }
  ~TestingMarker() { std::filesystem::remove(path_); }

 private:
  std::filesystem::path path_;
};

// The texts of the dialog's controls, to find a message in a note.
std::vector<std::wstring> ChildTexts(HWND dialog) {
  std::vector<std::wstring> texts;
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    texts.push_back(TextOf(child));
  return texts;
}

bool ShowsADatabaseMessage(HWND dialog) {
  for (const std::wstring& text : ChildTexts(dialog))
    for (const wchar_t* start : {L"ADO (ADODB.Connection) is not installed",
                                 L"The database could not be opened", L"The columns of Orders"})
      if (text.starts_with(start)) return true;
  return false;
}

TEST_F(ControlBuilderDialogTest, ReportsTheDatabaseThenLaysOutTheTypedList) {
  const TestingMarker marker;
  Connect("Option Explicit\r\n", 1, ide::ComponentType::kVBForm, "frmOrder");
  memory_->ActivateWindow(component_->DesignerWindow());
  // The menu entry, there because of the marker (the toolbar button always is).
  std::shared_ptr<ide::ICommandBarControl> entry;
  const auto bars = memory_->CommandBars();
  for (int i = 1; i <= bars->Count() && !entry; ++i)
    if (const auto menu = FindCaption(*bars->Item(i)->Controls(), "&Tavrin"))
      entry = FindCaption(*menu->Controls(), "Add C&ontrol...");
  ASSERT_NE(entry, nullptr);

  HWND dialog = nullptr;
  bool reported = false;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Add Controls", main_window_.get())) return false;
        Screenshot(dialog, L"add-controls");
        TypeInto(ControlOf(dialog, L"Data&base:"), L"C:\\nowhere\\orders.mdb");
        TypeInto(ControlOf(dialog, L"&Table:"), L"Orders");
        ClickButton(ChildWithText(dialog, L"&Read Columns"));
        return true;
      },
      [&] {
        if (!ShowsADatabaseMessage(dialog)) return false;
        reported = true;
        Screenshot(dialog, L"add-controls-database");
        TypeInto(ControlOf(dialog, L"&Controls:"),
                 L"CustomerName\r\nOrderDate\r\nPaid As CheckBox\r\nShipping As ComboBox");
        return true;
      },
      [&] {
        Screenshot(dialog, L"add-controls-filled");
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  entry->Execute();
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_TRUE(reported);

  // Each label just before its input in the tab order, one row below the
  // other.
  const auto controls = component_->Designer()->VBControls();
  std::vector<std::string> placed;
  for (int i = 1; i <= controls->Count(); ++i) {
    const auto properties = controls->Item(i)->Properties();
    placed.push_back(properties->Item("Name")->Value() + " " +
                     properties->Item("TabIndex")->Value() + " " +
                     properties->Item("Top")->Value());
  }
  EXPECT_EQ(placed, (std::vector<std::string>{
                        "lblCustomerName 0 150", "txtCustomerName 1 120",
                        "lblOrderDate 2 555", "txtOrderDate 3 525", "chkPaid 4 930",
                        "lblShipping 5 1335", "cboShipping 6 1305"}));
}

}  // namespace
}  // namespace tavrin::test_host
