// Pens, and the bordered rectangle that rectangles, sliders, entry fields and frames share.
#include "presentation/line.h"

#include "appearance/colours.h"
#include "engine/engine.h"

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

void Fill(Gdiplus::GpGraphics* graphics, const Box& box, DrawnColour colour) {
  SolidBrushOwner brush;
  if (box.IsEmpty() || !MakeBrush(colour, brush)) return;
  // What cannot be filled stays as it was.
  static_cast<void>(
      gdip::GdipFillRectangleI(graphics, brush, box.Left, box.Top, box.Width(), box.Height()));
}

// Moves an edge that lies outside of the range nearer to it by whole periods, which leaves the
// dashes of the other edges where they are.
std::int32_t Nearer(std::int32_t edge, std::int32_t least, std::int32_t most, std::int32_t period) {
  if (edge < least) return edge + (least - edge) / period * period;
  if (edge > most) return edge - (edge - most) / period * period;
  return edge;
}

// A box whose dashed outline looks the same where it is drawn, and is not much longer than that.
Box OutlineBox(Gdiplus::GpGraphics* graphics, const Box& box, const LineAttributes& line) {
  const std::int32_t period = DashPeriod(line);
  Gdiplus::Rect drawn;
  if (period == 0 || !Succeeded(gdip::GdipGetVisibleClipBoundsI(graphics, &drawn))) return box;
  const std::int32_t width = DrawnWidth(line);
  const std::int32_t right = drawn.X + drawn.Width + width;
  const std::int32_t bottom = drawn.Y + drawn.Height + width;
  return {Nearer(box.Left, drawn.X - width, right, period),
          Nearer(box.Top, drawn.Y - width, bottom, period),
          Nearer(box.Right, drawn.X - width, right, period),
          Nearer(box.Bottom, drawn.Y - width, bottom, period)};
}

// The pen's middle runs half a width inside the box, so that its outer side is the box's edge. A
// line of one pixel has no half: between two pixels GDI+ may round it out of the box.
void DrawOutline(Gdiplus::GpGraphics* graphics, const Box& whole, const LineAttributes& line) {
  const Box box = OutlineBox(graphics, whole, line);
  PenOwner pen;
  if (box.IsEmpty() || !MakePen(line, 2.0 * (box.Width() + box.Height()), pen)) return;
  const auto width = static_cast<float>(DrawnWidth(line));
  const float inset = width > 1 ? width / 2 : 0;
  // What cannot be drawn stays as it was.
  static_cast<void>(gdip::GdipDrawRectangle(
      graphics, pen, static_cast<float>(box.Left) + inset, static_cast<float>(box.Top) + inset,
      static_cast<float>(box.Width()) - width, static_cast<float>(box.Height()) - width));
}

}  // namespace

LineAttributes LineAttributesOf(const LineArt& lineArt) {
  return {lineArt.LineWidth, lineArt.LineStyle, LineColourOf(lineArt, CurrentGroups())};
}

bool MakePen(const LineAttributes& line, double length, PenOwner& pen) {
  return DrawnWidth(line) > 0 &&
         Succeeded(gdip::GdipCreatePen1(ToGdiPlus(line.Ink), static_cast<float>(DrawnWidth(line)),
                                        Gdiplus::UnitWorld, pen.Slot())) &&
         Succeeded(gdip::GdipSetPenDashStyle(pen, DashStyleOf(line, length)));
}

void DrawBorderedRectangle(Gdiplus::GpGraphics* graphics, const Box& box,
                           const LineAttributes& line, DrawnColour fill) {
  if (graphics == nullptr || box.IsEmpty()) return;
  const std::int32_t width = DrawnWidth(line);
  if (box.Width() <= width || box.Height() <= width) {
    Fill(graphics, box, line.Ink);
    return;
  }
  DrawOutline(graphics, box, line);
  Fill(graphics,
       BoxBetween(box.Left + width, box.Top + width, box.Right - width, box.Bottom - width), fill);
}

}  // namespace korvel
