// The scanners on a large project: modules of 2,500 lines each, every one
// with a declaration area (variables, constants, an enum, a type, Declare
// statements) and procedures with arguments, locals, constants and labels.
// The project scanner reads every module's text through the in-memory IDE
// once; the row per project size shows that the time grows linearly.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "scan/module_text_scanner.h"
#include "scan/project_scanner.h"

namespace tavrin {
namespace {

constexpr int kLinesPerModule = 2500;

std::string DeclarationArea(int module) {
  const std::string m = std::to_string(module);
  return "Option Explicit\r\n"
         "Private mlngCount" + m + " As Long, mstrName" + m + " As String\r\n"
         "Public gcolItems" + m + " As New Collection\r\n"
         "Private Const cMAX" + m + " As Long = 100 ' the limit\r\n"
         "Public Const gcstrTitle" + m + " = \"Stock: \"\"all\"\"\"\r\n"
         "Public Enum eState" + m + "\r\n    esNew = 1\r\n    esOpen\r\n    esClosed\r\nEnd Enum\r\n"
         "Private Type tLine" + m + "\r\n    Qty As Long\r\n    Text As String * 20\r\nEnd Type\r\n"
         "Private Declare Function GetTickCount" + m + " Lib \"kernel32\" _\r\n"
         "    () As Long\r\n";
}

// A procedure of 20 lines: two arguments, three locals, a constant, a label.
std::string Procedure(int module, int n) {
  const std::string suffix = std::to_string(module) + "_" + std::to_string(n);
  return "' Totals one order.\r\n"
         "Public Function Total" + suffix + "(ByVal Id As Long, _\r\n"
         "        Optional ByRef Rate As Double = 1) As Currency\r\n"
         "    Dim i As Long, s As String\r\n"
         "    Static Calls As Long\r\n"
         "    Const cSTEP As Long = 2\r\n"
         "    On Error GoTo HandleError\r\n"
         "    For i = 1 To Id Step cSTEP\r\n"
         "        s = s & \"'\" & CStr(i): Calls = Calls + 1\r\n"
         "    Next i\r\n"
         "    Total" + suffix + " = Len(s) * Rate\r\n"
         "ExitHere:\r\n"
         "    Exit Function\r\n"
         "HandleError:\r\n"
         "    Resume ExitHere\r\n"
         "End Function\r\n"
         "\r\n"
         "Private Sub Reset" + suffix + "()\r\n"
         "    mlngCount" + std::to_string(module) + " = 0\r\n"
         "End Sub\r\n";
}

std::string ModuleCode(int module) {
  std::string code = DeclarationArea(module);
  int lines = static_cast<int>(std::count(code.begin(), code.end(), '\n'));
  for (int n = 0; lines + 20 <= kLinesPerModule; ++n, lines += 20) code += Procedure(module, n);
  for (; lines < kLinesPerModule; ++lines) code += "' End of module.\r\n";
  if (std::count(code.begin(), code.end(), '\n') != kLinesPerModule) std::abort();
  return code;
}

std::shared_ptr<ide::memory::MemoryVbe> Project(int modules) {
  auto vbe = ide::memory::MemoryVbe::Create();
  auto project = vbe->AddProject("Project1");
  for (int m = 0; m < modules; ++m) {
    const bool is_class = m % 2 == 1;
    project->AddComponent(
        is_class ? ide::ComponentType::kClassModule : ide::ComponentType::kStdModule,
        (is_class ? "Class" : "Module") + std::to_string(m), ModuleCode(m));
  }
  return vbe;
}

// The project scanner over 10 to 100 modules (25,000 to 250,000 lines).
void BM_ScanProjects(benchmark::State& state) {
  const int modules = static_cast<int>(state.range(0));
  const auto vbe = Project(modules);
  std::size_t symbols = 0;
  for (auto _ : state) {
    const auto found = scan::ScanProjects(*vbe);
    symbols = found.size();
    benchmark::DoNotOptimize(found.data());
  }
  state.counters["symbols"] = double(symbols);
  state.counters["lines/s"] = benchmark::Counter(
      double(state.iterations()) * modules * kLinesPerModule, benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ScanProjects)->Arg(10)->Arg(25)->Arg(50)->Arg(100)->Unit(benchmark::kMillisecond);

// The module scanner alone over the text of all 100 modules joined
// (250,000 lines): declarations, every procedure's locals, no IDE calls.
void BM_ScanModuleText(benchmark::State& state) {
  std::string text;
  for (int m = 0; m < 100; ++m) text += ModuleCode(m);
  std::size_t procedures = 0;
  for (auto _ : state) {
    const scan::ModuleScan scan = scan::ScanModuleText(text);
    procedures = scan.procedures.size();
    benchmark::DoNotOptimize(scan.procedures.data());
  }
  state.counters["procedures"] = double(procedures);
  state.counters["MB/s"] = benchmark::Counter(double(state.iterations()) * double(text.size()) / 1e6,
                                              benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ScanModuleText)->Unit(benchmark::kMillisecond);

// One module whose declaration area holds 10,000 declarations.
void BM_ScanTenThousandDeclarations(benchmark::State& state) {
  std::string text = "Option Explicit\r\n";
  for (int i = 0; i < 10000; ++i) {
    const std::string n = std::to_string(i);
    switch (i % 4) {
      case 0: text += "Private mlngValue" + n + " As Long\r\n"; break;
      case 1: text += "Public Const gcstrKey" + n + " As String = \"k" + n + "\"\r\n"; break;
      case 2: text += "Dim maItems" + n + "(1 To 10) As Variant, mbFlag" + n + " As Boolean\r\n"; break;
      default: text += "Public gobjLink" + n + " As New Collection ' kept\r\n"; break;
    }
  }
  std::size_t declarations = 0;
  for (auto _ : state) {
    const scan::ModuleScan scan = scan::ScanModuleText(text);
    declarations = scan.declarations.size();
    benchmark::DoNotOptimize(scan.declarations.data());
  }
  state.counters["declarations"] = double(declarations);
}
BENCHMARK(BM_ScanTenThousandDeclarations)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavrin
