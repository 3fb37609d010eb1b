// Dynamic line art: its frame, when it has one, and its canvas inside of that.
#include <algorithm>

#include "engine/engine.h"
#include "platform/screen.h"
#include "presentation/canvas.h"
#include "presentation/drawings.h"
#include "presentation/line.h"
#include "presentation/state.h"

namespace korvel {

namespace {

// Black is transparent: the colour key takes it, drawn black no less than what was never drawn.
constexpr Gdiplus::ARGB kColourKey = 0;

[[nodiscard]] bool MakeColourKey(ImageAttributesOwner& attributes) {
  return Succeeded(gdip::GdipCreateImageAttributes(attributes.Slot())) &&
         Succeeded(gdip::GdipSetImageAttributesColorKeys(attributes, Gdiplus::ColorAdjustTypeBitmap,
                                                         TRUE, kColourKey, kColourKey));
}

// The part of the canvas that lies in the scene: a canvas may be far larger than that.
Box VisiblePart(const Canvas& canvas, std::int64_t x, std::int64_t y) {
  const auto within = [](std::int64_t place, std::int32_t size) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(place, 0, size));
  };
  return {within(-x, canvas.Width), within(-y, canvas.Height),
          within(kSceneWidth - x, canvas.Width), within(kSceneHeight - y, canvas.Height)};
}

void DrawCanvas(const Canvas& canvas, std::int64_t x, std::int64_t y) {
  const Box part = VisiblePart(canvas, x, y);
  ImageAttributesOwner attributes;
  if (State().graphics == nullptr || part.IsEmpty() || !MakeColourKey(attributes)) return;
  static_cast<void>(gdip::GdipDrawImageRectRectI(
      State().graphics, canvas.Picture, NearCoordinate(x + part.Left), NearCoordinate(y + part.Top),
      part.Width(), part.Height(), part.Left, part.Top, part.Width(), part.Height(),
      Gdiplus::UnitPixel, attributes, nullptr, nullptr));
}

}  // namespace

Status Draw(const DynamicLineArt& lineArt) {
  const LineAttributes line = LineAttributesOf(lineArt);
  std::int64_t inset = 0;
  if (lineArt.BorderedBoundingBox) {
    DrawBorderedRectangle(State().graphics, BoxOf(lineArt), line,
                          FillColourOf(lineArt, CurrentGroups()));
    inset = DrawnWidth(line);
  }
  if (lineArt.Canvas == nullptr) return Status::Done;
  DrawCanvas(*lineArt.Canvas, lineArt.Position.X + inset, lineArt.Position.Y + inset);
  return Status::Done;
}

}  // namespace korvel
