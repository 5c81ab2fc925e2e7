#include "tests/win/host/screenshot.h"

#include <vector>

#include "win/com_ptr.h"

#include <wincodec.h>

namespace tavrin::test_host {
namespace {

std::wstring ScreenshotFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  path = path.substr(0, path.find_last_of(L"\\/") + 1) + L"screenshots";
  ::CreateDirectoryW(path.c_str(), nullptr);
  return path + L"\\";
}

// The window's pixels, top row first, 24-bit BGR rows padded to 4 bytes.
std::vector<BYTE> Capture(HWND window, int width, int height, const RECT& area) {
  const HDC screen = ::GetDC(nullptr);
  const HDC memory = ::CreateCompatibleDC(screen);
  const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ old = ::SelectObject(memory, bitmap);
  // What the screen shows; PrintWindow draws no child controls under Wine.
  if (!::BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY))
    ::PrintWindow(window, memory, 0);
  ::SelectObject(memory, old);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biCompression = BI_RGB;
  const int stride = (width * 3 + 3) & ~3;
  std::vector<BYTE> pixels(static_cast<std::size_t>(stride) * height);
  ::GetDIBits(memory, bitmap, 0, height, pixels.data(), &info, DIB_RGB_COLORS);
  ::DeleteObject(bitmap);
  ::DeleteDC(memory);
  ::ReleaseDC(nullptr, screen);
  return pixels;
}

}  // namespace

void SaveWindowPng(HWND window, const std::wstring& name) {
  RECT area{};
  if (!::GetWindowRect(window, &area)) return;
  ::RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  // Let every control paint before the screen is read.
  for (int round = 0; round < 5; ++round) {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    ::GdiFlush();
    ::Sleep(40);
  }
  const int width = area.right - area.left, height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return;
  std::vector<BYTE> pixels = Capture(window, width, height, area);
  const UINT stride = static_cast<UINT>((width * 3 + 3) & ~3);

  win::ComPtr<IWICImagingFactory> factory;
  win::ComPtr<IWICStream> stream;
  win::ComPtr<IWICBitmapEncoder> encoder;
  win::ComPtr<IWICBitmapFrameEncode> frame;
  const std::wstring path = ScreenshotFolder() + name + L".png";
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  if (FAILED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, factory.put_void())) ||
      FAILED(factory->CreateStream(stream.put())) ||
      FAILED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) ||
      FAILED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put())) ||
      FAILED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache)) ||
      FAILED(encoder->CreateNewFrame(frame.put(), nullptr)) || FAILED(frame->Initialize(nullptr)) ||
      FAILED(frame->SetSize(static_cast<UINT>(width), static_cast<UINT>(height))) ||
      FAILED(frame->SetPixelFormat(&format)) ||
      FAILED(frame->WritePixels(static_cast<UINT>(height), stride,
                                static_cast<UINT>(pixels.size()), pixels.data())) ||
      FAILED(frame->Commit())) {
    return;
  }
  encoder->Commit();
}

}  // namespace tavrin::test_host
