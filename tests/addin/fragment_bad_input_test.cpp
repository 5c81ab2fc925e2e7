// "Insert Fragme&nt..." facing bad input: each case leaves a clear message,
// the browser usable for the next pick, and every file as it was. Then the
// browser's way to the fragment editor.
#include <filesystem>

#include "addin/code_line_commands.h"
#include "addin/fragment_commands.h"
#include "builders/fragment_browser.h"
#include "builders/fragment_editor.h"
#include "tests/addin/fragment_fixture.h"

namespace tavrin::addin {
namespace {

namespace fs = std::filesystem;
using A = builders::DialogAction;

struct BadInput {
  const char* what;
  const char* file;   // written below the add-in's folder
  std::string bytes;
  const char* pick;   // the browser's row
  const char* said;   // in the refusal or the tree's problems; "" for none
  const char* line;   // inserted at the caret
};

class FragmentBadInputTest : public FragmentFixture,
                             public ::testing::WithParamInterface<BadInput> {
 protected:
  void Load() {
    for (const char* folder : {"Fragments", "Library", "Classes", "Templates"})
      fs::create_directories(folder_.path() / "vbcode" / folder);
    FragmentFixture::Load({"Sub Main()", "", "End Sub"}, 2, 5);
  }
};

TEST_P(FragmentBadInputTest, SaysWhyAndStaysUsable) {
  const BadInput& c = GetParam();
  Write("vbcode/Fragments/Good.bas", "Good {Table}\r\n");
  Write("tvrvars.ini", "[Variables]\r\nTable=One\r\n");
  Write(c.file, c.bytes);
  Load();
  // The bad pick first; when it is refused, the good one after it.
  host_.Answer(std::string(builders::kFragmentBrowserTitle),
               {A::Pick("tree", c.pick), A::Ok(), A::Pick("tree", "  Good.bas"), A::Ok()});
  ASSERT_TRUE(InsertFragmentCommand(context_)) << c.what;
  EXPECT_TRUE(host_.errors.empty()) << c.what << ": " << host_.errors.front();
  std::string said;
  for (const std::string& refusal : host_.refusals) said += refusal;
  const auto tree = fragments::ReadFragmentTree(settings_.folders, files_);
  for (const std::string& problem : tree.problems) said += problem;
  if (*c.said)
    EXPECT_NE(said.find(c.said), std::string::npos) << c.what << ": " << said;
  else
    EXPECT_EQ(said, "") << c.what;
  EXPECT_EQ(Code()[1], c.line) << c.what;
  // Nothing lost (the settings' load may add the keys a file lacks).
  EXPECT_NE(Read(c.file).find(c.bytes), std::string::npos) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FragmentBadInputTest,
    ::testing::Values(
        BadInput{"a file of 10 MB", "vbcode/Fragments/Big.bas", std::string(10 << 20, 'x'),
                 "  Big.bas", "is 10 MB or larger", "    Good One"},
        BadInput{"a binary file", "vbcode/Fragments/Tool.bas", std::string("MZ\0\x90", 4),
                 "  Tool.bas", "is not a text file", "    Good One"},
        BadInput{"a fragment that includes itself", "vbcode/Fragments/Self.bas",
                 "{INCLUDE Fragments\\Self.bas}\r\n", "  Self.bas", "",
                 "    {INCLUDE Fragments\\Self.bas}"},
        BadInput{"a variable file with duplicate keys", "tvrvars.ini",
                 "[Variables]\r\nTable=One\r\nTable=Two\r\n", "  Good.bas", "", "    Good One"},
        BadInput{"a library on a network path that is gone", "tvrusr.ini",
                 "[File Locations]\r\nLibrary Folder=\\\\nowhere\\gone\\lib\\\r\n", "  Good.bas",
                 "nowhere", "    Good One"}));

TEST_F(FragmentBadInputTest, TheBrowserSavesTheSelectionThroughTheEditor) {
  Load();
  Open({"Sub Main()", "    Debug.Print \"Orders\"", "End Sub"}, 2, 5);
  pane_->SetSelection({2, 1, 3, 1});
  host_.Answer(std::string(builders::kFragmentEditorTitle),
               {A::Text("name", "Print"), A::Text("mark.text", "Orders"),
                A::Text("mark.name", "Table"), A::Press("mark"), A::Ok()});
  host_.Answer(std::string(builders::kFragmentBrowserTitle), {A::Press("save"), A::Cancel()});
  EXPECT_FALSE(InsertFragmentCommand(context_));
  EXPECT_TRUE(host_.errors.empty()) << host_.errors.front();
  EXPECT_EQ(Read("vbcode/Fragments/Print.bas"), "    Debug.Print \"{Table}\"\r\n");

  // Nothing to save: the button says what to select.
  builders::FragmentBrowser browser(settings_.folders, TemplateEnvironmentOf(context_), files_,
                                    ui_);
  browser.Pressed("save", host_);
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text, "Select the lines to save, or put the caret in a procedure.");
}

}  // namespace
}  // namespace tavrin::addin
