// Rectangles, dynamic line art, and the pens and bordered rectangles that they share with sliders
// and entry fields. Drawing on canvases is in canvas.cpp.
#include "presentation/line_art.h"

#include <algorithm>

#include "appearance/colours.h"
#include "engine/engine.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/state.h"

namespace korvel {
namespace {

Gdiplus::GpDashStyle DashStyleOf(const LineAttributes& line, double length) {
  if (HasTooManyDashes(line, length)) return Gdiplus::DashStyleSolid;
  switch (DashesOf(line)) {
  case Dashes::Long: return Gdiplus::DashStyleDash;
  case Dashes::Short: return Gdiplus::DashStyleDot;
  case Dashes::None: break;
  }
  return Gdiplus::DashStyleSolid;
}

// Moves an edge that is outside the range towards it by whole periods, so that the dashes of the
// other edges do not move.
std::int32_t MovedTowards(std::int32_t edge, std::int32_t least, std::int32_t most,
                          std::int32_t period) {
  if (edge < least) return edge + (least - edge) / period * period;
  if (edge > most) return edge - (edge - most) / period * period;
  return edge;
}

// A box whose dashed outline looks the same in the drawn area, and is not much longer than it.
Box OutlineBox(Gdiplus::GpGraphics* graphics, const Box& box, const LineAttributes& line) {
  const std::int32_t period = DashPeriod(line);
  Gdiplus::Rect drawn;
  if (period == 0 || !Succeeded(gdip::GdipGetVisibleClipBoundsI(graphics, &drawn))) return box;
  const std::int32_t width = DrawnWidth(line);
  const std::int32_t right = drawn.X + drawn.Width + width;
  const std::int32_t bottom = drawn.Y + drawn.Height + width;
  return {MovedTowards(box.left, drawn.X - width, right, period),
          MovedTowards(box.top, drawn.Y - width, bottom, period),
          MovedTowards(box.right, drawn.X - width, right, period),
          MovedTowards(box.bottom, drawn.Y - width, bottom, period)};
}

// The middle of the pen is half a width inside the box, so that its outer side is the box's edge. A
// line of one pixel is not moved: under Wine GDI+ may round a position between two pixels to
// outside the box.
void DrawOutline(Gdiplus::GpGraphics* graphics, const Box& whole, const LineAttributes& line) {
  const Box box = OutlineBox(graphics, whole, line);
  PenOwner pen;
  if (box.IsEmpty() || !MakePen(line, 2.0 * (box.Width() + box.Height()), pen)) return;
  const auto width = static_cast<float>(DrawnWidth(line));
  const float inset = width > 1 ? width / 2 : 0;
  static_cast<void>(gdip::GdipDrawRectangle(
      graphics, pen, static_cast<float>(box.left) + inset, static_cast<float>(box.top) + inset,
      static_cast<float>(box.Width()) - width, static_cast<float>(box.Height()) - width));
}

// Black is the colour key, so drawn black is as invisible as pixels that were never drawn.
constexpr Gdiplus::ARGB kColourKey = 0;

[[nodiscard]] bool MakeColourKey(ImageAttributesOwner& attributes) {
  return Succeeded(gdip::GdipCreateImageAttributes(attributes.Slot())) &&
         Succeeded(gdip::GdipSetImageAttributesColorKeys(attributes, Gdiplus::ColorAdjustTypeBitmap,
                                                         TRUE, kColourKey, kColourKey));
}

// The part of the canvas that is in the scene; a canvas may be far larger.
Box VisiblePart(const Canvas& canvas, std::int64_t x, std::int64_t y) {
  const auto within = [](std::int64_t coordinate, std::int32_t size) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(coordinate, 0, size));
  };
  return {within(-x, canvas.width), within(-y, canvas.height),
          within(kSceneWidth - x, canvas.width), within(kSceneHeight - y, canvas.height)};
}

void DrawCanvas(const Canvas& canvas, std::int64_t x, std::int64_t y) {
  const Box part = VisiblePart(canvas, x, y);
  ImageAttributesOwner attributes;
  if (State().graphics == nullptr || part.IsEmpty() || !MakeColourKey(attributes)) return;
  static_cast<void>(gdip::GdipDrawImageRectRectI(
      State().graphics, canvas.picture, NearCoordinate(x + part.left), NearCoordinate(y + part.top),
      part.Width(), part.Height(), part.left, part.top, part.Width(), part.Height(),
      Gdiplus::UnitPixel, attributes, nullptr, nullptr));
}

}  // namespace

bool MakePen(const LineAttributes& line, double length, PenOwner& pen) {
  return DrawnWidth(line) > 0 &&
         Succeeded(gdip::GdipCreatePen1(ToGdiPlus(line.ink), static_cast<float>(DrawnWidth(line)),
                                        Gdiplus::UnitWorld, pen.Slot())) &&
         Succeeded(gdip::GdipSetPenDashStyle(pen, DashStyleOf(line, length)));
}

void FillBox(Gdiplus::GpGraphics* graphics, const Box& box, DrawnColour colour) {
  SolidBrushOwner brush;
  if (box.IsEmpty() || !MakeBrush(colour, brush)) return;
  static_cast<void>(
      gdip::GdipFillRectangleI(graphics, brush, box.left, box.top, box.Width(), box.Height()));
}

void DrawBorderedRectangle(Gdiplus::GpGraphics* graphics, const Box& box,
                           const LineAttributes& line, DrawnColour fill) {
  if (graphics == nullptr || box.IsEmpty()) return;
  const std::int32_t width = DrawnWidth(line);
  if (box.Width() <= width || box.Height() <= width) {
    FillBox(graphics, box, line.ink);
    return;
  }
  DrawOutline(graphics, box, line);
  FillBox(graphics,
          BoxBetween(box.left + width, box.top + width, box.right - width, box.bottom - width),
          fill);
}

void Draw(const Rectangle& rectangle) {
  DrawBorderedRectangle(State().graphics, BoxOf(rectangle),
                        LineAttributesOf(rectangle, CurrentGroups()),
                        FillColourOf(rectangle, CurrentGroups()));
}

void Draw(const DynamicLineArt& lineArt) {
  const LineAttributes line = LineAttributesOf(lineArt, CurrentGroups());
  std::int64_t inset = 0;
  if (lineArt.BorderedBoundingBox) {
    DrawBorderedRectangle(State().graphics, BoxOf(lineArt), line,
                          FillColourOf(lineArt, CurrentGroups()));
    inset = DrawnWidth(line);
  }
  if (lineArt.Canvas == nullptr) return;
  DrawCanvas(*lineArt.Canvas, lineArt.Position.X + inset, lineArt.Position.Y + inset);
}

}  // namespace korvel
