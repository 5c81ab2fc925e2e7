#include "win/windows_shell.h"

#include <gtest/gtest.h>

#include "win/win_support.h"

namespace tavrin::win {
namespace {

TEST(WindowsShellTest, TempFolderExistsAndEndsWithBackslash) {
  const std::string folder = WindowsShell().TempFolder();
  ASSERT_FALSE(folder.empty());
  EXPECT_EQ(folder.back(), '\\');
  const DWORD attributes = ::GetFileAttributesW(Utf8ToWide(folder).c_str());
  ASSERT_NE(attributes, INVALID_FILE_ATTRIBUTES);
  EXPECT_TRUE(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

TEST(WindowsShellTest, OpeningAMissingDocumentFails) {
  const Status status =
      WindowsShell().OpenDocument("C:\\no such folder\\tavrin-missing.htm");
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.error().find("tavrin-missing.htm"), std::string::npos);
}

}  // namespace
}  // namespace tavrin::win
