#include "platform/portable_profile_file.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "base/text.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::platform {
namespace {

using testing::MemoryFileSystem;

constexpr std::string_view kFile = "/addin/test.ini";

std::string Nul(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c == '|') c = '\0';
  return out;
}

// The strings of a read, "|" for each NUL, as the model cuts them.
std::string Answer(const ProfileBuffer& answer) {
  std::string text = answer.buffer.substr(0, answer.length);
  for (char& c : text)
    if (c == '\0') c = '|';
  return text;
}

class PortableProfileFileTest : public ::testing::Test {
 protected:
  void Given(std::string_view text) { files_.AddFile(kFile, text); }
  std::string File() { return *files_.ReadFile(kFile); }

  MemoryFileSystem files_;
  PortableProfileFile profile_{files_};
};

TEST_F(PortableProfileFileTest, ReadsWhatTheSystemReads) {
  struct Case {
    std::string_view file;
    std::string_view section;
    std::string_view names;
    std::string_view lines;
  };
  const Case cases[] = {
      {"[A]\r\nKey = Value \r\n", "A", "A|", "Key=Value|"},
      {"[A]\r\nKey=\r\n=Value\r\nA=B=C\r\n", "a", "A|", "Key=|=Value|A=B=C|"},
      {"[A]\r\n#note\r\n;note\r\n\r\n  x  \r\n", "A", "A|", "#note|;note|x|"},
      {"lost=1\r\n[A]\r\nk=1\r\n", "A", "A|", "k=1|"},
      {"[A]\r\nk=1\r\n[a]\r\nk=2\r\n", "A", "A|a|", "k=1|"},
      {"[A]\nk=1\n[B]\nk=2", "B", "A|B|", "k=2|"},
      {"[ Spaced ]\r\n", " Spaced ", " Spaced |", ""},
      {"", "A", "", ""},
      {"no sections at all\r\n", "A", "", ""},
      {std::string_view("[A]\r\nk=a\0b\r\n", 12), "A", "A|", "k=a|"},
  };
  for (const Case& c : cases) {
    Given(c.file);
    EXPECT_EQ(Answer(profile_.SectionNames(kFile, 1024)), c.names) << c.file;
    EXPECT_EQ(Answer(profile_.ReadSection(kFile, c.section, 1024)), c.lines) << c.file;
  }
}

TEST_F(PortableProfileFileTest, TooSmallBufferAnswersSizeLessTwo) {
  Given("[Alpha]\r\n[Beta]\r\n");
  const ProfileBuffer names = profile_.SectionNames(kFile, 8);
  EXPECT_EQ(names.length, 6u);
  EXPECT_EQ(names.buffer, std::string("Alpha\0\0\0", 8));
  EXPECT_EQ(profile_.SectionNames(kFile, 13).length, 11u);  // fits, but looks full
  EXPECT_EQ(profile_.SectionNames(kFile, 14).length, 11u);
}

TEST_F(PortableProfileFileTest, WritesOnlyTheSection) {
  struct Case {
    std::string_view before;
    std::string_view section;
    std::optional<std::string_view> lines;
    std::string_view after;
  };
  const std::string one = Nul("k=1||");
  const std::string note = Nul("#note|;x=||");
  const Case cases[] = {
      // Replaced in place; comments and spacing elsewhere kept.
      {"; head\r\n[A]\r\nold = 0\r\n\r\n[B]\r\n; c\r\nx = 1\r\n", "A", one,
       "; head\r\n[A]\r\nk=1\r\n\r\n[B]\r\n; c\r\nx = 1\r\n"},
      {"[A]\r\nold=0\r\n[B]\r\nx=1\r\n", "b", note, "[A]\r\nold=0\r\n[B]\r\n#note\r\n;x=\r\n"},
      // New section at the end, also after a last line without a break.
      {"[A]\r\nx=1", "New", one, "[A]\r\nx=1\r\n[New]\r\nk=1\r\n"},
      {"", "New", one, "[New]\r\nk=1\r\n"},
      {"[A]", "A", one, "[A]\r\nk=1\r\n"},
      // Empty content keeps the header; no content removes it.
      {"[A]\r\nx=1\r\n[B]\r\ny=2\r\n", "A", std::string_view("\0", 1), "[A]\r\n[B]\r\ny=2\r\n"},
      {"[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n", "A", std::nullopt, "\r\n[B]\r\ny=2\r\n"},
      {"[B]\r\ny=2\r\n", "A", std::nullopt, "[B]\r\ny=2\r\n"},
      // Of two sections of one name the first is written.
      {"[A]\r\nx=1\r\n[A]\r\nx=2\r\n", "A", one, "[A]\r\nk=1\r\n[A]\r\nx=2\r\n"},
      // LF files stay LF.
      {"[A]\nx=1\n[B]\ny=2\n", "A", one, "[A]\nk=1\n[B]\ny=2\n"},
  };
  for (const Case& c : cases) {
    Given(c.before);
    ASSERT_TRUE(profile_.WriteSection(kFile, c.section, c.lines).ok());
    EXPECT_EQ(File(), c.after) << c.before;
  }
}

TEST_F(PortableProfileFileTest, WritesOneString) {
  struct Case {
    std::string_view before, section, key, value, after;
  };
  const Case cases[] = {
      {"[A]\r\nKey = old\r\n; c\r\n", "a", "KEY", "new", "[A]\r\nKey=new\r\n; c\r\n"},
      {"[A]\r\nx=1\r\n\r\n[B]\r\n", "A", "y", "2", "[A]\r\nx=1\r\ny=2\r\n\r\n[B]\r\n"},
      {"[A]\r\nx=1", "A", "y", "2", "[A]\r\nx=1\r\ny=2\r\n"},
      {"[A]\r\nx=1\r\n", "B", "y", "", "[A]\r\nx=1\r\n[B]\r\ny=\r\n"},
  };
  for (const Case& c : cases) {
    Given(c.before);
    ASSERT_TRUE(profile_.WriteString(kFile, c.section, c.key, c.value).ok());
    EXPECT_EQ(File(), c.after) << c.before;
  }
}

TEST_F(PortableProfileFileTest, KeepsTheFilesEncoding) {
  Given("[A]\r\nname=Caf\xE9\r\n");
  EXPECT_EQ(Answer(profile_.ReadSection(kFile, "A", 64)), "name=Caf\xC3\xA9|");
  ASSERT_TRUE(profile_.WriteString(kFile, "B", "k", "\xC3\xA9").ok());
  EXPECT_EQ(File(), "[A]\r\nname=Caf\xE9\r\n[B]\r\nk=\xE9\r\n");

  Given("[A]\r\nx=1\r\n");  // plain ASCII takes UTF-8 for new characters
  ASSERT_TRUE(profile_.WriteString(kFile, "A", "k", "\xC5\x81").ok());
  EXPECT_EQ(File(), "[A]\r\nx=1\r\nk=\xC5\x81\r\n");
}

// Random damaged files: writing one section changes what every other section
// reads in no way, and the written section reads back as written. (UTF-8
// sequences stay out: Windows-1252 text that also reads as UTF-8 may read
// as UTF-8 once its other non-ASCII bytes are written away.)
TEST_F(PortableProfileFileTest, WritingOneSectionNeverDisturbsAnother) {
  const std::string_view pieces[] = {"[", "]", "=", ";", "#", " ", "\r", "\n", "\r\n",
                                     std::string_view("\0", 1), "\xE9", "\xFF",
                                     "A", "b", "key", "[S]", "[s]", "[T]\r\n", "x=1\r\n"};
  std::mt19937 random(20261121);
  for (int round = 0; round < 300; ++round) {
    std::string text;
    const int length = static_cast<int>(random() % 40);
    for (int i = 0; i < length; ++i) text += pieces[random() % std::size(pieces)];
    Given(text);
    std::vector<std::string> names;
    const std::string listed = Answer(profile_.SectionNames(kFile, 1 << 16));
    std::size_t start = 0;
    while (start < listed.size()) {
      const auto bar = listed.find('|', start);
      names.push_back(listed.substr(start, bar - start));
      start = bar + 1;
    }
    const std::string target = names.empty() || random() % 3 == 0 ? "New" : names[random() % names.size()];
    std::map<std::string, std::string> before;
    for (const std::string& name : names)
      if (!EqualsIgnoreCase(name, target)) before[name] = Answer(profile_.ReadSection(kFile, name, 1 << 16));
    ASSERT_TRUE(profile_.WriteSection(kFile, target, Nul("k=v|#c||")).ok());
    EXPECT_EQ(Answer(profile_.ReadSection(kFile, target, 1 << 16)), "k=v|#c|") << target << "\n" << text << "\nafter:\n" << File();
    for (const auto& [name, lines] : before)
      EXPECT_EQ(Answer(profile_.ReadSection(kFile, name, 1 << 16)), lines) << text;
  }
}

}  // namespace
}  // namespace tavrin::platform
