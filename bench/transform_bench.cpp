// Line numbers and the HTML page over a generated module of 100,000 lines:
// the text work alone, and the commands over a code pane of the in-memory IDE
// (one block read, one write per changed line).
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "base/text.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "transform/code_to_html.h"
#include "transform/line_numbering.h"
#include "tests/support/counting_pane.h"
#include "transform/comment_lines.h"
#include "transform/pane_transforms.h"

namespace tavrin {
namespace {

constexpr int kLines = 100000;

// Procedures of 20 lines with the statements numbering cares about:
// declarations, Dim, loops, labels, continuations, comments and literals.
std::vector<std::string> GeneratedModule() {
  static const std::vector<std::string> procedure = {
      "' Adds the prices of one order.",
      "Public Function Total{n}(ByVal Count As Long, _",
      "                        ByVal Price As Currency) As Currency",
      "    Dim i As Long, s As String",
      "    On Error GoTo ErrHandler",
      "    For i = 1 To Count",
      "        Total{n} = Total{n} + Price * i ' running sum",
      "    Next i",
      "    If Total{n} > 1000 Then",
      "        s = \"it's large: \" & Format$(Total{n}, \"Currency\")",
      "        Debug.Print Len(s); Text1.Text",
      "    End If",
      "",
      "    Rem done",
      "    Exit Function",
      "ErrHandler:",
      "    MsgBox Err.Description, vbExclamation, \"Total{n}\"",
      "    Resume Next",
      "End Function",
      "",
  };
  std::vector<std::string> lines;
  lines.reserve(kLines);
  for (int n = 0; static_cast<int>(lines.size()) < kLines; ++n)
    for (const std::string& line : procedure) {
      if (static_cast<int>(lines.size()) == kLines) break;
      lines.push_back(ReplaceAll(line, "{n}", std::to_string(n)));
    }
  return lines;
}

void SetLineRate(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
  state.counters["lines/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kLines,
                         benchmark::Counter::kIsRate);
}

void BM_AddedLineNumbers(benchmark::State& state) {
  const auto lines = GeneratedModule();
  for (auto _ : state) benchmark::DoNotOptimize(transform::AddedLineNumbers(lines, "", 1, 1));
  SetLineRate(state, JoinCrLf(lines).size());
}
BENCHMARK(BM_AddedLineNumbers)->Unit(benchmark::kMillisecond);

void BM_RemovedLineNumbers(benchmark::State& state) {
  const auto numbered = transform::AddedLineNumbers(GeneratedModule(), "", 1, 1);
  for (auto _ : state) benchmark::DoNotOptimize(transform::RemovedLineNumbers(numbered));
  SetLineRate(state, JoinCrLf(numbered).size());
}
BENCHMARK(BM_RemovedLineNumbers)->Unit(benchmark::kMillisecond);

void BM_ConvertCodeToHtml(benchmark::State& state) {
  const std::string code = JoinCrLf(GeneratedModule());
  for (auto _ : state) benchmark::DoNotOptimize(transform::ConvertCodeToHtml(code));
  SetLineRate(state, code.size());
}
BENCHMARK(BM_ConvertCodeToHtml)->Unit(benchmark::kMillisecond);

// Numbers and un-numbers the whole module through its code pane.
void BM_LineNumbersInCodePane(benchmark::State& state) {
  const auto lines = GeneratedModule();
  const std::string code = JoinCrLf(lines);
  auto vbe = ide::memory::MemoryVbe::Create();
  auto component =
      vbe->AddProject("Project1")->AddComponent(ide::ComponentType::kStdModule, "Module1", code);
  const auto pane = component->CodeModule()->CodePane();
  pane->SetSelection({1, 1, kLines, 1});
  for (auto _ : state) {
    long long start = 0;
    transform::AddLineNumbers(*pane, start);
    transform::RemoveLineNumbers(*pane);
  }
  SetLineRate(state, 2 * code.size());
}
BENCHMARK(BM_LineNumbersInCodePane)->Unit(benchmark::kMillisecond);

// The calls each command makes into the IDE over the whole module: one
// block read, and one write per line whose text changes.
void BM_IdeCallsPerCommand(benchmark::State& state) {
  const std::string code = JoinCrLf(GeneratedModule());
  int reads = 0, writes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto vbe = ide::memory::MemoryVbe::Create();
    auto component =
        vbe->AddProject("Project1")->AddComponent(ide::ComponentType::kStdModule, "Module1", code);
    testing::CountingPane pane(component->CodeModule()->CodePane());
    pane.SetSelection({1, 1, kLines, 1});
    state.ResumeTiming();
    switch (state.range(0)) {
      case 0: { long long start = 0; transform::AddLineNumbers(pane, start); break; }
      case 1: transform::RemoveLineNumbers(pane); break;
      case 2: transform::AddCommentMarks(pane); break;
      default: transform::RemoveCommentMarks(pane); break;
    }
    reads = pane.counts().reads;
    writes = pane.counts().replaces;
  }
  state.SetLabel(std::array{"lines add", "lines remove", "comment add", "comment remove"}
                     [state.range(0)]);
  state.counters["reads"] = reads;
  state.counters["writes"] = writes;
}
BENCHMARK(BM_IdeCallsPerCommand)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace tavrin
