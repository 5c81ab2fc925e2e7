// The tool windows on a large project: 100 standard and class modules of
// 2,500 lines each (250,000 lines). The Code Explorer's whole tree read
// through the in-memory IDE, one search per keystroke on its index, and the
// update after one component changes.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "toolwindows/code_explorer.h"
#include "toolwindows/search_index.h"

namespace tavrin {
namespace {

constexpr int kModules = 100;
constexpr int kLinesPerModule = 2500;

constexpr std::array<std::string_view, 6> kVerbs = {"Get", "Set", "Load", "Save", "Find", "Update"};
constexpr std::array<std::string_view, 6> kNouns = {"Customer", "Order",   "Invoice",
                                                     "Product",  "Address", "Supplier"};

// One module of `kLinesPerModule` lines: groups of a commented function, a
// property with Get and Let, and a private procedure (25 lines a group).
std::string ModuleCode(int module) {
  std::string code = "Option Explicit\r\n\r\nPrivate mValue As String\r\n";
  int lines = 3;
  for (int n = 0; lines + 25 <= kLinesPerModule; ++n) {
    const auto verb = kVerbs[std::size_t(n + module) % kVerbs.size()];
    const auto noun = kNouns[std::size_t(n / 6 + module) % kNouns.size()];
    const std::string suffix = std::to_string(module) + "_" + std::to_string(n);
    const std::string function = std::string(verb) + std::string(noun) + "Name" + suffix;
    const std::string property = std::string(noun) + "Code" + suffix;
    code += "' Looks up one " + std::string(noun) + " by its number.\r\n";
    code += "Public Function " + function + "(ByVal Id As Long) As String\r\n";
    code += "    Dim Result As String\r\n";
    code += "    If Id < 0 Then Exit Function ' nothing to find\r\n";
    code += "    Result = \"" + std::string(noun) + " \" & CStr(Id)\r\n";
    code += "    " + function + " = Result\r\n";
    code += "End Function\r\n";
    code += "\r\n";
    code += "' The code of the current " + std::string(noun) + ".\r\n";
    code += "Public Property Get " + property + "() As String\r\n";
    code += "    " + property + " = mValue\r\n";
    code += "End Property\r\n";
    code += "\r\n";
    code += "Public Property Let " + property + "(ByVal Value As String)\r\n";
    code += "    mValue = Value\r\n";
    code += "End Property\r\n";
    code += "\r\n";
    code += "Private Sub Check" + suffix + "(ByVal Count As Long)\r\n";
    code += "    Dim i As Long\r\n";
    code += "    For i = 1 To Count\r\n";
    code += "        mValue = mValue & \"'\"\r\n";
    code += "    Next i\r\n";
    code += "End Sub\r\n";
    code += "\r\n";
    code += "\r\n";
    lines += 25;
  }
  for (; lines < kLinesPerModule; ++lines) code += "' End of module.\r\n";
  if (std::count(code.begin(), code.end(), '\n') != kLinesPerModule) std::abort();
  return code;
}

// `middle`, when given, receives the component in the middle of the list.
std::shared_ptr<ide::memory::MemoryVbe> LargeProject(
    std::shared_ptr<ide::memory::MemoryComponent>* middle = nullptr) {
  auto vbe = ide::memory::MemoryVbe::Create();
  auto project = vbe->AddProject("Project1");
  for (int m = 0; m < kModules; ++m) {
    const bool is_class = m % 2 == 1;
    auto component = project->AddComponent(
        is_class ? ide::ComponentType::kClassModule : ide::ComponentType::kStdModule,
        (is_class ? "Class" : "Module") + std::to_string(m), ModuleCode(m));
    if (middle && m == kModules / 2) *middle = component;
  }
  return vbe;
}

std::size_t CountNodes(const std::vector<toolwindows::Node>& nodes) {
  std::size_t count = nodes.size();
  for (const auto& node : nodes) count += CountNodes(node.children);
  return count;
}

// The whole tree: every component read through the IDE and parsed, then the
// tree the window shows.
void BM_CodeExplorerBuild(benchmark::State& state) {
  const auto vbe = LargeProject();
  std::size_t nodes = 0;
  for (auto _ : state) {
    toolwindows::CodeExplorer explorer(*vbe);
    explorer.Build();
    const auto tree = explorer.Tree();
    nodes = CountNodes(tree);
    if (explorer.ComponentReads() != kModules) state.SkipWithError("components missing");
  }
  state.counters["nodes"] = double(nodes);
  state.counters["lines/s"] = benchmark::Counter(double(state.iterations()) * kModules * kLinesPerModule,
                                                 benchmark::Counter::kIsRate);
}
BENCHMARK(BM_CodeExplorerBuild)->Unit(benchmark::kMillisecond);

// The search index built from that tree.
void BM_SearchIndexBuild(benchmark::State& state) {
  const auto vbe = LargeProject();
  toolwindows::CodeExplorer explorer(*vbe);
  explorer.Build();
  const auto tree = explorer.Tree();
  std::size_t entries = 0;
  for (auto _ : state) {
    toolwindows::SearchIndex index(tree);
    entries = index.Entries().size();
    benchmark::DoNotOptimize(entries);
  }
  state.counters["entries"] = double(entries);
}
BENCHMARK(BM_SearchIndexBuild)->Unit(benchmark::kMillisecond);

// One query per keystroke: argument 0 types "GetCus" a letter at a time
// (each iteration is one keystroke, the prefixes in turn), argument 1 the
// camel-hump query "GCN" the same way, argument 2 a substring "ustomerNa".
void BM_SearchKeystroke(benchmark::State& state) {
  static const std::array<std::string_view, 3> kQueries = {"GetCus", "GCN", "ustomerNa"};
  const std::string_view query = kQueries[std::size_t(state.range(0))];
  const auto vbe = LargeProject();
  toolwindows::CodeExplorer explorer(*vbe);
  explorer.Build();
  const toolwindows::SearchIndex index(explorer.Tree());
  std::size_t typed = 0, found = 0;
  for (auto _ : state) {
    typed = typed % query.size() + 1;
    const auto results = index.Find(query.substr(0, typed));
    found = results.size();
    benchmark::DoNotOptimize(results.data());
  }
  state.SetLabel(std::string(query) + ", " + std::to_string(index.Entries().size()) + " names");
  state.counters["last found"] = double(found);
}
BENCHMARK(BM_SearchKeystroke)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

// One component edited, then refreshed: only it is read again.
void BM_CodeExplorerRefreshOne(benchmark::State& state) {
  std::shared_ptr<ide::memory::MemoryComponent> component;
  const auto vbe = LargeProject(&component);
  toolwindows::CodeExplorer explorer(*vbe);
  explorer.Build();
  int reads = 0;
  for (auto _ : state) {
    state.PauseTiming();
    component->CodeModule()->ReplaceLine(1, "Option Explicit ' edited");
    const int before = explorer.ComponentReads();
    state.ResumeTiming();
    explorer.Refresh(*component);
    reads = explorer.ComponentReads() - before;
  }
  if (reads != 1) state.SkipWithError("more than the changed component read");
  state.counters["components read"] = reads;
}
BENCHMARK(BM_CodeExplorerRefreshOne)->Unit(benchmark::kMillisecond);

// The same, with the tree and the search index made again for the window.
void BM_CodeExplorerRefreshOneThenIndex(benchmark::State& state) {
  std::shared_ptr<ide::memory::MemoryComponent> component;
  const auto vbe = LargeProject(&component);
  toolwindows::CodeExplorer explorer(*vbe);
  explorer.Build();
  for (auto _ : state) {
    explorer.Refresh(*component);
    const toolwindows::SearchIndex index(explorer.Tree());
    benchmark::DoNotOptimize(index.Entries().data());
  }
}
BENCHMARK(BM_CodeExplorerRefreshOneThenIndex)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavrin
