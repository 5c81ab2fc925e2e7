// The settings dialog and the fragment browser of the real Tavrin.dll,
// opened from their menu entries in the test host, every tab and the
// browser saved as PNG, edited through their controls and confirmed; the
// INI files and the module are checked afterwards.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/win/host/host_dialogs_fixture.h"

#include <commctrl.h>

namespace tavrin::test_host {
namespace {

namespace fs = std::filesystem;

// The control whose caption reads so without its access key's "&" (a check
// box is its own caption; any other field is the control after its label).
HWND Captioned(HWND dialog, const std::wstring& caption) {
  for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    std::wstring text = TextOf(child);
    std::erase(text, L'&');
    if (text != caption) continue;
    wchar_t name[64] = L"";
    ::GetClassNameW(child, name, 64);
    return ::_wcsicmp(name, L"Button") == 0 ? child : ::GetWindow(child, GW_HWNDNEXT);
  }
  ADD_FAILURE() << "no control " << win::WideToUtf8(caption);
  return nullptr;
}

void ShowTab(HWND dialog, int index) {
  const HWND tabs = ChildOfClass(dialog, WC_TABCONTROLW);
  ::SendMessageW(tabs, TCM_SETCURSEL, index, 0);
  NMHDR change{tabs, static_cast<UINT_PTR>(::GetDlgCtrlID(tabs)), TCN_SELCHANGE};
  ::SendMessageW(dialog, WM_NOTIFY, change.idFrom, reinterpret_cast<LPARAM>(&change));
}

// "settings-file-locations" for the tab "File Locations".
std::wstring TabShotName(HWND tabs, int index) {
  wchar_t text[80] = L"";
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = text;
  item.cchTextMax = 80;
  ::SendMessageW(tabs, TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
  std::wstring name = L"settings-";
  for (const wchar_t* c = text; *c; ++c)
    if (*c != L'&') name += *c == L' ' ? L'-' : static_cast<wchar_t>(::towlower(*c));
  return name;
}

std::string ReadBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteBytes(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

// Puts the add-in's files back as they were for the next tests.
class KeptFiles {
 public:
  explicit KeptFiles(std::vector<fs::path> paths) {
    for (fs::path& path : paths) {
      std::optional<std::string> bytes;
      if (fs::exists(path)) bytes = ReadBytes(path);
      kept_.emplace_back(std::move(path), std::move(bytes));
    }
  }
  ~KeptFiles() {
    for (const auto& [path, bytes] : kept_) {
      std::error_code ignored;
      if (bytes)
        WriteBytes(path, *bytes);
      else
        fs::remove(path, ignored);
    }
  }

 private:
  std::vector<std::pair<fs::path, std::optional<std::string>>> kept_;
};

using SettingsFragmentDialogsTest = HostDialogsTest;

constexpr char kModule[] = "Option Explicit\r\n\r\nSub Main()\r\n    Debug.Print 1\r\nEnd Sub\r\n";

// The code folders the settings name, a procedure header and a few type
// prefixes, as a user's add-in folder has them.
void SeedCodeFolders(const fs::path& folder) {
  for (const char* name : {"Fragments", "Library", "Classes", "Templates"})
    fs::create_directories(folder / "vbcode" / name);
}

TEST_F(SettingsFragmentDialogsTest, SettingsEditedOnTheirTabsReachTheFiles) {
  const fs::path folder = ExeFolder();
  const fs::path header =
      folder / "vbcode" / "Fragments" / "Headers And Comments" / "ProcedureHeader.bas";
  KeptFiles kept({folder / "tvrusr.ini", folder / "tvrtp.ini", header});
  SeedCodeFolders(folder);
  WriteBytes(header,
             "'---------------------------------------------------------------\r\n"
             "' Procedure : {PROCEDURENAME}\r\n' Author    : {AUTHOR}\r\n"
             "' Purpose   : {PURPOSE}\r\n"
             "'---------------------------------------------------------------\r\n");
  const std::wstring tp = folder / "tvrtp.ini";
  for (const auto& [key, value] :
       {std::pair{L"Long Prefix", L"lng,,,Long (32-bit)"}, std::pair{L"String Prefix", L"str,,,String"},
        std::pair{L"Date Prefix", L"dtm,,,Date"}})
    ::WritePrivateProfileStringW(L"Prefix", key, value, tp.c_str());
  Connect(kModule, 4);
  HWND dialog = nullptr;
  int tabs_shot = 0;
  DialogRobot robot({
      [&] {
        if (!Opened(dialog, L"Tavrin Settings", main_window_.get())) return false;
        const HWND tabs = ChildOfClass(dialog, WC_TABCONTROLW);
        const int count = static_cast<int>(::SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0));
        for (int i = 0; i < count; ++i, ++tabs_shot) {
          ShowTab(dialog, i);
          Screenshot(dialog, TabShotName(tabs, i).c_str());
        }
        ShowTab(dialog, 0);
        TypeInto(Captioned(dialog, L"Developer:"), L"Ann Lee");
        ShowTab(dialog, 3);  // Naming
        TypeInto(Captioned(dialog, L"Prefix Module:"), L"mod");
        ShowTab(dialog, 4);  // Procedure Builder
        ::SendMessageW(Captioned(dialog, L"Add Header Procedure"), BM_CLICK, 0, 0);
        ShowTab(dialog, count - 1);  // Other
        PickItem(Captioned(dialog, L"Auto Prefix Variable Name:"), 0);
        Screenshot(dialog, L"settings-other-filled");
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("&Settings...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_GE(tabs_shot, 9);
  const std::string usr = ReadBytes(folder / "tvrusr.ini");
  for (const char* line : {"\nDeveloper=Ann Lee\r\n", "\nAdd Header Procedure=False\r\n",
                           "\nAuto Prefix Variable Name=0\r\n"})
    EXPECT_NE(usr.find(line), std::string::npos) << line << "\n" << usr;
  EXPECT_NE(ReadBytes(folder / "tvrtp.ini").find("\nPrefix Module=mod\r\n"), std::string::npos);
  EXPECT_EQ(Module(), kModule);
}

TEST_F(SettingsFragmentDialogsTest, TheBrowserInsertsAFragmentWithItsVariable) {
  const fs::path folder = ExeFolder();
  const fs::path fragment = folder / "vbcode" / "Fragments" / "Counter.bas";
  KeptFiles kept({fragment, folder / "tvrvars.ini"});
  SeedCodeFolders(folder);
  WriteBytes(fragment, "' Counts {Things}\r\nDim lngCount As Long\r\n");
  Connect(kModule, 4);
  HWND browser = nullptr, variables = nullptr;
  DialogRobot robot({
      [&] {
        if (!Opened(browser, L"Insert Fragment", main_window_.get())) return false;
        const HWND tree = Captioned(browser, L"Code folders:");
        PickItem(tree, static_cast<int>(::SendMessageW(tree, LB_FINDSTRINGEXACT, -1,
                                                       reinterpret_cast<LPARAM>(L"  Counter.bas"))));
        return true;
      },
      [&] {
        if (TextOf(Captioned(browser, L"Preview:")).find(L"Dim lngCount") == std::wstring::npos)
          return false;
        Screenshot(browser, L"fragment-browser");
        ClickButton(ChildWithText(browser, L"OK"));
        return true;
      },
      [&] {
        if (!Opened(variables, L"Fragment Variables", main_window_.get())) return false;
        TypeInto(Captioned(variables, L"Things:"), L"orders");
        Screenshot(variables, L"fragment-variables");
        ClickButton(ChildWithText(variables, L"OK"));
        return true;
      },
  });
  Click("Insert Fragme&nt...");
  ASSERT_TRUE(robot.Finished() && !robot.GaveUp()) << robot.StepsDone();
  EXPECT_EQ(Module(),
            "Option Explicit\r\n\r\nSub Main()\r\n    Debug.Print 1\r\n    ' Counts orders\r\n"
            "    Dim lngCount As Long\r\nEnd Sub\r\n");
  EXPECT_NE(ReadBytes(folder / "tvrvars.ini").find("Things=orders"), std::string::npos);
}

}  // namespace
}  // namespace tavrin::test_host
