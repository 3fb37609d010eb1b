// Captures the back buffer or a window, and measures the drawing in it.
#include "windows/presentation/pixels.h"

#include <algorithm>
#include <ostream>

#include "platform/screen.h"
#include "presentation/state.h"

namespace korvel::test {

namespace {

constexpr std::size_t kPixelCount = std::size_t{kSceneWidth} * kSceneHeight;

std::vector<std::uint32_t> WithoutAlpha(std::vector<std::uint32_t> values) {
  for (std::uint32_t& value : values) value &= 0xFFFFFF;
  return values;
}

BITMAPINFO FormatOfScene() {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = kSceneWidth;
  format.bmiHeader.biHeight = -kSceneHeight;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  return format;
}

}  // namespace

void PrintTo(const Area& area, std::ostream* out) {
  *out << '(' << area.left << ',' << area.top << ")-(" << area.right << ',' << area.bottom << ')';
}

std::uint32_t Pixels::At(int x, int y) const {
  return values_[static_cast<std::size_t>(y) * kSceneWidth + static_cast<std::size_t>(x)];
}

Area Pixels::Extent(const Area& within, std::uint32_t background) const {
  Area extent{within.right, within.bottom, within.left, within.top};
  for (int y = within.top; y < within.bottom; ++y) {
    for (int x = within.left; x < within.right; ++x) {
      if (At(x, y) == background) continue;
      extent = {std::min(extent.left, x), std::min(extent.top, y), std::max(extent.right, x + 1),
                std::max(extent.bottom, y + 1)};
    }
  }
  return extent.right <= extent.left ? Area{} : extent;
}

int Pixels::Bands(const Area& within, std::uint32_t background) const {
  int bands = 0;
  bool isInBand = false;
  for (int y = within.top; y < within.bottom; ++y) {
    const bool hasInk = !IsAll({within.left, y, within.right, y + 1}, background);
    if (hasInk && !isInBand) ++bands;
    isInBand = hasInk;
  }
  return bands;
}

int Pixels::Count(const Area& within, std::uint32_t colour) const {
  int count = 0;
  for (int y = within.top; y < within.bottom; ++y) {
    for (int x = within.left; x < within.right; ++x) count += At(x, y) == colour ? 1 : 0;
  }
  return count;
}

bool Pixels::IsAll(const Area& within, std::uint32_t colour) const {
  return Count(within, colour) == within.Width() * within.Height();
}

Pixels BackBufferPixels() {
  std::vector<std::uint32_t> values(kPixelCount);
  const Gdiplus::Rect whole(0, 0, kSceneWidth, kSceneHeight);
  Gdiplus::BitmapData data{};
  data.Width = kSceneWidth;
  data.Height = kSceneHeight;
  data.Stride = kSceneWidth * 4;
  data.PixelFormat = PixelFormat32bppARGB;
  data.Scan0 = values.data();
  const UINT mode = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf;
  if (!Succeeded(gdip::GdipBitmapLockBits(State().backBuffer, &whole, mode, PixelFormat32bppARGB,
                                          &data))) {
    return Pixels({});
  }
  static_cast<void>(gdip::GdipBitmapUnlockBits(State().backBuffer, &data));
  return Pixels(WithoutAlpha(std::move(values)));
}

Pixels WindowPixels(HWND window) {
  const BITMAPINFO format = FormatOfScene();
  HDC source = GetDC(window);
  HDC target = CreateCompatibleDC(source);
  void* bits = nullptr;
  HBITMAP picture = CreateDIBSection(target, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(target, picture);
  BitBlt(target, 0, 0, kSceneWidth, kSceneHeight, source, 0, 0, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  std::vector<std::uint32_t> values(first, first + kPixelCount);
  SelectObject(target, old);
  DeleteObject(picture);
  DeleteDC(target);
  ReleaseDC(window, source);
  return Pixels(WithoutAlpha(std::move(values)));
}

}  // namespace korvel::test
