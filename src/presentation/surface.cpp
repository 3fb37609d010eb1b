// The start and end of GDI+, and the back buffer. Showing it is left to device_update.cpp.
#include <utility>

#include "objects/ownership.h"
#include "platform/screen.h"
#include "presentation/device_update.h"
#include "presentation/i_frame.h"
#include "presentation/presentation.h"
#include "presentation/state.h"

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
  if (!State().isGdiPlusStarted ||
      !Succeeded(gdip::GdipCreateBitmapFromScan0(kSceneWidth, kSceneHeight, 0, PixelFormat32bppARGB,
                                                 nullptr, picture.Slot())) ||
      !Succeeded(gdip::GdipGetImageGraphicsContext(picture, graphics.Slot()))) {
    return;
  }
  State().backBuffer = std::move(picture);
  State().graphics = std::move(graphics);
  ClearSurface();
}

}  // namespace

PresentationState& State() { return state.value; }

void OpenPresentation(void* window) {
  FindTemporaryFolder();
  StartGdiPlus();
  OpenSurface();
  OpenPicture(window);
}

void ReleasePictures() {
  ClosePicture();
  ReleaseDecoder();
  PresentationState released;  // all but GDI+ itself
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
  // A failure leaves the old picture, and nothing better can be done.
  static_cast<void>(gdip::GdipGraphicsClear(State().graphics, kOpaqueBlack));
}

}  // namespace korvel
