// Access keys over an arbitrary form: collecting the captions (tabs of
// tabbed containers included) and grouping the conflicts never fails except
// with the IDE's own errors, changes nothing, and every conflict holds two
// or more captions with that access key.
#include <cstdint>
#include <string>

#include "formtools/access_keys.h"
#include "fuzz/fuzz_support.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrin;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto vbe = ide::memory::MemoryVbe::Create();
  auto loaded = vbe->AddProject("Project1")->AddSourceFile("Form1.frm", bytes);
  if (!loaded) return 0;
  const auto designer = (*loaded)->Designer();
  if (!designer) return 0;
  try {
    const auto uses = formtools::CollectAccessKeys(*designer);
    for (const formtools::ShortcutConflict& conflict : formtools::FindShortcutConflicts(uses)) {
      fuzz::Check(conflict.uses.size() >= 2, "a conflict has two captions or more");
      for (const formtools::AccessKeyUse& use : conflict.uses) {
        const auto key = formtools::AccessKeyOf(formtools::ReadCaption(use));
        fuzz::Check(key.has_value(), "every caption of a conflict has an access key");
      }
    }
  } catch (const ide::Error&) {
  }
  fuzz::Check((*loaded)->SourceBytes() == bytes, "checking access keys changes nothing");
  return 0;
}
