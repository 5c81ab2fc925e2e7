// What the tool-window tests share: the real Tavrin.dll loaded and
// registered for the suite, the sample project open in the test host's IDE
// with the add-in connected, and the tree view walked by its captions.
#pragma once

// First: the file-system names the Windows headers redefine must read alike
// in every header after it.
#include "win/win_support.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ide/memory/memory_vbe.h"
#include "tests/win/host/host_object.h"
#include "tests/win/host/host_tool_windows.h"
#include "win/extensibility.h"

#include <commctrl.h>

namespace tavrin::platform {
class StdFileSystem;
}

namespace tavrin::test_host {

// Loads and registers Tavrin.dll from the test program's folder for the
// suite, and answers any message box of the add-in with its default.
class ToolWindowDllTest : public ::testing::Test {
 public:
  // The message boxes shown since the test began, their texts.
  static std::vector<std::string>& Dialogs();

 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  void SetUp() override;
  void TearDown() override;

  static HMODULE Dll() { return dll_; }

 private:
  win::UniqueHhook hook_;
  static inline HMODULE dll_ = nullptr;
};

// The IDE with the sample project and the add-in connected to it; the
// add-in disconnects when the session ends.
class ToolWindowSession {
 public:
  ToolWindowSession();
  ~ToolWindowSession();
  ToolWindowSession(const ToolWindowSession&) = delete;
  ToolWindowSession& operator=(const ToolWindowSession&) = delete;

  ide::memory::MemoryVbe& Memory() { return *memory_; }
  // The window of that ProgID, shown and resized as the user opens it.
  std::shared_ptr<HostToolFrame> Frame(const wchar_t* prog_id);

 private:
  std::unique_ptr<platform::StdFileSystem> files_;
  std::shared_ptr<ide::memory::MemoryVbe> memory_;
  ComPtr<IDispatch> vbe_;
  ComPtr<IDispatch> addin_instance_;
  ComPtr<IDTExtensibility2> addin_;
  SAFEARRAY* custom_ = nullptr;
};

// The item at the path of captions ("/Inventory/Modules/basMain"); null
// when there is none.
HTREEITEM FindTreeItem(HWND tree, std::wstring_view path);

// The component of the active code pane and the caret's line there.
std::string ActiveComponentName(ide::memory::MemoryVbe& memory);
int CaretLine(ide::memory::MemoryVbe& memory);

// Runs the messages waiting for this thread.
void PumpMessages();

}  // namespace tavrin::test_host
