// A component renamed in the in-memory IDE is saved under its new name in
// the project file, which keeps every other byte.
#include <gtest/gtest.h>

#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

TEST(VbpRenameTest, SaveWritesTheNewNamesIntoTheProjectFile) {
  testing::MemoryFileSystem files;
  files.AddSampleProject("/src");
  const auto vbe = MemoryVbe::Create();
  const auto project = vbe->OpenProject(files, "/src/Inventory.vbp").value();
  const std::string before = *files.ReadFile("/src/Inventory.vbp");

  project->VBComponents()->Item("basMain")->SetName("basStart");
  project->VBComponents()->Item("clsStockItem")->SetName("clsItem");
  ASSERT_TRUE(project->Save(files));
  std::string expected = before;
  expected.replace(expected.find("Module=basMain;"), 15, "Module=basStart;");
  expected.replace(expected.find("Class=clsStockItem;"), 19, "Class=clsItem;");
  EXPECT_EQ(*files.ReadFile("/src/Inventory.vbp"), expected);
  // And the project reads back with the new names.
  const auto again = MemoryVbe::Create()->OpenProject(files, "/src/Inventory.vbp").value();
  EXPECT_EQ(again->VBComponents()->Item("basStart")->Name(), "basStart");
}

}  // namespace
}  // namespace tavrin::ide::memory
