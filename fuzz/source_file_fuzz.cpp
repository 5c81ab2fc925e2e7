// Source-file loading: headers, hidden Attribute lines and designer blocks.
// A file that loads is saved back byte for byte, and reading every line,
// every procedure and every control never fails except with the IDE's own
// run-time errors.
#include <array>
#include <cstdint>
#include <string>

#include "fuzz/fuzz_support.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace {

using namespace tavrin;

void ReadEveryLine(ide::ICodeModule& module) {
  const int count = module.CountOfLines();
  module.CountOfDeclarationLines();
  for (int line = 1; line <= count; ++line) {
    module.Lines(line, 1);
    const ide::ProcRef proc = module.ProcOfLine(line);
    if (proc.name.empty()) continue;
    try {
      module.ProcStartLine(proc.name, proc.kind);
      module.ProcBodyLine(proc.name, proc.kind);
      module.ProcCountLines(proc.name, proc.kind);
    } catch (const ide::Error&) {
    }
  }
}

void ReadEveryControl(ide::IComponent& component) {
  const auto designer = component.Designer();
  if (!designer) return;
  const auto controls = designer->VBControls();
  for (int index = 1; index <= controls->Count(); ++index) {
    const auto properties = controls->Item(index)->Properties();
    for (const char* name : {"Name", "Caption", "Index", "Tabs"}) {
      try {
        properties->Item(name)->Value();
      } catch (const ide::Error&) {
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static constexpr std::array<const char*, 4> kNames = {"Module1.bas", "Class1.cls",
                                                        "Form1.frm", "UserControl1.ctl"};
  const fuzz::Input input = fuzz::TakeSelector(data, size);
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto project = vbe->AddProject("Project1");
  auto loaded = project->AddSourceFile(kNames[input.selector % kNames.size()], input.rest);
  if (!loaded) return 0;
  const auto& component = *loaded;
  fuzz::Check(component->SourceBytes() == input.rest, "a loaded file saves byte for byte");

  ReadEveryLine(*component->CodeModule());
  ReadEveryControl(*component);
  fuzz::Check(component->SourceBytes() == input.rest, "reading changes nothing");
  return 0;
}
