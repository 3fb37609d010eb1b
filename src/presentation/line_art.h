// Pens and bordered rectangles, on the back buffer and on canvases, and the canvas itself.
#pragma once

#include <cstdint>

#include "appearance/geometry.h"
#include "platform/canvases.h"
#include "presentation/gdi_plus.h"

namespace korvel {

// A separate picture, transparent until it is drawn on. `graphics` draws on it and is released
// first.
struct Canvas {
  BitmapOwner picture;
  GraphicsOwner graphics;
  std::int32_t width = 0;
  std::int32_t height = 0;
  // The drawable area, from the top-left corner.
  std::int32_t clipWidth = 0;
  std::int32_t clipHeight = 0;
};

// Makes the pen for a line or an outline of up to that length in pixels. False if the line has no
// width, which GDI+ would draw one pixel wide, or if the pen cannot be made.
[[nodiscard]] bool MakePen(const LineAttributes& line, double length, PenOwner& pen);

// Fills the box, unless it is empty or the colour is invisible.
void FillBox(Gdiplus::GpGraphics* graphics, const Box& box, DrawnColour colour);

// Draws an outline that is entirely inside the box, and the fill inside the outline. If the box is
// no larger than its border, it is filled with the border's colour.
void DrawBorderedRectangle(Gdiplus::GpGraphics* graphics, const Box& box,
                           const LineAttributes& line, DrawnColour fill);

}  // namespace korvel
