// How lines and outlines are drawn, on the back buffer and on canvases alike.
#pragma once

#include "appearance/geometry.h"
#include "appearance/line_attributes.h"
#include "platform/canvases.h"
#include "presentation/gdi_plus.h"

namespace korvel {

// The attributes of a line art's lines as they are now.
[[nodiscard]] LineAttributes LineAttributesOf(const LineArt& lineArt);

// The pen for a line or an outline of that length, in pixels, or somewhat shorter. False when the
// line has no width, which GDI+ would draw one pixel wide, and when the pen could not be made.
[[nodiscard]] bool MakePen(const LineAttributes& line, double length, PenOwner& pen);

// The bordered rectangle: an outline that lies wholly inside the box, and the fill inside of the
// outline. A box no larger than its border is all border.
void DrawBorderedRectangle(Gdiplus::GpGraphics* graphics, const Box& box,
                           const LineAttributes& line, DrawnColour fill);

}  // namespace korvel
