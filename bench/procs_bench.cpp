// The procedures of a module read and parsed (what `tavrin procs` does), and
// single hostile declarations: many arguments, a very long line. Each should
// grow linearly with its input; the complexity reports say whether it does.
#include <benchmark/benchmark.h>

#include <string>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "scan/module_scanner.h"
#include "scan/proc_def.h"

namespace tavrin {
namespace {

// `count` procedures of eight lines, each with a comment above it and a
// declaration continued over two lines.
std::string ModuleOf(int count) {
  std::string code = "Option Explicit\r\n\r\n";
  for (int n = 0; n < count; ++n) {
    const std::string name = "Total" + std::to_string(n);
    code += "' Adds the prices of one order.\r\n";
    code += "Public Function " + name + "(ByVal Count As Long, _\r\n";
    code += "    Optional ByVal Price As Currency = 10) As Currency\r\n";
    code += "    Dim i As Long\r\n";
    code += "    For i = 1 To Count: " + name + " = " + name + " + Price: Next i\r\n";
    code += "End Function\r\n";
    code += "\r\n";
  }
  return code;
}

void BM_ScanModule(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::string code = ModuleOf(count);
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto component =
      vbe->AddProject("Project1")->AddComponent(ide::ComponentType::kStdModule, "Module1", code);
  for (auto _ : state) {
    const auto scanned = scan::ScanModule(vbe.get(), *component);
    if (static_cast<int>(scanned.size()) != count) state.SkipWithError("procedures missing");
    benchmark::DoNotOptimize(scanned.data());
  }
  state.SetComplexityN(count);
  state.counters["procedures/s"] = benchmark::Counter(
      static_cast<double>(state.iterations()) * count, benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ScanModule)
    ->RangeMultiplier(4)
    ->Range(256, 16384)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

void BM_ManyArguments(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  std::string declaration = "Sub Many(";
  for (int i = 0; i < count; ++i)
    declaration += "Optional ByVal a" + std::to_string(i) + " As Long = 10, ";
  declaration += "z)";
  for (auto _ : state) {
    scan::C4_ProcDef def;
    benchmark::DoNotOptimize(def.Init2(declaration, "Bench").ok());
  }
  state.SetComplexityN(count);
}
BENCHMARK(BM_ManyArguments)
    ->RangeMultiplier(4)
    ->Range(1024, 65536)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

void BM_LongLine(benchmark::State& state) {
  const auto bytes = static_cast<std::size_t>(state.range(0));
  // Quotes and colons make every scanner walk the whole line.
  std::string line = "Function Long(s As String = \"";
  while (line.size() < bytes) line += "a: b, \"\" c) ";
  line += "\") As String";
  for (auto _ : state) {
    scan::C4_ProcDef def;
    benchmark::DoNotOptimize(def.Init2(line, "Bench").ok());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * line.size()));
  state.SetComplexityN(static_cast<int64_t>(bytes));
}
BENCHMARK(BM_LongLine)
    ->RangeMultiplier(4)
    ->Range(1 << 14, 1 << 22)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace
}  // namespace tavrin
