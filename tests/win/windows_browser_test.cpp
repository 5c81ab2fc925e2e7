#include "win/windows_browser.h"

#include <gtest/gtest.h>

#include "win/win_support.h"

#include <objbase.h>

namespace tavrin::win {
namespace {

// Asking the real browser is left to the machines that have one; a browser
// that cannot be created gives Western Windows' default.
TEST(WindowsBrowserTest, NoBrowserGivesWindows1252) {
  ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  WindowsBrowser browser(L"Tavrin.NoSuchBrowser");
  EXPECT_EQ(browser.DefaultCharset(), "windows-1252");
  ::CoUninitialize();
}

}  // namespace
}  // namespace tavrin::win
