#include "win/module_lifetime.h"

#include <atomic>

namespace tavrin::win {
namespace {

// The one count of a COM server module: COM itself asks for it through
// DllCanUnloadNow, so it cannot belong to any object.
std::atomic<long> g_module_references{0};

}  // namespace

void LockModule() noexcept { ++g_module_references; }
void UnlockModule() noexcept { --g_module_references; }
bool IsModuleInUse() noexcept { return g_module_references.load() != 0; }

}  // namespace tavrin::win
