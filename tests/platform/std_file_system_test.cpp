#include "platform/std_file_system.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace tavrin::platform {
namespace {

namespace fs = std::filesystem;

class StdFileSystemTest : public ::testing::Test {
 protected:
  testing::TempFolder folder_;
  StdFileSystem files_;
};

// Bytes come back exactly, under a non-ASCII name too, and a replaced file
// leaves no temporary file behind.
TEST_F(StdFileSystemTest, WritesReplacesAndReadsBytesExactly) {
  const std::string path = folder_.File("Caf\xC3\xA9.bas");
  const std::string bytes("a\r\nb\n\0\xE9\xFF", 8);
  ASSERT_TRUE(files_.WriteFile(path, "old"));
  ASSERT_TRUE(files_.WriteFile(path, bytes));
  EXPECT_TRUE(files_.FileExists(path));
  const auto read = files_.ReadFile(path);
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, bytes);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()), 1);
}

TEST_F(StdFileSystemTest, ReportsMissingFilesAndFoldersClearly) {
  const auto missing = files_.ReadFile(folder_.File("none.bas"));
  ASSERT_FALSE(missing);
  EXPECT_NE(missing.error().find("no such file"), std::string::npos) << missing.error();

  const auto folder = files_.ReadFile(folder_.File(""));
  ASSERT_FALSE(folder);
  EXPECT_NE(folder.error().find("it is a folder"), std::string::npos) << folder.error();

  const Status write_to_folder = files_.WriteFile(folder_.File(""), "x");
  EXPECT_FALSE(write_to_folder);
}

TEST_F(StdFileSystemTest, RefusesToReplaceAReadOnlyFile) {
  const std::string path = folder_.File("locked.bas");
  ASSERT_TRUE(files_.WriteFile(path, "kept"));
  fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  const Status written = files_.WriteFile(path, "lost");
  ASSERT_FALSE(written);
  EXPECT_NE(written.error().find("read-only"), std::string::npos) << written.error();
  EXPECT_EQ(*files_.ReadFile(path), "kept");
}

TEST_F(StdFileSystemTest, WritingIntoAMissingFolderFailsWithoutCreatingIt) {
  const std::string path = folder_.File("missing/a.bas");
  EXPECT_FALSE(files_.WriteFile(path, "x"));
  EXPECT_FALSE(files_.FolderExists(folder_.File("missing")));
  ASSERT_TRUE(files_.CreateFolders(folder_.File("missing/deeper")));
  EXPECT_TRUE(files_.FolderExists(folder_.File("missing/deeper")));
}

}  // namespace
}  // namespace tavrin::platform
