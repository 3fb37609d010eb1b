// The way of the finished picture to the window. The worker copies the back buffer into plain
// pixels under the screen lock, and both threads paint the window from those with GDI: so an expose
// never shows a half-drawn or locked scene, and the engine thread never touches GDI+.
#include "presentation/device_update.h"

#include <cstdint>
#include <optional>

#include "objects/memory.h"
#include "platform/clocks.h"
#include "platform/screen.h"
#include "platform/trace.h"
#include "presentation/presentation.h"
#include "presentation/state.h"

namespace korvel {

namespace {

// All of it is touched under the screen lock only.
struct Screen {
  HWND Window = nullptr;
  std::uint32_t* Pixels = nullptr;  // 0xXXRRGGBB, rows from the top; null when there are none
  bool HasPicture = false;
  std::optional<std::uint32_t> LastUpdateMs;  // absent: the next update is not skipped
};

CRITICAL_SECTION screenLock;
Screen screen;

class [[nodiscard]] ScreenLock {
 public:
  ScreenLock() { EnterCriticalSection(&screenLock); }
  ~ScreenLock() { LeaveCriticalSection(&screenLock); }
  ScreenLock(const ScreenLock&) = delete;
  ScreenLock& operator=(const ScreenLock&) = delete;
};

void CopyBackBuffer() {
  const Gdiplus::Rect whole(0, 0, kSceneWidth, kSceneHeight);
  Gdiplus::BitmapData data{};
  data.Width = kSceneWidth;
  data.Height = kSceneHeight;
  data.Stride = kSceneWidth * static_cast<INT>(sizeof(std::uint32_t));
  data.PixelFormat = PixelFormat32bppRGB;
  data.Scan0 = screen.Pixels;
  const UINT mode = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf;
  Gdiplus::GpBitmap* picture = State().backBuffer;
  if (!Succeeded(gdip::GdipBitmapLockBits(picture, &whole, mode, PixelFormat32bppRGB, &data))) {
    return;
  }
  screen.HasPicture = Succeeded(gdip::GdipBitmapUnlockBits(picture, &data));
}

void PaintPicture(HDC deviceContext) {
  if (!screen.HasPicture) return;
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = kSceneWidth;
  format.bmiHeader.biHeight = -kSceneHeight;  // negative: rows from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  SetDIBitsToDevice(deviceContext, 0, 0, kSceneWidth, kSceneHeight, 0, 0, 0, kSceneHeight,
                    screen.Pixels, &format, DIB_RGB_COLORS);
}

void ShowPicture() {
  HDC deviceContext = GetDC(screen.Window);
  if (deviceContext == nullptr) return;
  PaintPicture(deviceContext);
  ReleaseDC(screen.Window, deviceContext);
}

// Copies and shows the picture under the lock. The window when it was shown, else null.
HWND UpdateScreen() {
  const ScreenLock lock;
  Trace(">>>>>>>>DeviceUpdate !!\n");
  if (screen.Pixels == nullptr || State().backBuffer == nullptr) return nullptr;
  // The clock never runs backwards.
  const std::uint32_t now = MillisecondsSinceProcessStart();
  if (screen.LastUpdateMs == now) return nullptr;
  screen.LastUpdateMs = now;
  CopyBackBuffer();
  if (screen.Window != nullptr) ShowPicture();
  return screen.Window;
}

}  // namespace

void OpenScreen() { InitializeCriticalSection(&screenLock); }

void CloseScreen() { DeleteCriticalSection(&screenLock); }

void OpenPicture(void* window) {
  const ScreenLock lock;
  screen = {};
  screen.Window = static_cast<HWND>(window);
  screen.Pixels = static_cast<std::uint32_t*>(
      AllocateZeroed(sizeof(std::uint32_t) * kSceneWidth * kSceneHeight));
}

void ClosePicture() {
  const ScreenLock lock;
  ReleaseMemory(screen.Pixels);
  screen = {};
}

void PaintWindow(void* deviceContext) {
  const ScreenLock lock;
  PaintPicture(static_cast<HDC>(deviceContext));
}

Status DeviceUpdate() {
  // Outside the lock: the engine thread paints what was uncovered meanwhile, and takes it for that.
  HWND window = UpdateScreen();
  if (window == nullptr) return Status::Done;
  Trace(">>>>>>>>DeviceUpdate END!!\n");
  UpdateWindow(window);
  return Status::Done;
}

void DiscardUpdateStamp() {
  const ScreenLock lock;
  screen.LastUpdateMs.reset();
}

}  // namespace korvel
