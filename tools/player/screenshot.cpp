// The pixels come from the window's own device context, into which the engine copies its picture.
#include "player/screenshot.h"

#include <cstdint>
#include <utility>

#include <objidl.h>
// GDI+ after the interfaces it builds on.
#include <gdiplus.h>

namespace player {
namespace {

// The encoder that every GDI+ has for PNG.
constexpr CLSID kPngEncoder = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

BITMAPINFO FormatOf(const Picture& picture) {
  BITMAPINFO format = {};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = picture.width;
  format.bmiHeader.biHeight = -picture.height;  // rows from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  return format;
}

}  // namespace

// Copies the client pixels through a bitmap of the same size.
bool Capture(HWND window, Picture& picture) {
  RECT client = {};
  if (GetClientRect(window, &client) == 0 || IsRectEmpty(&client) != 0) return false;
  Picture taken{client.right, client.bottom, {}};
  taken.pixels.resize(static_cast<std::size_t>(taken.width) *
                      static_cast<std::size_t>(taken.height));
  BITMAPINFO format = FormatOf(taken);
  const HDC source = GetDC(window);
  const HDC copy = CreateCompatibleDC(source);
  const HBITMAP bitmap = CreateCompatibleBitmap(source, taken.width, taken.height);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  const bool isCopied = BitBlt(copy, 0, 0, taken.width, taken.height, source, 0, 0, SRCCOPY) != 0;
  SelectObject(copy, before);
  const bool isRead = GetDIBits(copy, bitmap, 0, static_cast<UINT>(taken.height),
                                taken.pixels.data(), &format, DIB_RGB_COLORS) == taken.height;
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(window, source);
  if (isCopied && isRead) picture = std::move(taken);
  return isCopied && isRead;
}

PictureWriter::PictureWriter() {
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&token_, &input, nullptr);
}

PictureWriter::~PictureWriter() { Gdiplus::GdiplusShutdown(token_); }

bool PictureWriter::Write(Picture& picture, const std::filesystem::path& file) const {
  Gdiplus::Bitmap bitmap(picture.width, picture.height, picture.width * 4, PixelFormat32bppRGB,
                         reinterpret_cast<BYTE*>(picture.pixels.data()));
  return bitmap.GetLastStatus() == Gdiplus::Ok &&
         bitmap.Save(file.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
}

}  // namespace player
