#include "settings/ini_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "tests/support/temp_folder.h"

namespace tavrin::settings {
namespace {

namespace fs = std::filesystem;

class IniFileTest : public ::testing::Test {
 protected:
  std::string Write(std::string_view name, std::string_view bytes) {
    const std::string path = folder_.File(name);
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return path;
  }
  std::string Read(std::string_view name) {
    std::ifstream in(folder_.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  std::unique_ptr<C4_IniFile> Open(std::string_view name) {
    auto file = std::make_unique<C4_IniFile>(profiles_, files_, folder_.path().string());
    file->SetName(name);
    return file;
  }
  // key=value pairs of a section, "|" between them.
  static std::string Pairs(const C4_IniFileSection& section) {
    std::string text;
    for (const auto& item : *section.Items())
      text += (text.empty() ? "" : "|") + item->Key() + "=" + item->Value();
    return text;
  }

  testing::TempFolder folder_;
  platform::StdFileSystem files_;
  platform::PortableProfileFile profiles_{files_};
};

TEST_F(IniFileTest, SplitKeepsNonEmptyPieces) {
  struct Case {
    std::string_view text, delimiter;
    std::vector<std::string> pieces;
  };
  const Case cases[] = {
      {"a=b", "=", {"a", "b"}},     {"Key=", "=", {"Key"}},      {"=Value", "=", {"Value"}},
      {"A=B=C", "=", {"A", "B", "C"}}, {"", "=", {""}},          {"===", "=", {""}},
      {"a,,b", ",", {"a", "b"}},    {"ab", "", {"ab"}},
  };
  for (const Case& c : cases) EXPECT_EQ(C4_IniFile::Split(c.text, c.delimiter), c.pieces) << c.text;
}

TEST_F(IniFileTest, LoadsLinesByTheSystemsRules) {
  Write("t.ini",
        "[Lines]\r\nKey=\r\n=Value\r\nA=B=C\r\n#note\r\n;note\r\n  Spaced  =  v  \r\n"
        "key=duplicate\r\n[lines]\r\nx=second section\r\n[Other]\r\nk=1\r\n");
  const auto file = Open("t.ini");
  ASSERT_EQ(file->Count(), 2);
  EXPECT_EQ(file->Item(1)->Name(), "Lines");
  EXPECT_EQ(file->Item(2)->Name(), "Other");
  EXPECT_EQ(Pairs(*file->Item("LINES")), "Key=|Value=|A=C|#note=|;note=|Spaced=v");
  EXPECT_EQ(file->Item(3), nullptr);
  EXPECT_EQ(file->Item("missing"), nullptr);
  EXPECT_TRUE(file->SectionExists("other"));
  EXPECT_TRUE(file->ValueExists("Lines", "key"));
  EXPECT_FALSE(file->ValueExists("Lines", "nokey"));
  EXPECT_FALSE(file->ValueExists("nosection", "key"));
  EXPECT_EQ(file->Value("Other", "K"), "1");
  EXPECT_EQ(file->Value("Other", "missing"), "");
}

TEST_F(IniFileTest, CommentsWriteBackAsTheyAre) {
  Write("t.ini", "[S]\r\n#note\r\n;note\r\nk=v\r\n");
  auto file = Open("t.ini");
  EXPECT_EQ(file->SectionContent("S"), std::string("#note\0;note=\0k=v\0\0", 18));
  file->Save();
  EXPECT_EQ(Read("t.ini"), "[S]\r\n#note\r\n;note=\r\nk=v\r\n");
}

TEST_F(IniFileTest, BareAndBackslashNamesResolveToTheAddinFolder) {
  for (std::string_view name : {"tvrtp.ini", "\\tvrtp.ini", "/tvrtp.ini"}) {
    EXPECT_EQ(Open(name)->Name(), folder_.File("tvrtp.ini")) << name;
  }
  EXPECT_EQ(Open(folder_.File("x.ini"))->Name(), folder_.File("x.ini"));
  // Joined to the add-in's folder, where that folder does not exist either.
  EXPECT_EQ(Open("/no/such/folder/x.ini")->Name(), "");
  EXPECT_EQ(Open("")->Name(), "");
}

TEST_F(IniFileTest, NameInAMissingFolderReadsEmpty) {
  const auto file = Open("sub/x.ini");  // the add-in folder has no "sub"
  EXPECT_EQ(file->Name(), "");
  EXPECT_EQ(file->Value("a", "b"), "");
  EXPECT_EQ(file->Count(), 0);
}

// Many section names and a long section both outgrow the first buffer.
TEST_F(IniFileTest, LargeFilesDoubleTheBuffer) {
  const std::string long_value(1 << 20, 'x');
  std::string text = "[A]\r\nk=" + long_value + "\r\nlast=1\r\n";
  for (int i = 0; i < 700; ++i)
    text += "[Section number " + std::to_string(i) + "]\r\nk=" + std::to_string(i) + "\r\n";
  Write("big.ini", text);
  const auto file = Open("big.ini");
  ASSERT_EQ(file->Count(), 701);
  EXPECT_EQ(file->Value("Section number 699", "k"), "699");
  EXPECT_EQ(file->Value("A", "k"), long_value);
  EXPECT_EQ(file->Value("A", "last"), "1");
}

TEST_F(IniFileTest, ValueLetCreatesAndSaveWritesSections) {
  Write("t.ini", "; top comment\r\n[Keep]\r\n x = 1 \r\n\r\n[Edit]\r\na=1\r\n");
  auto file = Open("t.ini");
  file->SetValue("Edit", "b", "2");
  file->SetValue("New", "n", "3");
  file->RemoveValue("Edit", "a");
  file->RemoveValue("Nowhere", "a");  // no error
  EXPECT_EQ(Read("t.ini"), "; top comment\r\n[Keep]\r\n x = 1 \r\n\r\n[Edit]\r\na=1\r\n");
  file->Item("Edit")->Save();
  file->Item("New")->Save();
  EXPECT_EQ(Read("t.ini"), "; top comment\r\n[Keep]\r\n x = 1 \r\n\r\n[Edit]\r\nb=2\r\n[New]\r\nn=3\r\n");
  file->ValueEx("Edit", "c", "4");
  EXPECT_EQ(Open("t.ini")->Value("Edit", "c"), "4");
}

TEST_F(IniFileTest, DeletedSectionKeepsItsHeader) {
  Write("t.ini", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
  auto file = Open("t.ini");
  file->DeleteSection("a");
  EXPECT_EQ(file->SectionContent("A"), "");
  EXPECT_EQ(file->Item("A")->Count(), 0);
  EXPECT_EQ(file->Item("A")->Items(), nullptr);
  file->Save();
  EXPECT_EQ(Read("t.ini"), "[A]\r\n[B]\r\ny=2\r\n");
}

TEST_F(IniFileTest, SavingHashAloneRemovesTheSectionFirst) {
  Write("t.ini", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n");
  auto file = Open("t.ini");
  file->Item("A")->Save("#");
  EXPECT_EQ(Read("t.ini"), "[B]\r\ny=2\r\n[A]\r\n#\r\n");
}

TEST_F(IniFileTest, ItemSaveWritesOnePair) {
  Write("t.ini", "[A]\r\nx=1\r\ny=2\r\n");
  auto file = Open("t.ini");
  file->Item("A")->Item("y")->SetValue("changed");
  file->Item("A")->Item(1)->SetValue("not saved");
  file->Item("A")->Item("y")->Save();
  EXPECT_EQ(Read("t.ini"), "[A]\r\nx=1\r\ny=changed\r\n");
}

TEST_F(IniFileTest, AddLineAppendsPastTheModel) {
  Write("t.ini", "[A]\r\nx=1\r\n");
  auto file = Open("t.ini");
  ASSERT_TRUE(file->AddLine("y=2").ok());
  EXPECT_EQ(Read("t.ini"), "[A]\r\nx=1\r\ny=2\r\n");
  EXPECT_FALSE(file->ValueExists("A", "y"));
}

TEST_F(IniFileTest, AddReturnsExistingSectionAndRefusesDuplicateKeys) {
  auto file = Open("new.ini");
  C4_IniFileSection* section = file->Add("S", "k", "1");
  EXPECT_EQ(file->Add("s"), section);
  EXPECT_EQ(section->Add("K", "2"), nullptr);
  EXPECT_EQ(file->Value("S", "k"), "1");
  section->Remove(1);
  EXPECT_EQ(section->Count(), 0);
}

// Damaged or hostile files: never a crash, never another section lost.
TEST_F(IniFileTest, HostileFilesLoseNothing) {
  std::string binary = "[A]\r\nx=1\r\n";
  for (int c = 0; c < 256; ++c) binary += static_cast<char>(c);
  binary += "\r\n[B]\r\ny=2\r\n";
  Write("bin.ini", binary);
  auto file = Open("bin.ini");
  EXPECT_EQ(file->Value("B", "y"), "2");
  file->SetValue("B", "y", "3");
  file->Item("B")->Save();
  EXPECT_EQ(Read("bin.ini"), binary.substr(0, binary.size() - 3) + "3\r\n");

  Write("none.ini", "just text\r\nno=sections\r\n");
  auto none = Open("none.ini");
  EXPECT_EQ(none->Count(), 0);
  none->ValueEx("S", "k", "v");
  EXPECT_EQ(Read("none.ini"), "just text\r\nno=sections\r\n[S]\r\nk=v\r\n");
}

TEST_F(IniFileTest, FailedSavesSayWhichSection) {
  fs::create_directory(folder_.path() / "folder.ini");
  auto folder = Open("folder.ini");
  EXPECT_EQ(folder->Count(), 0);
  folder->SetValue("S", "k", "v");
  try {
    folder->Save();
    FAIL() << "no error";
  } catch (const IniSaveError& error) {
    EXPECT_STREQ(error.what(), "Unable to save INI file section 'S'");
    EXPECT_NE(error.reason().find("folder"), std::string::npos);
  }

  Write("ro.ini", "[A]\r\nx=1\r\n");
  fs::permissions(folder_.path() / "ro.ini", fs::perms::owner_read);
  auto read_only = Open("ro.ini");
  read_only->SetValue("A", "x", "2");
  EXPECT_THROW(read_only->Item("A")->Save(), IniSaveError);
  EXPECT_THROW(read_only->Item("A")->Item("x")->Save(), IniSaveError);
  EXPECT_FALSE(read_only->AddLine("z").ok());
  EXPECT_EQ(Read("ro.ini"), "[A]\r\nx=1\r\n");
}

// What is written reads back the same.
TEST_F(IniFileTest, SavedFileRoundTrips) {
  auto file = Open("round.ini");
  file->SetValue("Developer", "Developer", "Ann \xC3\x89lise");
  file->SetValue("Developer", "Empty", "");
  file->SetValue("Other", "Code Case Else", "Msgbox \"Missing Case\"");
  file->Save();
  const auto again = Open("round.ini");
  EXPECT_EQ(again->SectionContent("Developer"), file->SectionContent("Developer"));
  EXPECT_EQ(again->SectionContent("Other"), file->SectionContent("Other"));
}

}  // namespace
}  // namespace tavrin::settings
