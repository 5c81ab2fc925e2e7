// Saves a window's inside as it looks on screen as a PNG file (copied from
// the screen into a bitmap, encoded by the Windows Imaging Component), for
// people to look at the dialogs the tests show.
#pragma once

#include "win/win_support.h"

#include <objbase.h>
#include <wincodec.h>

#include <string>
#include <vector>

#include "win/com_ptr.h"

namespace tavrin::test_support {

// The screenshots' folder: "screenshots" beside the build's binaries
// (build/win64/screenshots), `up` folders above the test program's own.
inline std::wstring ScreenshotFolder(int up) {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  path = path.substr(0, path.find_last_of(L"\\/"));
  for (int i = 0; i < up; ++i) path = path.substr(0, path.find_last_of(L"\\/"));
  path += L"\\screenshots";
  ::CreateDirectoryW(path.c_str(), nullptr);
  return path + L"\\";
}

// True when the file was written.
inline bool SaveScreenshot(HWND window, const std::wstring& path) {
  // The client area: under Xvfb no window manager draws the frame.
  RECT rect{};
  POINT origin{};
  if (!::GetClientRect(window, &rect) || !::ClientToScreen(window, &origin)) return false;
  const int width = rect.right;
  const int height = rect.bottom;
  ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  const HDC screen = ::GetDC(nullptr);
  const HDC memory = ::CreateCompatibleDC(screen);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // top-down rows
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ old = ::SelectObject(memory, bitmap);
  // Copied from the screen: Wine's PrintWindow leaves the controls out.
  ::BitBlt(memory, 0, 0, width, height, screen, origin.x, origin.y, SRCCOPY);
  ::GdiFlush();
  std::vector<BYTE> pixels(static_cast<const BYTE*>(bits),
                           static_cast<const BYTE*>(bits) + 4 * width * height);
  for (std::size_t i = 3; i < pixels.size(); i += 4) pixels[i] = 255;  // opaque
  ::SelectObject(memory, old);
  ::DeleteObject(bitmap);
  ::DeleteDC(memory);
  ::ReleaseDC(nullptr, screen);

  constexpr GUID kImagingFactory = {
      0xcacaf262, 0x9370, 0x4615, {0xa1, 0x3b, 0x9f, 0x55, 0x39, 0xda, 0x4c, 0x0a}};
  constexpr GUID kPngFormat = {
      0x1b7cfaf4, 0x713f, 0x473c, {0xbb, 0xcd, 0x61, 0x37, 0x42, 0x5f, 0xae, 0xaf}};
  GUID format = {0x6fddc324, 0x4e03, 0x4bfe, {0xb1, 0x85, 0x3d, 0x77, 0x76, 0x8d, 0xc9, 0x0f}};
  win::ComPtr<IWICImagingFactory> factory;
  win::ComPtr<IWICStream> stream;
  win::ComPtr<IWICBitmapEncoder> encoder;
  win::ComPtr<IWICBitmapFrameEncode> frame;
  win::ComPtr<IPropertyBag2> options;
  return SUCCEEDED(::CoCreateInstance(kImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      __uuidof(IWICImagingFactory), factory.put_void())) &&
         SUCCEEDED(factory->CreateStream(stream.put())) &&
         SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
         SUCCEEDED(factory->CreateEncoder(kPngFormat, nullptr, encoder.put())) &&
         SUCCEEDED(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache)) &&
         SUCCEEDED(encoder->CreateNewFrame(frame.put(), options.put())) &&
         SUCCEEDED(frame->Initialize(options.get())) && SUCCEEDED(frame->SetSize(width, height)) &&
         SUCCEEDED(frame->SetPixelFormat(&format)) &&
         SUCCEEDED(frame->WritePixels(height, 4 * width, static_cast<UINT>(pixels.size()),
                                      pixels.data())) &&
         SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

}  // namespace tavrin::test_support
