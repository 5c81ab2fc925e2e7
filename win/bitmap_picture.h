// Button faces between the forms the add-in and the IDE use: the bytes of a
// .bmp file (how the core carries a picture), a GDI bitmap, an OLE picture
// (a command-bar button's Picture and Mask) and the clipboard (PasteFace).
#pragma once

#include <string>
#include <string_view>

#include "win/com_ptr.h"
#include "win/win_support.h"

#include <ocidl.h>
#include <olectl.h>

namespace tavrin::win {

struct BitmapTraits {
  using Handle = HBITMAP;
  static constexpr HBITMAP kEmpty = nullptr;
  static void Close(HBITMAP bitmap) { ::DeleteObject(bitmap); }
};
using UniqueBitmap = UniqueHandle<BitmapTraits>;

// Empty when the bytes are no bitmap file Windows can read.
UniqueBitmap BitmapFromBmp(std::string_view bmp);
// A 24-bit bitmap file of the bitmap's pixels; empty on failure.
std::string BmpFromBitmap(HBITMAP bitmap);

// An OLE picture owning a copy of the bitmap; empty on failure.
ComPtr<IPictureDisp> PictureFromBmp(std::string_view bmp);
// The bitmap file of an OLE bitmap picture; empty for other pictures.
std::string BmpFromPicture(IPictureDisp* picture);

// Puts the bitmap on the clipboard (for PasteFace); false when the clipboard
// is busy or the bytes are no bitmap.
bool SetClipboardBitmap(std::string_view bmp);
// The clipboard's bitmap as a bitmap file; empty when it holds none.
std::string ClipboardBitmap();

}  // namespace tavrin::win
