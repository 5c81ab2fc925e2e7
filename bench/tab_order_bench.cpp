// The Tab order window and the Code Explorer on forms and projects far
// larger than usual: a form of N controls (frames of nine text boxes, and
// one tabbed container holding them all), read through the in-memory IDE,
// ordered by position and shown as lines; a project of N small modules.
// The time per control or component must not grow with N.
#include <benchmark/benchmark.h>

#include <string>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "toolwindows/code_explorer.h"
#include "toolwindows/tab_order.h"

namespace tavrin {
namespace {

std::string Control(std::string_view kind, const std::string& name, int left, int top,
                    int tab_index, const std::string& inside = {}) {
  return "Begin VB." + std::string(kind) + " " + name + "\r\nHeight = 300\r\nLeft = " +
         std::to_string(left) + "\r\nTabIndex = " + std::to_string(tab_index) + "\r\nTop = " +
         std::to_string(top) + "\r\n" + inside + "End\r\n";
}

// `controls` controls in frames of ten; with `tabbed`, all inside one SSTab
// of four tabs, each frame on tab (frame % 4).
std::string LargeForm(int controls, bool tabbed) {
  std::string body, tab_lines;
  int tab_index = controls;
  for (int frame = 0; frame * 10 < controls; ++frame) {
    std::string boxes;
    for (int box = 0; box < 9; ++box)
      boxes += Control("TextBox", "txt" + std::to_string(frame) + "_" + std::to_string(box),
                       100 + box * 50, 200, --tab_index);
    const std::string name = "fra" + std::to_string(frame);
    body += Control("Frame", name, 100, 400 * (frame % 50), --tab_index, boxes);
    tab_lines += "Tab(" + std::to_string(frame % 4) + ").Control(" + std::to_string(frame / 4) +
                 ")= \"" + name + "\"\r\n";
  }
  if (tabbed) {
    body = "Begin TabDlg.SSTab tabAll\r\nHeight = 9000\r\nLeft = 0\r\nTabIndex = " +
           std::to_string(controls) + "\r\nTop = 0\r\nTabs = 4\r\n" + tab_lines + body + "End\r\n";
  }
  return "VERSION 5.00\r\nBegin VB.Form frmLarge\r\n" + body +
         "End\r\nAttribute VB_Name = \"frmLarge\"\r\n";
}

// Read the designer, order by position, and the lines the window shows.
void BM_TabOrderLargeForm(benchmark::State& state) {
  const int controls = int(state.range(0));
  const bool tabbed = state.range(1) != 0;
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto form =
      vbe->AddProject("Project1")->AddSourceFile("frmLarge.frm", LargeForm(controls, tabbed)).value();
  std::size_t lines = 0;
  for (auto _ : state) {
    toolwindows::TabOrder order(*form->Designer());
    order.OrderByPosition();
    lines = order.Lines().size();
    benchmark::DoNotOptimize(lines);
  }
  state.counters["lines"] = double(lines);
  state.SetItemsProcessed(state.iterations() * controls);
}
BENCHMARK(BM_TabOrderLargeForm)
    ->ArgsProduct({{1000, 10000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

// The whole tree of a project of N modules of one procedure each.
void BM_CodeExplorerManyComponents(benchmark::State& state) {
  const int modules = int(state.range(0));
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto project = vbe->AddProject("Project1");
  for (int m = 0; m < modules; ++m)
    project->AddComponent(ide::ComponentType::kStdModule, "Module" + std::to_string(m),
                          "Public Sub Work" + std::to_string(m) + "()\r\nEnd Sub\r\n");
  for (auto _ : state) {
    toolwindows::CodeExplorer explorer(*vbe);
    explorer.Build();
    benchmark::DoNotOptimize(explorer.Tree().size());
  }
  state.SetItemsProcessed(state.iterations() * modules);
}
BENCHMARK(BM_CodeExplorerManyComponents)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavrin
