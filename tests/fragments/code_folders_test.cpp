#include "fragments/code_folders.h"

#include <gtest/gtest.h>

#include "fragments/addin_folder.h"
#include "platform/std_file_system.h"
#include "resources/default_files.h"
#include "tests/support/temp_folder.h"

namespace tavrin::fragments {
namespace {

using platform::PathStyle;

TEST(CodeFoldersTest, PathHelpers) {
  EXPECT_EQ(EnsureTrailingBackslash("C:\\a"), "C:\\a\\");
  EXPECT_EQ(EnsureTrailingBackslash("C:\\a\\"), "C:\\a\\");
  EXPECT_EQ(EnsureTrailingBackslash(""), "");
  EXPECT_EQ(EnsureTrailingBackslash("/a", PathStyle::kPosix), "/a/");
  EXPECT_EQ(ParentFolder("C:\\a\\b.bas"), "C:\\a\\");
  EXPECT_EQ(ParentFolder("b.bas"), "");
  EXPECT_EQ(JoinPath({"C:\\F", "\\vbcode\\"}), "C:\\F\\vbcode\\");
  EXPECT_EQ(JoinPath({"C:\\F\\", "\\\\vbcode", "Library"}), "C:\\F\\vbcode\\Library");
  EXPECT_EQ(JoinPath({"", "\\\\srv\\code\\", "x"}), "\\\\srv\\code\\x");
  EXPECT_EQ(JoinPath({"/home/u/tavrin", "\\vbcode\\"}, PathStyle::kPosix), "/home/u/tavrin/vbcode/");
  EXPECT_EQ(PseudoRootNames()[6], "<errorhandlers>");
}

struct FolderCase {
  std::string_view base_folder, library_folder;
  std::array<std::string_view, kPseudoRootCount> folders;
};

TEST(CodeFoldersTest, FoldersOfThePseudoRoots) {
  const FolderCase cases[] = {
      {"\\vbcode\\", "\\vbcode\\Library\\",
       {"C:\\F", "C:\\F\\vbcode\\", "C:\\F\\vbcode\\Library\\", "C:\\F\\vbcode\\Fragments",
        "C:\\F\\vbcode\\Classes", "C:\\F\\vbcode\\Templates", "C:\\F\\vbcode\\ErrorHandlers"}},
      {"D:\\Shared\\Code", "<code>Library",
       {"C:\\F", "D:\\Shared\\Code", "D:\\Shared\\Code\\Library", "D:\\Shared\\Code\\Fragments",
        "D:\\Shared\\Code\\Classes", "D:\\Shared\\Code\\Templates",
        "D:\\Shared\\Code\\ErrorHandlers"}},
      {"\\\\srv\\code\\", "\\\\srv\\lib\\",
       {"C:\\F", "\\\\srv\\code\\", "\\\\srv\\lib\\", "\\\\srv\\code\\Fragments",
        "\\\\srv\\code\\Classes", "\\\\srv\\code\\Templates", "\\\\srv\\code\\ErrorHandlers"}},
      {"vbcode", "<library>x", {"C:\\F", "C:\\F\\vbcode", "C:\\F\\x", "C:\\F\\vbcode\\Fragments",
                                "C:\\F\\vbcode\\Classes", "C:\\F\\vbcode\\Templates",
                                "C:\\F\\vbcode\\ErrorHandlers"}},
  };
  for (const FolderCase& c : cases) {
    const CodeFolders folders("C:\\F", c.base_folder, c.library_folder, PathStyle::kWindows);
    for (int i = 0; i < kPseudoRootCount; ++i)
      EXPECT_EQ(folders.CodeFolder(i), c.folders[static_cast<std::size_t>(i)])
          << c.base_folder << " " << i;
    EXPECT_EQ(folders.CodeFolder(7), "");
    EXPECT_EQ(folders.CodeFolder(-1), "");
  }
}

TEST(CodeFoldersTest, ResolvesPaths) {
  const CodeFolders folders("C:\\F", "\\vbcode\\", "\\vbcode\\Library\\", PathStyle::kWindows);
  struct Case {
    std::string_view path, base, resolved;
  };
  const Case cases[] = {
      {"<fragments>\\Headers\\x.bas", "", "C:\\F\\vbcode\\Fragments\\Headers\\x.bas"},
      {"<FRAGMENTS>x.bas", "", "C:\\F\\vbcode\\Fragments\\x.bas"},
      {"\\vbcode\\ErrorHandlers\\basErrorHandle.bas", "",
       "C:\\F\\vbcode\\ErrorHandlers\\basErrorHandle.bas"},
      {"C:\\F\\vbcode\\x.bas", "", "C:\\F\\vbcode\\x.bas"},  // holds the folder already
      {"c:\\f\\x.bas", "", "c:\\f\\x.bas"},
      {"E:\\x.bas", "", "E:\\x.bas"},
      {"\\\\srv\\code\\x.bas", "", "\\\\srv\\code\\x.bas"},
      {"x.bas", "D:\\Base", "D:\\Base\\x.bas"},
      {"<code><library>", "", "C:\\F\\vbcode\\C:\\F\\vbcode\\Library\\"},
  };
  for (const Case& c : cases) EXPECT_EQ(folders.ResolvePath(c.path, c.base), c.resolved) << c.path;
  EXPECT_EQ(folders.FileSetting("\\tvrtp.ini"), "C:\\F\\tvrtp.ini");
  EXPECT_EQ(folders.ExpandPseudoRoots("<templates>"), "C:\\F\\vbcode\\Templates\\");
  EXPECT_EQ(folders.ExpandPseudoRoots("no roots"), "no roots");
}

TEST(CodeFoldersTest, PosixFoldersHaveSingleSlashes) {
  const CodeFolders folders("/home/u/.config/tavrin/", "\\vbcode\\", "\\vbcode\\Library\\",
                            PathStyle::kPosix);
  EXPECT_EQ(folders.CodeFolder(1), "/home/u/.config/tavrin/vbcode/");
  EXPECT_EQ(folders.CodeFolder(2), "/home/u/.config/tavrin/vbcode/Library/");
  EXPECT_EQ(folders.CodeFolder(3), "/home/u/.config/tavrin/vbcode/Fragments");
  EXPECT_EQ(folders.FileSetting("\\vbcode\\Fragments\\Headers And Comments\\ProcedureHeader.bas"),
            "/home/u/.config/tavrin/vbcode/Fragments/Headers And Comments/ProcedureHeader.bas");
  EXPECT_EQ(folders.ResolvePath("/srv/code/x.bas"), "/srv/code/x.bas");
  const CodeFolders absolute("/a", "/shared/code", "<code>lib", PathStyle::kPosix);
  EXPECT_EQ(absolute.CodeFolder(2), "/shared/code/lib");
}

TEST(AddinFolderTest, FirstUseSeedsAndLaterUsesKeepUsersFiles) {
  testing::TempFolder temp;
  platform::StdFileSystem files;
  const std::string folder = temp.File("addin");
  ASSERT_TRUE(SeedAddinFolder(files, folder).ok());
  for (const auto& file : resources::DefaultAddinFiles()) {
    const auto bytes = files.ReadFile(folder + "/" + std::string(file.path));
    ASSERT_TRUE(bytes.ok()) << file.path;
    EXPECT_NE(bytes->find("\r\n"), std::string::npos) << file.path;
  }
  EXPECT_TRUE(files.FolderExists(folder + "/vbcode/Library"));
  EXPECT_TRUE(files.FileExists(folder + "/vbcode/ErrorHandlers/basErrorHandle.bas"));

  ASSERT_TRUE(files.WriteFile(folder + "/tvrtp.ini", "[Prefix]\r\nmine=1\r\n").ok());
  ASSERT_TRUE(SeedAddinFolder(files, folder).ok());  // no tvrusr.ini yet: still first use
  EXPECT_EQ(*files.ReadFile(folder + "/tvrtp.ini"), "[Prefix]\r\nmine=1\r\n");
}

}  // namespace
}  // namespace tavrin::fragments
