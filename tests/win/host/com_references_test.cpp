// VBProject.References over COM (win/com_references) against the test
// host: the properties and the References dialog's changes cross Invoke by
// name, and every host object the adapter took is given back.
#include <gtest/gtest.h>

#include "ide/memory/memory_project.h"
#include "ide/memory/memory_references.h"
#include "ide/memory/memory_vbe.h"
#include "tests/win/host/host_ide.h"
#include "win/com_ide.h"

namespace tavrin::test_host {
namespace {

TEST(ComReferences, ReadAddAndRemoveThroughDispatch) {
  ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  const long baseline = LiveHostObjects();
  {
    const auto memory = ide::memory::MemoryVbe::Create();
    const auto project = memory->AddProject("Project1");
    ide::memory::VbpReference stdole;
    stdole.guid = "{00020430-0000-0000-C000-000000000046}";
    stdole.major = 2;
    stdole.path = "C:\\Windows\\System32\\stdole2.tlb";
    stdole.description = "OLE Automation";
    project->AddReference(std::make_shared<ide::memory::MemoryReference>(stdole, "stdole"));
    const auto vbe = win::MakeComVbe(MakeHostVbe(memory), nullptr);
    const auto references = vbe->VBProjects()->Item(1)->References();
    ASSERT_EQ(references->Count(), 1);
    const auto read = references->Item("stdole");
    EXPECT_EQ(read->Description(), "OLE Automation");
    EXPECT_EQ(read->Guid(), stdole.guid);
    EXPECT_EQ(read->Major(), 2);
    EXPECT_EQ(read->Minor(), 0);
    EXPECT_EQ(read->FullPath(), stdole.path);
    EXPECT_EQ(read->Type(), ide::ReferenceKind::kTypeLib);
    EXPECT_FALSE(read->BuiltIn());
    EXPECT_FALSE(read->IsBroken());

    const auto added = references->AddFromGuid("{11111111-2222-3333-4444-555555555555}", 1, 2);
    EXPECT_EQ(added->Minor(), 2);
    EXPECT_TRUE(added->IsBroken());
    try {
      references->AddFromGuid("{11111111-2222-3333-4444-555555555555}", 1, 2);
      ADD_FAILURE() << "a second reference to one library";
    } catch (const ide::Error& error) {
      EXPECT_EQ(error.number(), 32813);
    }
    references->Remove(*read);
    EXPECT_EQ(project->ReferenceList().size(), 1u);
    // The collection read again shows the change.
    EXPECT_EQ(vbe->VBProjects()->Item(1)->References()->Item(1)->Guid(),
              "{11111111-2222-3333-4444-555555555555}");
  }
  EXPECT_EQ(LiveHostObjects(), baseline);
  ::CoUninitialize();
}

}  // namespace
}  // namespace tavrin::test_host
