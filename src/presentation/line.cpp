// Pens, and the bordered rectangle that rectangles, sliders, entry fields and frames share.
#include "presentation/line.h"

#include "presentation/colours.h"

namespace korvel {

namespace {

// GDI+ makes an outline of each dash, which takes a while; a dot and its gap are two widths long.
// Around the whole scene run no more than these, and a line that has more is drawn solid.
constexpr double kMostDashes = 3000;

Gdiplus::GpDashStyle DashStyleOf(const LineAttributes& line, double length) noexcept {
  if (length / (2.0 * DrawnWidth(line)) > kMostDashes) return Gdiplus::DashStyleSolid;
  switch (line.Style) {
  case 2: return Gdiplus::DashStyleDash;
  case 3: return Gdiplus::DashStyleDot;
  default: return Gdiplus::DashStyleSolid;
  }
}

void Fill(Gdiplus::GpGraphics* graphics, const Box& box, DrawnColour colour) noexcept {
  SolidBrushOwner brush;
  if (box.IsEmpty() || !Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(colour), brush.Slot()))) {
    return;
  }
  // What cannot be filled stays as it was.
  static_cast<void>(
      gdip::GdipFillRectangleI(graphics, brush, box.Left, box.Top, box.Width(), box.Height()));
}

// The pen's middle runs half a width inside the box, so that its outer side is the box's edge. A
// line of one pixel has no half: between two pixels GDI+ may round it out of the box.
void DrawOutline(Gdiplus::GpGraphics* graphics, const Box& box,
                 const LineAttributes& line) noexcept {
  PenOwner pen;
  if (!MakePen(line, 2.0 * (box.Width() + box.Height()), pen)) return;
  const auto width = static_cast<float>(DrawnWidth(line));
  const float inset = width > 1 ? width / 2 : 0;
  // What cannot be drawn stays as it was.
  static_cast<void>(gdip::GdipDrawRectangle(
      graphics, pen, static_cast<float>(box.Left) + inset, static_cast<float>(box.Top) + inset,
      static_cast<float>(box.Width()) - width, static_cast<float>(box.Height()) - width));
}

}  // namespace

LineAttributes LineAttributesOf(const LineArt& lineArt) noexcept {
  return {lineArt.LineWidth, lineArt.LineStyle, LineColourOf(lineArt)};
}

std::int32_t DrawnWidth(const LineAttributes& line) noexcept {
  return line.Width < 0 ? 0 : NearCoordinate(line.Width);
}

bool MakePen(const LineAttributes& line, double length, PenOwner& pen) noexcept {
  return DrawnWidth(line) > 0 &&
         Succeeded(gdip::GdipCreatePen1(ToGdiPlus(line.Ink), static_cast<float>(DrawnWidth(line)),
                                        Gdiplus::UnitWorld, pen.Slot())) &&
         Succeeded(gdip::GdipSetPenDashStyle(pen, DashStyleOf(line, length)));
}

void DrawBorderedRectangle(Gdiplus::GpGraphics* graphics, const Box& box,
                           const LineAttributes& line, DrawnColour fill) noexcept {
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
