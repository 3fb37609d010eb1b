// Pens, and the bordered rectangle that rectangles, sliders, entry fields and frames share.
#include "presentation/line.h"

#include "presentation/colours.h"

namespace korvel {

namespace {

Gdiplus::GpDashStyle DashStyleOf(std::int32_t lineStyle) noexcept {
  switch (lineStyle) {
  case 2: return Gdiplus::DashStyleDash;
  case 3: return Gdiplus::DashStyleDot;
  default: return Gdiplus::DashStyleSolid;
  }
}

void Fill(Gdiplus::GpGraphics* graphics, const Box& box, Colour colour) noexcept {
  SolidBrushOwner brush;
  if (box.IsEmpty() || !Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(colour), brush.Slot()))) {
    return;
  }
  // What cannot be filled stays as it was.
  static_cast<void>(
      gdip::GdipFillRectangleI(graphics, brush, box.Left, box.Top, box.Width(), box.Height()));
}

// The pen's middle runs half a width inside the box, so that its outer side is the box's edge.
void DrawOutline(Gdiplus::GpGraphics* graphics, const Box& box,
                 const LineAttributes& line) noexcept {
  PenOwner pen;
  if (!MakePen(line, pen)) return;
  const auto width = static_cast<float>(DrawnWidth(line));
  static_cast<void>(gdip::GdipDrawRectangle(graphics, pen, static_cast<float>(box.Left) + width / 2,
                                            static_cast<float>(box.Top) + width / 2,
                                            static_cast<float>(box.Width()) - width,
                                            static_cast<float>(box.Height()) - width));
}

}  // namespace

LineAttributes LineAttributesOf(const LineArt& lineArt) noexcept {
  return {lineArt.LineWidth, lineArt.LineStyle, LineColourOf(lineArt)};
}

std::int32_t DrawnWidth(const LineAttributes& line) noexcept {
  return line.Width < 0 ? 0 : NearCoordinate(line.Width);
}

bool MakePen(const LineAttributes& line, PenOwner& pen) noexcept {
  return Succeeded(gdip::GdipCreatePen1(ToGdiPlus(line.Ink), static_cast<float>(DrawnWidth(line)),
                                        Gdiplus::UnitWorld, pen.Slot())) &&
         Succeeded(gdip::GdipSetPenDashStyle(pen, DashStyleOf(line.Style)));
}

void DrawBorderedRectangle(Gdiplus::GpGraphics* graphics, const Box& box,
                           const LineAttributes& line, Colour fill) noexcept {
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
