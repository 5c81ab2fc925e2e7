#include "win/bitmap_picture.h"

#include <cstring>
#include <vector>

namespace tavrin::win {
namespace {

struct ScreenDc {
  HDC dc = ::GetDC(nullptr);
  ~ScreenDc() {
    if (dc) ::ReleaseDC(nullptr, dc);
  }
};

// The clipboard is open for this object's life, owned by a hidden window of
// its own: opened without a window, the clipboard takes no data.
struct OpenClipboard {
  UniqueHwnd owner{::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                     nullptr, nullptr)};
  bool open = owner && ::OpenClipboard(owner.get()) != FALSE;
  ~OpenClipboard() {
    if (open) ::CloseClipboard();
  }
};

}  // namespace

UniqueBitmap BitmapFromBmp(std::string_view bmp) {
  if (bmp.size() < sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)) return {};
  BITMAPFILEHEADER file;
  std::memcpy(&file, bmp.data(), sizeof file);
  if (file.bfType != 0x4D42 || file.bfOffBits >= bmp.size()) return {};
  // The info header and colour table follow the file header; copied so the
  // structures are aligned.
  std::vector<unsigned char> info(bmp.begin() + sizeof file, bmp.begin() + file.bfOffBits);
  if (info.size() < sizeof(BITMAPINFOHEADER)) return {};
  const auto* header = reinterpret_cast<const BITMAPINFO*>(info.data());
  ScreenDc screen;
  return UniqueBitmap(::CreateDIBitmap(screen.dc, &header->bmiHeader, CBM_INIT,
                                       bmp.data() + file.bfOffBits, header, DIB_RGB_COLORS));
}

std::string BmpFromBitmap(HBITMAP bitmap) {
  BITMAP shape{};
  if (!bitmap || !::GetObjectW(bitmap, sizeof shape, &shape)) return {};
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = shape.bmWidth;
  header.biHeight = shape.bmHeight;
  header.biPlanes = 1;
  header.biBitCount = 24;
  header.biCompression = BI_RGB;
  const DWORD row = ((static_cast<DWORD>(shape.bmWidth) * 3 + 3) / 4) * 4;
  header.biSizeImage = row * static_cast<DWORD>(shape.bmHeight);
  std::string pixels(header.biSizeImage, '\0');
  ScreenDc screen;
  if (!::GetDIBits(screen.dc, bitmap, 0, static_cast<UINT>(shape.bmHeight), pixels.data(),
                   reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS)) {
    return {};
  }
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof header;
  file.bfSize = file.bfOffBits + header.biSizeImage;
  std::string bmp(reinterpret_cast<const char*>(&file), sizeof file);
  bmp.append(reinterpret_cast<const char*>(&header), sizeof header);
  return bmp + pixels;
}

ComPtr<IPictureDisp> PictureFromBmp(std::string_view bmp) {
  UniqueBitmap bitmap = BitmapFromBmp(bmp);
  if (!bitmap) return {};
  PICTDESC description{};
  description.cbSizeofstruct = sizeof description;
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = bitmap.get();
  ComPtr<IPictureDisp> picture;
  // The picture owns the bitmap from here on (fOwn).
  if (FAILED(::OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                        picture.put_void()))) {
    return {};
  }
  bitmap.release();
  return picture;
}

std::string BmpFromPicture(IPictureDisp* picture) {
  if (!picture) return {};
  ComPtr<IPicture> pict;
  if (FAILED(picture->QueryInterface(IID_IPicture, pict.put_void()))) return {};
  SHORT type = PICTYPE_NONE;
  OLE_HANDLE handle = 0;
  if (FAILED(pict->get_Type(&type)) || type != PICTYPE_BITMAP ||
      FAILED(pict->get_Handle(&handle))) {
    return {};
  }
  return BmpFromBitmap(reinterpret_cast<HBITMAP>(static_cast<UINT_PTR>(handle)));
}

bool SetClipboardBitmap(std::string_view bmp) {
  UniqueBitmap bitmap = BitmapFromBmp(bmp);
  if (!bitmap) return false;
  OpenClipboard clipboard;
  if (!clipboard.open || !::EmptyClipboard()) return false;
  // The clipboard owns the bitmap once it took it.
  if (!::SetClipboardData(CF_BITMAP, bitmap.get())) return false;
  bitmap.release();
  return true;
}

std::string ClipboardBitmap() {
  OpenClipboard clipboard;
  if (!clipboard.open) return {};
  return BmpFromBitmap(static_cast<HBITMAP>(::GetClipboardData(CF_BITMAP)));
}

}  // namespace tavrin::win
