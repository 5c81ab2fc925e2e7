// The one way into <windows.h> for win/, with what every Win32 file needs:
// owners for handles and the conversion between the core's UTF-8 and the
// UTF-16 of the W functions.
//
// Only generic Win32 helpers belong here; no product decision.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

// windows.h renames MessageBox to MessageBoxW; platform::Ui has a member of
// that name, which must keep it in every file.
#undef MessageBox

#include <string>
#include <string_view>

namespace tavrin::win {

// Invalid UTF-8 becomes U+FFFD, unpaired surrogates likewise.
std::wstring Utf8ToWide(std::string_view text);
std::string WideToUtf8(std::wstring_view text);

// The system's text for an error code (GetLastError, LSTATUS), in UTF-8.
std::string ErrorText(DWORD code);

// Sole owner of a handle; Traits give the handle type, its empty value and
// how to close it.
template <class Traits>
class UniqueHandle {
 public:
  using Handle = typename Traits::Handle;

  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  ~UniqueHandle() { reset(); }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != Traits::kEmpty; }

  Handle release() {
    Handle handle = handle_;
    handle_ = Traits::kEmpty;
    return handle;
  }
  void reset(Handle handle = Traits::kEmpty) {
    if (handle_ != Traits::kEmpty) Traits::Close(handle_);
    handle_ = handle;
  }
  // The slot for a function that returns a new handle through a pointer;
  // the handle held so far is closed first, so reuse cannot leak.
  Handle* put() {
    reset();
    return &handle_;
  }

 private:
  Handle handle_ = Traits::kEmpty;
};

// Registry keys that were opened or created; never the predefined roots.
struct RegistryKeyTraits {
  using Handle = HKEY;
  static constexpr HKEY kEmpty = nullptr;
  static void Close(HKEY key) { ::RegCloseKey(key); }
};
struct WindowTraits {
  using Handle = HWND;
  static constexpr HWND kEmpty = nullptr;
  static void Close(HWND window) { ::DestroyWindow(window); }
};
struct WindowsHookTraits {
  using Handle = HHOOK;
  static constexpr HHOOK kEmpty = nullptr;
  static void Close(HHOOK hook) { ::UnhookWindowsHookEx(hook); }
};

// Blocks the system allocated for the caller with LocalAlloc.
struct LocalMemoryTraits {
  using Handle = HLOCAL;
  static constexpr HLOCAL kEmpty = nullptr;
  static void Close(HLOCAL memory) { ::LocalFree(memory); }
};

using UniqueHkey = UniqueHandle<RegistryKeyTraits>;
using UniqueLocalMemory = UniqueHandle<LocalMemoryTraits>;
using UniqueHwnd = UniqueHandle<WindowTraits>;
using UniqueHhook = UniqueHandle<WindowsHookTraits>;

// The module that holds this code: the DLL when it is one, not the host.
HMODULE ThisModule();
// The full path of that module's file; empty when the system does not say.
std::wstring ThisModulePath();

}  // namespace tavrin::win
