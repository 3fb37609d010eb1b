// The start and end of GDI+, the back buffer with the fixed screens, and the copy of the back
// buffer in the window. The worker copies the back buffer to plain pixels under the screen lock,
// and both threads paint the window from those with GDI. So an uncovered window never shows a
// half-drawn picture, and the engine thread never uses GDI+.
#include <cstdint>
#include <optional>
#include <utility>

#include "objects/memory.h"
#include "objects/ownership.h"
#include "platform/clocks.h"
#include "platform/running.h"
#include "platform/screen.h"
#include "presentation/i_frame.h"
#include "presentation/presentation.h"
#include "presentation/state.h"
#include "presentation/text.h"

namespace korvel {
namespace {

constexpr Gdiplus::ARGB kOpaqueBlack = 0xFF000000;

NeverDestroyed<PresentationState> state;

void StartGdiPlus() {
  const Gdiplus::GdiplusStartupInput input(nullptr, FALSE, FALSE);
  State().isGdiPlusStarted =
      Succeeded(Gdiplus::GdiplusStartup(&State().gdiPlusToken, &input, nullptr));
}

void OpenSurface() {
  BitmapOwner picture;
  GraphicsOwner graphics;
  if (!State().isGdiPlusStarted || !MakeBitmap(kSceneWidth, kSceneHeight, picture) ||
      !Succeeded(gdip::GdipGetImageGraphicsContext(picture, graphics.Slot()))) {
    return;
  }
  State().backBuffer = std::move(picture);
  State().graphics = std::move(graphics);
  ClearSurface();
}

// ---- The copy of the back buffer ----

// Used only under the screen lock.
struct Screen {
  HWND window = nullptr;
  std::uint32_t* pixels = nullptr;  // 0xXXRRGGBB, rows from the top; null if there is none
  bool hasPicture = false;
  std::optional<std::uint32_t> lastUpdateMs;  // absent: the next update is not skipped
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
  data.Scan0 = screen.pixels;
  const UINT mode = Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf;
  Gdiplus::GpBitmap* picture = State().backBuffer;
  if (!Succeeded(gdip::GdipBitmapLockBits(picture, &whole, mode, PixelFormat32bppRGB, &data))) {
    return;
  }
  screen.hasPicture = Succeeded(gdip::GdipBitmapUnlockBits(picture, &data));
}

void PaintPicture(HDC deviceContext) {
  if (!screen.hasPicture) return;
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = kSceneWidth;
  format.bmiHeader.biHeight = -kSceneHeight;  // negative: rows from the top
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  SetDIBitsToDevice(deviceContext, 0, 0, kSceneWidth, kSceneHeight, 0, 0, 0, kSceneHeight,
                    screen.pixels, &format, DIB_RGB_COLORS);
}

void OpenPicture(HWND window) {
  const ScreenLock lock;
  screen = {};
  screen.window = window;
  screen.pixels = static_cast<std::uint32_t*>(
      AllocateZeroed(sizeof(std::uint32_t) * kSceneWidth * kSceneHeight));
}

void ClosePicture() {
  const ScreenLock lock;
  ReleaseMemory(screen.pixels);
  screen = {};
}

void ShowPicture() {
  HDC deviceContext = GetDC(screen.window);
  if (deviceContext == nullptr) return;
  PaintPicture(deviceContext);
  ReleaseDC(screen.window, deviceContext);
}

// Copies and shows the picture under the lock. Returns the window if it was shown, else null.
HWND UpdateScreen() {
  const ScreenLock lock;
  Trace(">>>>>>>>DeviceUpdate !!\n");
  if (screen.pixels == nullptr || State().backBuffer == nullptr) return nullptr;
  // The clock never runs backwards, so a comparison for equality is enough.
  const std::uint32_t now = MillisecondsSinceProcessStart();
  if (screen.lastUpdateMs == now) return nullptr;
  screen.lastUpdateMs = now;
  CopyBackBuffer();
  if (screen.window != nullptr) ShowPicture();
  return screen.window;
}

}  // namespace

PresentationState& State() { return state.value; }

void OpenPresentation(void* window) {
  FindTemporaryFolder();
  StartGdiPlus();
  OpenSurface();
  OpenPicture(static_cast<HWND>(window));
}

void ReleasePictures() {
  ClosePicture();
  ReleaseDecoder();
  PresentationState released;  // everything except GDI+ itself
  released.isGdiPlusStarted = State().isGdiPlusStarted;
  released.gdiPlusToken = State().gdiPlusToken;
  State() = std::move(released);
}

void ClosePresentation() {
  if (State().isGdiPlusStarted) Gdiplus::GdiplusShutdown(State().gdiPlusToken);
  State().isGdiPlusStarted = false;
}

void ClearSurface() {
  if (State().graphics == nullptr) return;
  // If this fails, the old picture stays.
  static_cast<void>(gdip::GdipGraphicsClear(State().graphics, kOpaqueBlack));
}

void DrawScreenText(std::string_view text) {
  constexpr Position kTopLeft{50, 50};
  constexpr BoxSize kSize{kSceneWidth, kSceneHeight};
  constexpr std::int32_t kFontSize = 50;
  constexpr DrawnColour kGreen = 0x00FF0000;
  DrawTextIn({.content = text,
              .position = kTopLeft,
              .boxSize = kSize,
              .font = {.size = kFontSize},
              .ink = kGreen});
}

void OpenScreen() { InitializeCriticalSection(&screenLock); }

void CloseScreen() { DeleteCriticalSection(&screenLock); }

void PaintWindow(void* deviceContext) {
  const ScreenLock lock;
  PaintPicture(static_cast<HDC>(deviceContext));
}

void DeviceUpdate() {
  HWND window = UpdateScreen();
  if (window == nullptr) return;
  Trace(">>>>>>>>DeviceUpdate END!!\n");
  // Outside the lock, which the engine thread needs to paint parts that were uncovered meanwhile.
  UpdateWindow(window);
}

void DiscardUpdateStamp() {
  const ScreenLock lock;
  screen.lastUpdateMs.reset();
}

}  // namespace korvel
