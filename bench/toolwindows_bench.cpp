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

#include "bench/large_project.h"
#include "toolwindows/code_explorer.h"
#include "toolwindows/search_index.h"

namespace tavrin {
namespace {

using bench::kLinesPerModule;
using bench::kModules;
using bench::LargeProject;

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
