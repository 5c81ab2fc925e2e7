// The fragment browser and fragment insertion through the in-memory IDE:
// expansion (placeholders, includes, cycles, missing files), variables from
// tvrvars.ini and from the user, the margin, references, bad files.
#include "builders/fragment_browser.h"

#include <filesystem>

#include "addin/code_line_commands.h"
#include "addin/fragment_commands.h"
#include "builders/fragment_editor.h"
#include "tests/addin/fragment_fixture.h"

namespace tavrin::addin {
namespace {

namespace fs = std::filesystem;
using A = builders::DialogAction;

class FragmentInsertTest : public FragmentFixture {
 protected:
  void SetUp() override {
    Load({"Sub Main()", "    Dim x", "", "End Sub"}, 3, 5);
    settings_.values.Set(settings::Item::kDeveloper, std::string("Ann"));
  }
  fragments::FragmentEntry Entry(std::string name) {
    return *fragments::FindFragment(
        fragments::ReadFragmentTree(settings_.folders, files_), name);
  }
  bool Insert(std::string name, fragments::VariableValues given = {}) {
    return InsertFragment(context_, Entry(std::move(name)), given);
  }
};

// "tvrrefra.ini": a GUID is added once, a name alone is named to the user.
TEST_F(FragmentInsertTest, AddsTheReferencesTheProjectLacks) {
  Write("vbcode/Library/Db.bas", "Attribute VB_Name = \"Db\"\r\n' db\r\n");
  Write("tvrrefra.ini",
        "[fragments/reference]\r\nDb.bas={00000205-0000-0010-8000-00AA006D2EA4}#2.5,DAO\r\n");
  const struct {
    const char* message;
  } runs[] = {
      {"The fragment 'Db.bas' needs these references, now added to the project:\r\n"
       "    {00000205-0000-0010-8000-00AA006D2EA4}#2.5\r\n\r\n"
       "The fragment 'Db.bas' uses these references:\r\n    DAO\r\n\r\n"
       "Add the ones the project lacks with Project > References."},
      {"The fragment 'Db.bas' uses these references:\r\n    DAO\r\n\r\n"
       "Add the ones the project lacks with Project > References."},
  };
  for (const auto& run : runs) {
    ui_.boxes_shown.clear();
    ASSERT_TRUE(Insert("Db"));
    ASSERT_EQ(ui_.boxes_shown.size(), 1u);
    EXPECT_EQ(ui_.boxes_shown[0].text, run.message);
  }
  const auto references = project_->References();
  ASSERT_EQ(references->Count(), 1);
  EXPECT_EQ(references->Item(1)->Guid(), "{00000205-0000-0010-8000-00AA006D2EA4}");
  EXPECT_EQ(references->Item(1)->Major(), 2);
}

TEST_F(FragmentInsertTest, ExpandsIncludesCyclesAndMissingFiles) {
  Write("vbcode/Fragments/Top.bas",
        "' by {AUTHOR}\r\n{INCLUDE Fragments\\Inner.bas}\r\n{INCLUDE Fragments\\Gone.bas}\r\n");
  Write("vbcode/Fragments/Inner.bas", "For Each x In y\r\n    Debug.Print x\r\nNext\r\n{INCLUDE Fragments\\Top.bas}");
  Write("vbcode/Fragments/Self.bas", "a\r\n{INCLUDE Fragments\\Self.bas}\r\n");
  ASSERT_TRUE(Insert("Top"));
  EXPECT_EQ(Code(), (Lines{"Sub Main()", "    Dim x", "    ' by Ann",
                           "    For Each x In y", "        Debug.Print x", "    Next",
                           "    {INCLUDE Fragments\\Top.bas}", "    {INCLUDE Fragments\\Gone.bas}",
                           "End Sub"}));
  Open({"Sub Main()", "", "End Sub"}, 2, 5);
  ASSERT_TRUE(Insert("Self"));
  EXPECT_EQ(Code(), (Lines{"Sub Main()", "    a", "    {INCLUDE Fragments\\Self.bas}", "End Sub"}));
}

TEST_F(FragmentInsertTest, FillsVariablesAskingOnceAndRemembering) {
  Write("tvrvars.ini", "[Variables]\r\nTable=Orders\r\n");
  Write("vbcode/Library/Open.bas",
        "Attribute VB_Name = \"Open\"\r\nSet rs = Open(\"{Table}\", {Key}, {Mode})<cursor>\r\n");
  Write("tvrrefra.ini", "[fragments/reference]\r\nOpen.bas=ADODB\r\n");
  host_.Answer(std::string(builders::kFragmentVariablesTitle),
               {A::Text("Key", "ID"), A::Ok()});
  ASSERT_TRUE(Insert("Open", {{"MODE", "2"}}));
  EXPECT_EQ(Code()[2], "    Set rs = Open(\"Orders\", ID, 2)");
  EXPECT_EQ(Selection(), CaretAt(3, 35));
  ASSERT_EQ(ui_.boxes_shown.size(), 1u);
  EXPECT_EQ(ui_.boxes_shown[0].text,
            "The fragment 'Open.bas' uses these references:\r\n    ADODB\r\n\r\n"
            "Add the ones the project lacks with Project > References.");

  // The next time the dialog starts from the last answer; Cancel inserts nothing.
  host_.Answer(std::string(builders::kFragmentVariablesTitle), {A::Cancel()});
  const auto before = Code();
  EXPECT_FALSE(Insert("Open"));
  EXPECT_EQ(Code(), before);
  builders::FragmentVariablesDialog again(
      {"Key"}, fragments::ReadVariableSection(profiles_, files_, folder_.path().string(),
                                              fragments::kLastAnswersSection));
  EXPECT_EQ(builders::FindField(again.Fields(), "Key")->text, "ID");
}

TEST_F(FragmentInsertTest, TheBrowserPreviewsAndRefusesBadFiles) {
  Write("vbcode/Fragments/Loop.bas", "For i = 1 To {Count}\r\nNext\r\n");
  Write("vbcode/Fragments/Binary.bas", std::string("MZ\0\0", 4));
  builders::FragmentBrowser browser(settings_.folders, TemplateEnvironmentOf(context_), files_,
                                    ui_);
  const auto& rows = builders::FindField(browser.Fields(), builders::kFragmentTree)->items;
  EXPECT_EQ(rows, (std::vector<std::string>{"<fragments>", "  Binary.bas", "  Loop.bas",
                                            "<library>", "<classes>", "<templates>"}));
  EXPECT_EQ(browser.HelpTopic(), "fragments.html");
  host_.Answer(std::string(builders::kFragmentBrowserTitle),
               {A::Ok(), A::Pick("tree", "  Binary.bas"), A::Ok(), A::Pick("tree", "  Loop.bas"),
                A::Ok()});
  ASSERT_TRUE(host_.Show(browser));
  EXPECT_EQ(host_.refusals,
            (std::vector<std::string>{
                "Pick a fragment file in the code folders.",
                "The fragment '" + Entry("Binary.bas").path + "' is not a text file."}));
  EXPECT_EQ(builders::FindField(browser.Fields(), builders::kFragmentPreview)->text,
            "For i = 1 To {Count}\r\nNext\r\n");
  ASSERT_NE(browser.Selected(), nullptr);
  EXPECT_EQ(browser.Selected()->name, "Loop.bas");
}

TEST_F(FragmentInsertTest, SavesTheSelectionOrTheProcedureAsANewFragment) {
  pane_->SetSelection({2, 1, 3, 1});
  EXPECT_EQ(FragmentSourceText(context_), "    Dim x");
  Caret(2, 3);
  EXPECT_EQ(FragmentSourceText(context_), "Sub Main()\r\n    Dim x\r\n\r\nEnd Sub");
  const std::string folder = settings_.folders.CodeFolder(3);
  fs::create_directories(folder);
  const auto style = settings_.folders.Style();
  const auto saved = fragments::SaveFragment(files_, folder, "Main", FragmentSourceText(context_), style);
  ASSERT_TRUE(saved) << saved.error();
  EXPECT_EQ(Entry("Main").path, *saved);
  EXPECT_FALSE(fragments::SaveFragment(files_, folder, "Main", "x", style));
}

TEST_F(FragmentInsertTest, TheEditorSavesMarkedCodeAndTheBrowserManagesFiles) {
  fs::create_directories(settings_.folders.CodeFolder(3));
  fs::create_directories(settings_.folders.CodeFolder(2));
  builders::FragmentEditor editor(settings_.folders, files_, "Set rs = Open(\"Orders\")");
  host_.Answer(std::string(builders::kFragmentEditorTitle),
               {A::Text("name", "Open"), A::Text("mark.text", "Orders"),
                A::Text("mark.name", "1x"), A::Press("mark"), A::Text("mark.name", "Table"),
                A::Press("mark"), A::Ok()});
  ASSERT_TRUE(host_.Show(editor));
  EXPECT_EQ(builders::FindField(editor.Fields(), "problem")->text, "");
  const fs::path saved = fs::path(settings_.folders.CodeFolder(3)) / "Open.bas";
  EXPECT_EQ(editor.SavedPath(), saved.string());
  EXPECT_EQ(Read(saved), "Set rs = Open(\"{Table}\")\r\n");

  builders::FragmentBrowser browser(settings_.folders, TemplateEnvironmentOf(context_), files_,
                                    ui_);
  host_.Answer("Rename Fragment", {A::Text("name", "OpenTable"), A::Ok()});
  host_.Answer("Move Fragment", {A::Pick("folder", "<library>"), A::Ok()});
  ui_.box_answers = {platform::Answer::kYes};
  host_.Answer(std::string(builders::kFragmentBrowserTitle),
               {A::Pick("tree", "  Open.bas"), A::Press("rename"), A::Press("move"),
                A::Cancel()});
  EXPECT_FALSE(host_.Show(browser));
  EXPECT_TRUE(host_.errors.empty()) << host_.errors.front();
  EXPECT_EQ(browser.Selected()->display, "<library>OpenTable.bas");
  EXPECT_EQ(builders::FindField(browser.Fields(), builders::kFragmentPreview)->text,
            "Set rs = Open(\"{Table}\")\r\n");
  browser.Pressed("delete", host_);
  EXPECT_FALSE(fs::exists(fs::path(settings_.folders.CodeFolder(2)) / "OpenTable.bas"));
  EXPECT_EQ(browser.Selected(), nullptr);
}

}  // namespace
}  // namespace tavrin::addin
