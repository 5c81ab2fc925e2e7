#include "tests/win/host/host_popup_menu.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "ide/object_model.h"
#include "win/bitmap_picture.h"
#include "win/com_values.h"
#include "win/win_support.h"

namespace tavrin::test_host {
namespace {

bool g_show = false;

using Entries = std::vector<std::shared_ptr<ide::ICommandBarControl>>;
using Bitmaps = std::vector<win::UniqueBitmap>;

// The pixels of a bitmap, top row first, as 32-bit BGRA.
std::vector<RGBQUAD> Pixels(HBITMAP bitmap, int width, int height) {
  std::vector<RGBQUAD> pixels(std::size_t(width) * std::size_t(height));
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = ::GetDC(nullptr);
  ::GetDIBits(screen, bitmap, 0, UINT(height), pixels.data(), &info, DIB_RGB_COLORS);
  ::ReleaseDC(nullptr, screen);
  return pixels;
}

// The button's face with its mask as transparency (white in the mask is
// transparent), as the IDE draws it beside the caption; null without one.
HBITMAP MenuPicture(ide::ICommandBarControl& control, Bitmaps& bitmaps) {
  ide::Picture face, mask;
  try {
    face = control.GetPicture();
    mask = control.GetMask();
  } catch (const ide::Error&) {
    return nullptr;
  }
  const win::UniqueBitmap face_bitmap = win::BitmapFromBmp(face.bmp);
  if (!face_bitmap) return nullptr;
  BITMAP size{};
  ::GetObjectW(face_bitmap.get(), sizeof size, &size);
  const int width = size.bmWidth, height = size.bmHeight;
  std::vector<RGBQUAD> pixels = Pixels(face_bitmap.get(), width, height);
  if (const win::UniqueBitmap mask_bitmap = win::BitmapFromBmp(mask.bmp)) {
    const std::vector<RGBQUAD> transparent = Pixels(mask_bitmap.get(), width, height);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      const bool clear = transparent[i].rgbRed > 127;
      pixels[i] = clear ? RGBQUAD{0, 0, 0, 0} : RGBQUAD{pixels[i].rgbBlue, pixels[i].rgbGreen, pixels[i].rgbRed, 255};
    }
  } else {
    for (RGBQUAD& pixel : pixels) pixel.rgbReserved = 255;
  }
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  win::UniqueBitmap picture(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!picture || !bits) return nullptr;
  std::copy(pixels.begin(), pixels.end(), static_cast<RGBQUAD*>(bits));
  bitmaps.push_back(std::move(picture));
  return bitmaps.back().get();
}

// The menu of `controls`; each entry's command is its index in `entries`
// plus one.
HMENU BuildMenu(ide::ICommandBarControls& controls, Entries& entries, Bitmaps& bitmaps) {
  const HMENU menu = ::CreatePopupMenu();
  for (int i = 1; i <= controls.Count(); ++i) {
    const auto control = controls.Item(i);
    if (!control->Visible()) continue;
    if (control->BeginGroup() && ::GetMenuItemCount(menu) > 0)
      ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    const std::wstring caption = win::Utf8ToWide(control->Caption());
    const UINT state = control->Enabled() ? MF_ENABLED : MF_GRAYED;
    if (control->Type() == ide::ControlType::kPopup) {
      const HMENU sub = BuildMenu(*control->Controls(), entries, bitmaps);
      ::AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(sub), caption.c_str());
    } else {
      entries.push_back(control);
      ::AppendMenuW(menu, MF_STRING | state, entries.size(), caption.c_str());
      if (const HBITMAP picture = MenuPicture(*control, bitmaps)) {
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_BITMAP;
        item.hbmpItem = picture;
        ::SetMenuItemInfoW(menu, UINT(entries.size()), FALSE, &item);
      }
    }
  }
  return menu;
}

}  // namespace

void ShowPopupMenus(bool show) { g_show = show; }
bool ShowingPopupMenus() { return g_show; }

void ShowPopupMenu(ide::ICommandBar& bar, std::optional<int> x, std::optional<int> y) {
  Entries entries;
  Bitmaps bitmaps;  // outlive the menu
  const HMENU menu = BuildMenu(*bar.Controls(), entries, bitmaps);
  POINT at{};
  ::GetCursorPos(&at);
  // The menu needs a window of this thread to report to.
  const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                       ::GetModuleHandleW(nullptr), nullptr);
  ::SetForegroundWindow(owner);
  const UINT chosen = static_cast<UINT>(::TrackPopupMenu(
      menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON, x.value_or(at.x),
      y.value_or(at.y), 0, owner, nullptr));
  ::DestroyMenu(menu);
  ::DestroyWindow(owner);
  if (chosen >= 1 && chosen <= entries.size()) entries[chosen - 1]->Execute();
}

}  // namespace tavrin::test_host
