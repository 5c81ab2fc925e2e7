#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ide/memory/memory_project.h"
#include "ide/memory/memory_references.h"
#include "ide/memory/memory_vbe.h"
#include "ide/memory/vbp_file.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

TEST(VbpReferences, ReadsReferenceAndObjectLines) {
  const struct {
    std::string line;
    bool read;
    VbpReference expected;
  } rows[] = {
      {"Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\\stdole2.tlb#OLE "
       "Automation",
       true, {false, false, "{00020430-0000-0000-C000-000000000046}", 2, 0, "..\\stdole2.tlb",
              "OLE Automation"}},
      // Versions are hexadecimal; a description may hold '#'.
      {"Reference=*\\G{2A75196C-D9EB-4129-B803-931327F72D5C}#2.a#0#C:\\msado28.tlb#ADO #2",
       true, {false, false, "{2A75196C-D9EB-4129-B803-931327F72D5C}", 2, 10, "C:\\msado28.tlb",
              "ADO #2"}},
      {"Reference=*\\A..\\Lib\\Lib.vbp", true, {true, false, "", 0, 0, "..\\Lib\\Lib.vbp", ""}},
      {"Object={BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0; TABCTL32.OCX", true,
       {false, true, "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}", 1, 1, "TABCTL32.OCX", ""}},
      {"Reference=nonsense", false, {}},
      {"Object=TABCTL32.OCX", false, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    const VbpFile vbp = ParseVbp("Type=Exe\r\n" + row.line + "\r\n[Other]\r\nReference=*\\Ax.vbp");
    ASSERT_EQ(vbp.references.size(), row.read ? 1u : 0u);
    if (!row.read) continue;
    const VbpReference& got = vbp.references[0];
    EXPECT_EQ(got.is_project, row.expected.is_project);
    EXPECT_EQ(got.is_control, row.expected.is_control);
    EXPECT_EQ(got.guid, row.expected.guid);
    EXPECT_EQ(got.major, row.expected.major);
    EXPECT_EQ(got.minor, row.expected.minor);
    EXPECT_EQ(got.path, row.expected.path);
    EXPECT_EQ(got.description, row.expected.description);
    // The line the project file gets back reads the same.
    if (!got.is_control && !got.is_project) {
      EXPECT_EQ(ParseVbp(VbpReferenceLine(got)).references[0].minor, got.minor);
    }
  }
}

TEST(ProjectReferences, ListsAddsRemovesAndSavesThem) {
  testing::MemoryFileSystem files;
  files.AddSampleProject("/src");
  files.AddFile("/lib/Tools.tlb", "");
  const auto vbe = MemoryVbe::Create();
  vbe->SetFileSystem(&files);
  const auto project = vbe->OpenProject(files, "/src/Inventory.vbp");
  ASSERT_TRUE(project.ok()) << project.error();
  const auto references = (*project)->References();
  ASSERT_EQ(references->Count(), 2);
  EXPECT_EQ(references->Item(1)->Name(), "stdole2");
  EXPECT_EQ(references->Item(1)->Description(), "OLE Automation");
  EXPECT_EQ(references->Item("TABCTL32")->Guid(), "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}");

  const auto tools = references->AddFromFile("/lib/Tools.tlb");
  EXPECT_EQ(tools->Name(), "Tools");
  EXPECT_THROW(references->AddFromFile("/lib/Tools.tlb"), Error);
  EXPECT_THROW(references->AddFromFile("/lib/Missing.tlb"), Error);
  const auto by_guid = references->AddFromGuid("{11111111-2222-3333-4444-555555555555}", 1, 0);
  EXPECT_TRUE(by_guid->IsBroken());
  references->Remove(*references->Item("stdole2"));
  EXPECT_EQ((*project)->References()->Count(), 3);
  ASSERT_TRUE((*project)->Save(files).ok());
  const std::string saved = *files.ReadFile("/src/Inventory.vbp");
  EXPECT_EQ(saved.find("stdole2.tlb"), std::string::npos);
  EXPECT_NE(saved.find("Type=Exe\r\nReference=*\\G#0.0#0#/lib/Tools.tlb#\r\n"
                       "Reference=*\\G{11111111-2222-3333-4444-555555555555}#1.0#0##\r\n"
                       "Object={BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0; TABCTL32.OCX\r\n"
                       "Form="),
            std::string::npos)
      << saved;
}

}  // namespace
}  // namespace tavrin::ide::memory
