// What keeps the DLL in memory: its live COM objects and the server locks
// of IClassFactory::LockServer. DllCanUnloadNow answers from these counts.
#pragma once

namespace tavrin::win {

void LockModule() noexcept;
void UnlockModule() noexcept;
// True while any object or lock exists.
bool IsModuleInUse() noexcept;

// Held by every COM object of the DLL for its whole life.
class ModuleReference {
 public:
  ModuleReference() noexcept { LockModule(); }
  ModuleReference(const ModuleReference&) noexcept { LockModule(); }
  ModuleReference& operator=(const ModuleReference&) noexcept { return *this; }
  ~ModuleReference() { UnlockModule(); }
};

}  // namespace tavrin::win
