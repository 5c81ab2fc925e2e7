// The large project the tool-window benchmarks load: 100 standard and class
// modules of 2,500 lines each (250,000 lines), every 25 lines a commented
// function, a property with Get and Let and a private procedure.
#pragma once

#include <memory>
#include <string>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::bench {

constexpr int kModules = 100;
constexpr int kLinesPerModule = 2500;

// The code of module number `module`, `kLinesPerModule` lines.
std::string ModuleCode(int module);

// "Project1" with the modules "Module0", "Class1", "Module2"...; `middle`,
// when given, receives the component in the middle of the list.
std::shared_ptr<ide::memory::MemoryVbe> LargeProject(
    std::shared_ptr<ide::memory::MemoryComponent>* middle = nullptr);

}  // namespace tavrin::bench
