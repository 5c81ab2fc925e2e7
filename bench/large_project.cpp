#include "bench/large_project.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "ide/memory/memory_project.h"

namespace tavrin::bench {
namespace {

constexpr std::array<std::string_view, 6> kVerbs = {"Get", "Set", "Load", "Save", "Find", "Update"};
constexpr std::array<std::string_view, 6> kNouns = {"Customer", "Order",   "Invoice",
                                                     "Product",  "Address", "Supplier"};

}  // namespace

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

std::shared_ptr<ide::memory::MemoryVbe> LargeProject(
    std::shared_ptr<ide::memory::MemoryComponent>* middle) {
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

}  // namespace tavrin::bench
