// The portable profile reader and writer against the system's private-profile
// calls, on one table of files and edits. Here the system is Wine's kernel32;
// where Wine is known to differ from Windows the case says so, with the
// evidence, and its differences are listed rather than failed.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/portable_profile_file.h"
#include "platform/std_file_system.h"
#include "settings/ini_file.h"
#include "win/private_profile_file.h"
#include "win/win_support.h"

namespace tavrin::win {
namespace {

namespace fs = std::filesystem;

struct Edit {
  enum class Kind { kNone, kWriteSection, kRemoveSection, kWriteString };
  Kind kind = Kind::kNone;
  std::string section;
  std::string lines;  // NUL-separated for kWriteSection
  std::string key;
  std::string value;
};

struct Case {
  std::string name;
  std::string file;
  Edit edit;
  // Empty when Windows and Wine agree; otherwise why Wine gives another answer.
  std::string wine_differs;
};

std::string Nul(std::string text) {
  for (char& c : text)
    if (c == '|') c = '\0';
  return text;
}

std::string Visible(std::string text) {
  std::string out;
  for (char c : text) {
    if (c == '\0') out += "|";
    else if (c == '\r') out += "\\r";
    else if (c == '\n') out += "\\n";
    else out += c;
  }
  return out;
}

// Wine rewrites the whole file from its parsed form on every write
// (dlls/kernel32/profile.c, PROFILE_FlushFile and PROFILE_Save): blanks
// around "=" and lines before the first section are normalised in sections
// that were not written. Windows edits only the section it writes.
constexpr const char* kWineRewritesFile =
    "Wine saves the whole file from its parsed form (profile.c PROFILE_Save), so other "
    "sections lose their spacing; Windows edits the written section only";
// dlls/kernel32/profile.c: WritePrivateProfileSectionW calls PROFILE_SetString
// only for strings that contain '='; Windows writes every string as a line.
constexpr const char* kWineDropsLinesWithoutEquals =
    "Wine's WritePrivateProfileSection keeps only strings containing '=' (profile.c); "
    "Windows writes each string as a line";
// dlls/kernel32/profile.c: PROFILE_GetSection skips IS_ENTRY_COMMENT lines
// (first character ';'); Windows returns them like any other line.
constexpr const char* kWineSkipsSemicolonLines =
    "Wine's GetPrivateProfileSection skips lines starting with ';' (profile.c "
    "IS_ENTRY_COMMENT); Windows returns them";

// dlls/kernel32/profile.c: PROFILE_Load keeps a blank line as an empty key
// of the section above it, and PROFILE_DeleteAllKeys drops it with the
// section's keys. The portable writer keeps the blank line that separates
// two sections, as the file was laid out; not verified against Windows.
constexpr const char* kWineDropsSeparatingBlankLine =
    "Wine drops the blank line after a rewritten section with its keys (profile.c "
    "PROFILE_DeleteAllKeys); the portable writer keeps the file's layout";

std::vector<Case> Cases() {
  using K = Edit::Kind;
  std::string many;
  for (int i = 0; i < 300; ++i) many += "[Section number " + std::to_string(i) + "]\r\nk=1\r\n";
  return {
      {"trimming", "[A]\r\nKey = Value \r\n  B=  2\r\n", {}, ""},
      {"odd lines", "[A]\r\nKey=\r\n=Value\r\nA=B=C\r\n#note\r\n", {}, ""},
      {"semicolon line", "[A]\r\n;note\r\nk=1\r\n", {}, kWineSkipsSemicolonLines},
      {"duplicates", "[A]\r\nk=1\r\nk=2\r\n[a]\r\nk=3\r\n", {}, ""},
      {"before first section", "x=1\r\n[A]\r\nk=1\r\n", {}, ""},
      {"no sections", "just text\r\n", {}, ""},
      {"many sections", many, {}, ""},
      {"write section", "[A]\r\nold=1\r\n\r\n[B]\r\nx=1\r\n",
       {K::kWriteSection, "A", Nul("k=1|j=2||"), "", ""}, kWineDropsSeparatingBlankLine},
      {"write section without blank", "[A]\r\nold=1\r\n[B]\r\nx=1\r\n",
       {K::kWriteSection, "A", Nul("k=1|j=2||"), "", ""}, ""},
      {"write keeps others", "[A]\r\nold=1\r\n[B]\r\nx = 1\r\n",
       {K::kWriteSection, "A", Nul("k=1||"), "", ""}, kWineRewritesFile},
      {"write new section", "[A]\r\nx=1\r\n", {K::kWriteSection, "New", Nul("k=1||"), "", ""},
       ""},
      {"write comment line", "[A]\r\nx=1\r\n",
       {K::kWriteSection, "A", Nul("#note|k=1||"), "", ""}, kWineDropsLinesWithoutEquals},
      {"write hash alone", "[A]\r\nx=1\r\n", {K::kWriteSection, "A", Nul("#||"), "", ""},
       kWineDropsLinesWithoutEquals},
      {"write empty", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n",
       {K::kWriteSection, "A", Nul("||"), "", ""}, ""},
      {"remove section", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n", {K::kRemoveSection, "A", "", "", ""},
       ""},
      {"remove missing section", "[B]\r\ny=2\r\n", {K::kRemoveSection, "A", "", "", ""}, ""},
      {"write string existing", "[A]\r\nKey=old\r\n", {K::kWriteString, "a", "", "KEY", "new"},
       ""},
      {"write string new key", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n",
       {K::kWriteString, "A", "", "z", "3"}, ""},
      {"write string new section", "[A]\r\nx=1\r\n", {K::kWriteString, "B", "", "y", ""}, ""},
      {"write string new file", "", {K::kWriteString, "S", "", "k", "v"}, ""},
  };
}

// Everything a caller can see of a file: its bytes, its section names, each
// section's lines and the model's reading of it.
std::vector<std::pair<std::string, std::string>> Observe(platform::ProfileFile& profiles,
                                                         platform::FileSystem& files,
                                                         const std::string& path) {
  std::vector<std::pair<std::string, std::string>> seen;
  const auto bytes = files.ReadFile(path);
  seen.emplace_back("bytes", bytes ? Visible(*bytes) : "(no file)");
  const platform::ProfileBuffer names = profiles.SectionNames(path, 1024);
  seen.emplace_back("names(1024)", std::to_string(names.length) + " " +
                                       Visible(names.buffer.substr(0, names.length)));
  settings::C4_IniFile model(profiles, files, fs::path(path).parent_path().string());
  model.SetName(path);
  for (const auto& section : model.Sections().Elements()) {
    seen.emplace_back("section " + section->Name(), Visible(section->RawText()));
    seen.emplace_back("model " + section->Name(), Visible(section->SectionContent()));
  }
  return seen;
}

Status Apply(platform::ProfileFile& profiles, const std::string& path, const Edit& edit) {
  switch (edit.kind) {
    case Edit::Kind::kNone:
      return {};
    case Edit::Kind::kWriteSection:
      return profiles.WriteSection(path, edit.section, edit.lines);
    case Edit::Kind::kRemoveSection:
      return profiles.WriteSection(path, edit.section, std::nullopt);
    case Edit::Kind::kWriteString:
      return profiles.WriteString(path, edit.section, edit.key, edit.value);
  }
  return {};
}

class ProfileFileDifferentialTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("tavrin-profile-" + std::to_string(::GetCurrentProcessId()));
    fs::create_directories(folder_);
  }
  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  std::string Create(const std::string& name, const std::string& bytes) {
    const fs::path path = folder_ / name;
    if (!bytes.empty())
      std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return path.string();
  }

