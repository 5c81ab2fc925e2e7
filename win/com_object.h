// Reference counting shared by the DLL's COM objects. A COM object deletes
// itself when its last reference goes; that delete is here and nowhere else,
// and MakeComObject is the one place that creates such objects.
#pragma once

#include <atomic>
#include <new>
#include <utility>

#include "win/com_ptr.h"
#include "win/module_lifetime.h"

namespace tavrin::win {

class RefCounted {
 public:
  RefCounted() = default;
  RefCounted(const RefCounted&) = delete;
  RefCounted& operator=(const RefCounted&) = delete;

 protected:
  virtual ~RefCounted() = default;
  ULONG AddReference() noexcept { return ++references_; }
  ULONG ReleaseReference() noexcept {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 private:
  std::atomic<ULONG> references_{1};
  ModuleReference module_;
};

// A new object owned by the returned pointer; empty when memory ran out.
template <class T, class Interface, class... Args>
ComPtr<Interface> MakeComObject(Args&&... args) noexcept {
  try {
    return ComPtr<Interface>::Attach(new T(std::forward<Args>(args)...));
  } catch (...) {
    return {};
  }
}

}  // namespace tavrin::win
