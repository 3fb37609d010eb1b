// The two ways in which a polygon is drawn. GDI+ draws it, but the time that GDI+ takes grows with
// the square of the corners; a polygon of many corners is drawn by what it covers, in a time that
// grows with the rows that its sides cross. The pictures are the same where GDI+, as Wine has it,
// runs the pen along the middle of an outline whatever its alignment; a GDI+ that keeps to the
// alignment draws its own outlines further inside.
#pragma once

#include <span>

#include "presentation/canvas.h"
#include "presentation/presentation.h"

namespace korvel {

// Both take corners that lie near the canvas, and draw the outline first and the fill over it. What
// cannot be drawn, because memory is out, stays as it was.
void DrawPolygonWithGdiPlus(std::span<const CanvasPoint> corners, const LineAttributes& line,
                            DrawnColour fill, const Canvas& canvas) noexcept;
void DrawPolygonByCoverage(std::span<const CanvasPoint> corners, const LineAttributes& line,
                           DrawnColour fill, const Canvas& canvas) noexcept;

}  // namespace korvel
