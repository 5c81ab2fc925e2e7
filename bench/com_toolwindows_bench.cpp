// The tool windows on the large project (bench/large_project.h) through COM:
// the test host's IDispatch IDE holds the project, the add-in's COM adapter
// (win/com_ide) reads it, every call crossing IDispatch::Invoke by name as
// with a real IDE. Prints the times and the IDE calls that dominate; asserts
// nothing. Run under Wine (bench/RESULTS.md):
//   wine build/win64/tavrin_host_bench.exe
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/large_project.h"
#include "tests/win/host/host_ide.h"
#include "tests/win/host/host_object.h"
#include "toolwindows/code_explorer.h"
#include "toolwindows/search_index.h"
#include "win/com_ide.h"
#include "win/win_support.h"

namespace tavrin {
namespace {

using Clock = std::chrono::steady_clock;

template <class F>
double Milliseconds(F&& work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// This thread's CPU time (user and kernel), in milliseconds.
double CpuMilliseconds() {
  FILETIME created, exited, kernel, user;
  ::GetThreadTimes(::GetCurrentThread(), &created, &exited, &kernel, &user);
  const auto ticks = [](FILETIME time) {
    return double((ULONGLONG(time.dwHighDateTime) << 32) | time.dwLowDateTime);
  };
  return (ticks(kernel) + ticks(user)) / 10000.0;
}

// The best of `runs` runs, in milliseconds of wall time; `cpu` receives the
// CPU time of that run. The machine may be shared: CPU time is steadier.
template <class F>
double Best(int runs, F&& work, double* cpu = nullptr) {
  double best = 1e300;
  for (int i = 0; i < runs; ++i) {
    const double cpu_start = CpuMilliseconds();
    const double wall = Milliseconds(work);
    if (wall < best) {
      best = wall;
      if (cpu) *cpu = CpuMilliseconds() - cpu_start;
    }
  }
  return best;
}

std::size_t CountNodes(const std::vector<toolwindows::Node>& nodes) {
  std::size_t count = nodes.size();
  for (const auto& node : nodes) count += CountNodes(node.children);
  return count;
}

void PrintCalls(const std::map<std::wstring, long>& calls) {
  std::vector<std::pair<long, std::wstring>> sorted;
  long total = 0;
  for (const auto& [name, count] : calls) {
    sorted.emplace_back(count, name);
    total += count;
  }
  std::sort(sorted.rbegin(), sorted.rend());
  std::printf("  IDE calls: %ld in all\n", total);
  for (std::size_t i = 0; i < sorted.size() && i < 8; ++i)
    std::printf("    %-24ls %ld\n", sorted[i].second.c_str(), sorted[i].first);
}

// Each query typed a letter at a time: the mean and the slowest keystroke.
void Keystrokes(const toolwindows::SearchIndex& index, std::string_view query) {
  constexpr int kRounds = 20;
  double total = 0, slowest = 0;
  std::size_t found = 0;
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t typed = 1; typed <= query.size(); ++typed) {
      const double ms = Milliseconds([&] { found = index.Find(query.substr(0, typed)).size(); });
      total += ms;
      slowest = std::max(slowest, ms);
    }
  }
  std::printf("search \"%.*s\" a keystroke at a time: %.3f ms a keystroke (slowest %.3f ms), "
              "%zu found at the end\n",
              int(query.size()), query.data(), total / double(kRounds * query.size()), slowest,
              found);
}

void Run() {
  std::shared_ptr<ide::memory::MemoryComponent> middle;
  const auto memory = bench::LargeProject(&middle);
  const auto vbe = win::MakeComVbe(test_host::MakeHostVbe(memory), {});
  std::printf("%d modules of %d lines through the test host's COM IDE\n\n", bench::kModules,
              bench::kLinesPerModule);

  std::size_t nodes = 0;
  double cpu = 0;
  const double in_memory = Best(
      3,
      [&] {
        toolwindows::CodeExplorer explorer(*memory);
        explorer.Build();
        nodes = CountNodes(explorer.Tree());
      },
      &cpu);
  std::printf("tree through the in-memory IDE: %.1f ms (CPU %.1f ms), %zu nodes\n", in_memory, cpu,
              nodes);

  const double through_com = Best(
      3,
      [&] {
        toolwindows::CodeExplorer explorer(*vbe);
        explorer.Build();
        nodes = CountNodes(explorer.Tree());
      },
      &cpu);
  std::printf("tree through COM: %.1f ms (CPU %.1f ms), %zu nodes\n", through_com, cpu, nodes);

  toolwindows::CodeExplorer explorer(*vbe);
  std::map<std::wstring, long> calls;
  test_host::CountHostCalls(&calls);
  explorer.Build();
  test_host::CountHostCalls(nullptr);
  PrintCalls(calls);

  toolwindows::SearchIndex index(explorer.Tree());
  std::printf("\nsearch index made from the tree: %.1f ms, %zu names\n",
              Best(3, [&] { toolwindows::SearchIndex again(explorer.Tree()); }),
              index.Entries().size());
  for (const std::string_view query : {"GetCus", "GCN", "ustomerNa"}) Keystrokes(index, query);

  // One component edited in the IDE, then read again through COM.
  const auto component = vbe->VBProjects()->Item(1)->VBComponents()->Item(middle->Name());
  const int reads_before = explorer.ComponentReads();
  int edits = 0;
  const double refresh = Best(
      5,
      [&] {
        middle->CodeModule()->ReplaceLine(1, "Option Explicit ' edit " + std::to_string(++edits));
        explorer.Refresh(*component);
      },
      &cpu);
  std::printf("\none component edited, then Refresh through COM: %.2f ms (CPU %.2f ms), %d "
              "component(s) read a refresh\n",
              refresh, cpu, (explorer.ComponentReads() - reads_before) / 5);
  calls.clear();
  test_host::CountHostCalls(&calls);
  explorer.Refresh(*component);
  test_host::CountHostCalls(nullptr);
  PrintCalls(calls);
  std::printf("the same, with the tree and the search index made again: %.1f ms\n",
              Best(3, [&] {
                explorer.Refresh(*component);
                const toolwindows::SearchIndex again(explorer.Tree());
              }));
}

}  // namespace
}  // namespace tavrin

int main() {
  if (FAILED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  tavrin::Run();
  ::CoUninitialize();
  return 0;
}
