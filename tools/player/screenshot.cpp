// Reads the pixels of the window's device context, to which the engine copies its picture.
#include "player/screenshot.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <objidl.h>
// Must follow objidl.h, which declares interfaces that GDI+ uses.
#include <gdiplus.h>

namespace player {
namespace {

// The class identifier of GDI+'s PNG encoder, the same on every system.
constexpr CLSID kPngEncoder = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

constexpr int kWidth = kPictureWidth;
constexpr int kHeight = kPictureHeight;

BITMAPINFO PictureFormat() {
  BITMAPINFO format = {};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = kWidth;
  format.bmiHeader.biHeight = -kHeight;  // rows from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  return format;
}

}  // namespace

// Reads the pixels from a bitmap of the picture's size, into which the client area is copied first.
bool Capture(HWND window, Picture& picture) {
  RECT client = {};
  if (GetClientRect(window, &client) == 0 || IsRectEmpty(&client) != 0) return false;
  Picture screenshot;
  screenshot.pixels.resize(std::size_t{kPictureWidth} * kPictureHeight);
  BITMAPINFO format = PictureFormat();
  const HDC source = GetDC(window);
  const HDC copy = CreateCompatibleDC(source);
  const HBITMAP bitmap = CreateCompatibleBitmap(source, kWidth, kHeight);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  PatBlt(copy, 0, 0, kWidth, kHeight, BLACKNESS);
  const bool isCopied = BitBlt(copy, 0, 0, std::min<int>(client.right, kWidth),
                               std::min<int>(client.bottom, kHeight), source, 0, 0, SRCCOPY) != 0;
  SelectObject(copy, before);
  const bool isRead = GetDIBits(copy, bitmap, 0, kPictureHeight, screenshot.pixels.data(), &format,
                                DIB_RGB_COLORS) == kHeight;
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(window, source);
  if (isCopied && isRead) picture = std::move(screenshot);
  return isCopied && isRead;
}

PictureWriter::PictureWriter() {
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&token_, &input, nullptr);
}

PictureWriter::~PictureWriter() { Gdiplus::GdiplusShutdown(token_); }

bool PictureWriter::Write(Picture& picture, const std::filesystem::path& file) const {
  Gdiplus::Bitmap bitmap(kWidth, kHeight, kWidth * 4, PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(picture.pixels.data()));
  return bitmap.GetLastStatus() == Gdiplus::Ok &&
         bitmap.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

}  // namespace player
