// References added and removed in the IDE: the in-memory IDE raises
// ReferencesEvents for the project changed, and the add-in's handler makes
// the library scanner read a re-added library again (and tell again when it
// still fails).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "addin/ide_events.h"
#include "ide/memory/memory_events.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/fake_ui.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::addin {
namespace {

// Reads every library but "Broken", counting the reads.
class CountingReader : public scan::TypeLibraryReader {
 public:
  Result<scan::TypeLibrary> Read(const scan::LibraryReference& reference) override {
    reads.push_back(reference.name);
    if (reference.name == "Broken") return Error{"cannot read Broken"};
    return scan::TypeLibrary{reference.name, "", {}};
  }
  std::vector<std::string> reads;
};

// Records the references events of one source.
class Recorder : public ide::IReferencesEventsSink {
 public:
  void ItemAdded(std::shared_ptr<ide::IReference> reference) override {
    seen.push_back("+" + reference->Name());
  }
  void ItemRemoved(std::shared_ptr<ide::IReference> reference) override {
    seen.push_back("-" + reference->Name());
  }
  std::vector<std::string> seen;
};

TEST(ReferenceEventsTest, AddedOrRemovedReferencesAreReadAgain) {
  testing::MemoryFileSystem files;
  files.AddFile("/lib/Tools.tlb", "");
  files.AddFile("/lib/Broken.tlb", "");
  const auto vbe = ide::memory::MemoryVbe::Create();
  vbe->SetFileSystem(&files);
  const auto first = vbe->AddProject("Project1");
  const auto second = vbe->AddProject("Project2");
  const auto references = first->References();
  references->AddFromFile("/lib/Tools.tlb");
  references->AddFromFile("/lib/Broken.tlb");

  CountingReader reader;
  scan::TypeLibraryScanner libraries(reader);
  testing::FakeUi ui;
  const auto connections = ConnectIdeEvents(*vbe, EventTargets{nullptr, nullptr, &libraries}, ui);
  const auto of_second = std::make_shared<Recorder>();
  const auto all = std::make_shared<Recorder>();
  const auto events = vbe->Events();
  const auto second_connection = events->ReferencesEvents(second)->Advise(of_second);
  const auto all_connection = events->ReferencesEvents(nullptr)->Advise(all);

  EXPECT_EQ(libraries.Scan(*vbe).problems.size(), 1u);
  EXPECT_TRUE(libraries.Scan(*vbe).problems.empty());  // kept: read and told once
  // A References object lists what the project had when it was asked for.
  first->References()->Remove(*first->References()->Item("Broken"));
  first->References()->Remove(*first->References()->Item("Tools"));
  EXPECT_EQ(libraries.KeptCount(), 0u);
  references->AddFromFile("/lib/Tools.tlb");
  references->AddFromFile("/lib/Broken.tlb");
  second->References()->AddFromGuid("{00020430-0000-0000-C000-000000000046}", 2, 0);
  EXPECT_EQ(libraries.Scan(*vbe).problems.size(), 1u);  // told again once re-added

  EXPECT_EQ(reader.reads, (std::vector<std::string>{"Tools", "Broken", "Tools", "Broken",
                                                     "{00020430-0000-0000-C000-000000000046}"}));
  EXPECT_EQ(all->seen, (std::vector<std::string>{"-Broken", "-Tools", "+Tools", "+Broken",
                                                  "+{00020430-0000-0000-C000-000000000046}"}));
  EXPECT_EQ(of_second->seen,
            (std::vector<std::string>{"+{00020430-0000-0000-C000-000000000046}"}));
  EXPECT_TRUE(ui.boxes_shown.empty());  // no handler failed
}

}  // namespace
}  // namespace tavrin::addin
