#include "fragments/fragment_library.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "tests/support/temp_folder.h"

namespace tavrin::fragments {
namespace {

namespace fs = std::filesystem;

TEST(FragmentVariablesTest, FindsAndFillsNamesNoPlaceholderTakes) {
  struct Row {
    std::string text;
    std::vector<std::string> names;
    std::string filled;  // with Table=Orders, Key=ID
  };
  const Row rows[] = {
      {"Set rs = Open(\"{Table}\", {key}, {TABLE})", {"Table", "key"},
       "Set rs = Open(\"Orders\", ID, Orders)"},
      {"' {AUTHOR} {Date} {INCLUDE x.bas} {PROJECTNAME}", {}, "' {AUTHOR} {Date} {INCLUDE x.bas} {PROJECTNAME}"},
      {"{00000000-0000} {1st} { Table} {Table", {}, "{00000000-0000} {1st} { Table} {Table"},
      {"{{Table}}", {"Table"}, "{Orders}"},
      {"{Missing}{Table}", {"Missing", "Table"}, "{Missing}Orders"},
  };
  const VariableValues values = {{"TABLE", "Orders"}, {"KEY", "ID"}};
  for (const Row& row : rows) {
    EXPECT_EQ(FragmentVariables(row.text), row.names) << row.text;
    EXPECT_EQ(FillVariables(row.text, values), row.filled) << row.text;
  }
}

class FragmentLibraryTest : public ::testing::Test {
 protected:
  void Write(const fs::path& relative, std::string_view bytes) {
    const fs::path path = folder_.path() / relative;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
  }
  FragmentTree Tree() { return ReadFragmentTree(folders_, files_); }

  testing::TempFolder folder_;
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
  CodeFolders folders_{folder_.path().string(), "\\vbcode\\", "\\vbcode\\Library\\"};
};

TEST_F(FragmentLibraryTest, ListsTheCodeFoldersAsATree) {
  Write("vbcode/Fragments/b.bas", "b");
  Write("vbcode/Fragments/A.bas", "a");
  Write("vbcode/Fragments/Loops/ForEach.bas", "f");
  Write("vbcode/Library/Data/Open.bas", "o");
  Write("vbcode/Classes/.git/x", "hidden");
  fs::create_directories(folder_.path() / "vbcode/Templates");
  std::vector<std::string> shown;
  const FragmentTree tree = Tree();
  for (const FragmentEntry& entry : tree.entries)
    shown.push_back(std::string(entry.depth * 2, ' ') + entry.display);
  EXPECT_EQ(shown, (std::vector<std::string>{
                       "<fragments>", "  <fragments>Loops", "    <fragments>Loops\\ForEach.bas",
                       "  <fragments>A.bas", "  <fragments>b.bas", "<library>",
                       "  <library>Data", "    <library>Data\\Open.bas", "<classes>",
                       "<templates>"}));
  // The classes folder holds only a hidden folder; the missing one is named.
  EXPECT_TRUE(tree.problems.empty());
  fs::remove_all(folder_.path() / "vbcode/Templates");
  ASSERT_EQ(Tree().problems.size(), 1u);
  EXPECT_NE(Tree().problems[0].find("Templates"), std::string::npos);

  struct Find {
    std::string name, display;  // "" when none
  };
  for (const Find& row : std::vector<Find>{{"<fragments>Loops\\ForEach.bas", "<fragments>Loops\\ForEach.bas"},
                                           {"Loops/foreach.bas", "<fragments>Loops\\ForEach.bas"},
                                           {"ForEach", "<fragments>Loops\\ForEach.bas"},
                                           {"open.bas", "<library>Data\\Open.bas"},
                                           {"Loops", ""},
                                           {"nothing", ""}}) {
    const auto found = FindFragment(Tree(), row.name);
    EXPECT_EQ(found ? found->display : "", row.display) << row.name;
  }
}

TEST_F(FragmentLibraryTest, RefusesLargeAndBinaryFiles) {
  Write("big.bas", std::string(kLargestFragment, 'x'));
  Write("binary.bas", std::string("Dim x\0y", 7));
  Write("ok.bas", "Dim x\nDim y\r\n");
  const std::string base = folder_.path().string() + "/";
  EXPECT_EQ(ReadFragmentText(files_, base + "big.bas").error(),
            "The fragment '" + base + "big.bas' is 10 MB or larger; fragments are small code files.");
  EXPECT_EQ(ReadFragmentText(files_, base + "binary.bas").error(),
            "The fragment '" + base + "binary.bas' is not a text file.");
  EXPECT_EQ(*ReadFragmentText(files_, base + "ok.bas"), "Dim x\r\nDim y\r\n");
  EXPECT_FALSE(ReadFragmentText(files_, base + "none.bas"));
}

TEST_F(FragmentLibraryTest, ReadsVariablesAnswersAndReferences) {
  Write("tvrvars.ini", "[Variables]\r\nTable=Orders\r\ntable=Second\r\n");
  Write("tvrrefra.ini",
        "[fragments/reference]\r\n<library>Data\\Open.bas=ADODB, Scripting\r\nOpen.bas=ADODB,DAO\r\n");
  const std::string folder = folder_.path().string();
  // Of duplicate keys the first counts.
  EXPECT_EQ(ReadVariableSection(profiles_, files_, folder, kVariablesSection),
            (VariableValues{{"TABLE", "Orders"}}));
  ASSERT_TRUE(RememberAnswers(profiles_, files_, folder, {{"KEY", "ID"}, {"OTHER", "x"}}, {"Key"}).ok());
  EXPECT_EQ(ReadVariableSection(profiles_, files_, folder, kLastAnswersSection),
            (VariableValues{{"KEY", "ID"}}));

  FragmentEntry open;
  open.name = "Open.bas";
  open.display = "<library>Data\\Open.bas";
  EXPECT_EQ(FragmentReferences(profiles_, files_, folder, open),
            (std::vector<std::string>{"ADODB", "Scripting", "DAO"}));
  open.name = open.display = "Other.bas";
  EXPECT_TRUE(FragmentReferences(profiles_, files_, folder, open).empty());
}

TEST_F(FragmentLibraryTest, RenamesMovesAndDeletesFiles) {
  Write("vbcode/Fragments/A.bas", "a");
  Write("vbcode/Fragments/B.bas", "b");
  fs::create_directories(folder_.path() / "vbcode/Library");
  const auto style = platform::NativePathStyle();
  auto entry = [&](std::string name) { return *FindFragment(Tree(), name); };

  EXPECT_FALSE(RenameFragment(files_, entry("A.bas"), "B", style));  // exists
  EXPECT_EQ(RenameFragment(files_, entry("A.bas"), "a/b", style).error(),
            "A fragment name cannot hold /.");
  ASSERT_TRUE(RenameFragment(files_, entry("A.bas"), "Renamed", style));
  EXPECT_TRUE(fs::exists(folder_.path() / "vbcode/Fragments/Renamed.bas"));
  ASSERT_TRUE(MoveFragment(files_, entry("Renamed"), folders_.CodeFolder(2), style));
  EXPECT_EQ(entry("Renamed").display, "<library>Renamed.bas");
  ASSERT_TRUE(DeleteFragment(files_, entry("Renamed")).ok());
  EXPECT_FALSE(FindFragment(Tree(), "Renamed"));
  EXPECT_EQ(*FragmentFileName(" Loop "), "Loop.bas");
  EXPECT_EQ(*FragmentFileName("Loop.cls"), "Loop.cls");
  EXPECT_FALSE(FragmentFileName(""));
}

}  // namespace
}  // namespace tavrin::fragments