  fs::path folder_;
  platform::StdFileSystem files_;
  PrivateProfileFile system_;
  platform::PortableProfileFile portable_{files_};
};

TEST_F(ProfileFileDifferentialTest, PortableGivesTheSystemsResults) {
  int index = 0;
  for (const Case& c : Cases()) {
    // A file name per case and side: Wine caches profiles by name.
    const std::string on_system = Create("s" + std::to_string(index) + ".ini", c.file);
    const std::string on_portable = Create("p" + std::to_string(index) + ".ini", c.file);
    ++index;
    const Status system_status = Apply(system_, on_system, c.edit);
    const Status portable_status = Apply(portable_, on_portable, c.edit);
    std::vector<std::string> differences;
    if (system_status.ok() != portable_status.ok())
      differences.push_back("write succeeded: system " + std::to_string(system_status.ok()) +
                            ", portable " + std::to_string(portable_status.ok()));
    const auto system_seen = Observe(system_, files_, on_system);
    const auto portable_seen = Observe(portable_, files_, on_portable);
    for (std::size_t i = 0; i < std::max(system_seen.size(), portable_seen.size()); ++i) {
      const auto missing = std::pair<std::string, std::string>("(none)", "");
      const auto& s = i < system_seen.size() ? system_seen[i] : missing;
      const auto& p = i < portable_seen.size() ? portable_seen[i] : missing;
      if (s != p)
        differences.push_back(s.first + ": system '" + s.second + "', portable " + p.first +
                              " '" + p.second + "'");
    }
    std::string report;
    for (const std::string& difference : differences) report += "\n  " + difference;
    if (c.wine_differs.empty()) {
      EXPECT_TRUE(differences.empty()) << c.name << report;
    } else if (!differences.empty()) {
      std::cout << "[ known    ] " << c.name << ": " << c.wine_differs << report << '\n';
    } else {
      std::cout << "[ known    ] " << c.name << ": no difference under this Wine\n";
    }
  }
}

}  // namespace
}  // namespace tavrin::win
