// Stands in for the presentation doorway in native tests: nothing is drawn, requests are counted.
#include "presentation.h"

namespace korvel {

using test::ThePresentation;

void ClearSurface() noexcept { ++ThePresentation().clears; }

Status Redraw() noexcept {
  ++ThePresentation().redraws;
  return ThePresentation().onRedraw ? ThePresentation().onRedraw() : Status::Done;
}

Status DeviceUpdate() noexcept {
  ++ThePresentation().updates;
  return Status::Done;
}

void DestroyCanvas(Canvas* canvas) noexcept { static_cast<void>(canvas); }

namespace test {

FakePresentation& ThePresentation() {
  static FakePresentation presentation;
  return presentation;
}

}  // namespace test
}  // namespace korvel
