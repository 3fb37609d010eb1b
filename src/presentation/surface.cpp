// The start and end of GDI+ and the back buffer. What is drawn into it is left to the drawing
// files, showing it to device_update.cpp.
#include "presentation/surface.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "objects/owned.h"
#include "presentation/device_update.h"
#include "presentation/image_cache.h"
#include "presentation/presentation.h"
#include "presentation/temporary_stream.h"

namespace korvel {

namespace {

constexpr Gdiplus::ARGB kOpaqueBlack = 0xFF000000;

// The members go in the opposite order: the graphics before the picture it draws on.
struct Surface {
  BitmapOwner Picture;
  GraphicsOwner Graphics;
};

// Plain pointers, given up by ClosePresentation only: when the process ends while the engine runs,
// no destructor may call GDI+.
Surface* surface = nullptr;
ULONG_PTR gdiPlusToken = 0;
bool isGdiPlusStarted = false;

void StartGdiPlus() noexcept {
  const Gdiplus::GdiplusStartupInput input(nullptr, FALSE, FALSE);
  isGdiPlusStarted = Succeeded(Gdiplus::GdiplusStartup(&gdiPlusToken, &input, nullptr));
}

void OpenSurface() noexcept {
  if (!isGdiPlusStarted) return;
  Owned<Surface> made = Owned<Surface>::New();
  if (!made) return;
  if (!Succeeded(gdip::GdipCreateBitmapFromScan0(kSceneWidth, kSceneHeight, 0, PixelFormat32bppARGB,
                                                 nullptr, made->Picture.Slot())) ||
      !Succeeded(gdip::GdipGetImageGraphicsContext(made->Picture, made->Graphics.Slot()))) {
    return;
  }
  surface = made.Release();
  ClearSurface();
}

}  // namespace

Gdiplus::GpBitmap* BackBuffer() noexcept {
  return surface == nullptr ? nullptr : surface->Picture.Get();
}

Gdiplus::GpGraphics* SurfaceGraphics() noexcept {
  return surface == nullptr ? nullptr : surface->Graphics.Get();
}

void OpenPresentation(void* window) noexcept {
  FindTemporaryFolder();
  StartGdiPlus();
  OpenSurface();
  OpenPicture(window);
}

void ClosePresentation() noexcept {
  ClosePicture();
  ReleaseImageMemory();
  Owned<Surface>(surface).Reset();
  surface = nullptr;
  if (isGdiPlusStarted) Gdiplus::GdiplusShutdown(gdiPlusToken);
  isGdiPlusStarted = false;
}

// Every painting begins with this; GDI+'s own way to clear a picture can take most of its time.
void ClearSurface() noexcept {
  if (surface == nullptr) return;
  const Gdiplus::Rect whole(0, 0, kSceneWidth, kSceneHeight);
  Gdiplus::BitmapData data{};
  // A failure leaves the old picture, which is as good as any other answer.
  if (!Succeeded(gdip::GdipBitmapLockBits(surface->Picture, &whole, Gdiplus::ImageLockModeWrite,
                                          PixelFormat32bppARGB, &data))) {
    return;
  }
  for (INT row = 0; row < kSceneHeight; ++row) {
    auto* pixels = reinterpret_cast<Gdiplus::ARGB*>(static_cast<std::uint8_t*>(data.Scan0) +
                                                    std::ptrdiff_t{row} * data.Stride);
    std::fill_n(pixels, kSceneWidth, kOpaqueBlack);
  }
  static_cast<void>(gdip::GdipBitmapUnlockBits(surface->Picture, &data));
}

}  // namespace korvel
