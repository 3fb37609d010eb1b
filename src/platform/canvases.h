// The canvases of dynamic line art. Coordinates are canvas pixels. Every operation takes a null
// canvas and then does nothing; all return Done. Worker thread only.
#pragma once

#include <cstdint>
#include <span>

#include "objects/status.h"
#include "objects/vocabulary.h"

namespace korvel {

struct Canvas;

// A colour as drawing takes it: 0xRRGGBBTT, where TT is the transparency.
using DrawnColour = std::uint32_t;

// No fill, or no background.
inline constexpr DrawnColour kTransparentColour = 0xFFFFFFFF;

struct LineAttributes {
  std::int32_t Width = 1;              // pixels
  LineStyle Style = LineStyle::Solid;  // drawn solid if the number has no name
  DrawnColour Ink = 0;
};

struct CanvasPoint {
  std::int32_t X = 0;
  std::int32_t Y = 0;
};

enum class ArcForm { Arc, Sector };

// A canvas of that size, transparent everywhere. Null when a side is below 1, when it would be too
// large, and when memory is out.
[[nodiscard]] Canvas* NewCanvas(std::int32_t width, std::int32_t height);

// Gives a canvas back. Null is allowed.
void DestroyCanvas(Canvas* canvas);

// Limits what is drawn from now on to the top-left part of that size, the drawable area.
Status ClipCanvas(std::int32_t width, std::int32_t height, Canvas* canvas);

// Makes the whole canvas transparent, then fills its drawable area.
Status ClearCanvas(DrawnColour fill, Canvas* canvas);

Status CanvasLine(CanvasPoint from, CanvasPoint to, const LineAttributes& line, Canvas* canvas);

// An outline inside the rectangle between the two corners, and the fill inside of the outline.
Status CanvasRectangle(CanvasPoint from, CanvasPoint to, const LineAttributes& line,
                       DrawnColour fill, Canvas* canvas);

// The fill only: an oval's outline is not drawn.
Status CanvasOval(CanvasPoint at, std::int32_t width, std::int32_t height, DrawnColour fill,
                  Canvas* canvas);

// Angles are degrees; the start angle is measured clockwise from the right, a positive arc angle
// runs counter-clockwise. A sector's fill is as transparent as its line.
Status CanvasArc(CanvasPoint at, std::int32_t width, std::int32_t height, std::int32_t startAngle,
                 std::int32_t arcAngle, const LineAttributes& line, DrawnColour fill, ArcForm form,
                 Canvas* canvas);

// Closed and filled, for polylines too. Two points are a line; fewer draw nothing.
Status CanvasPolygon(std::span<const CanvasPoint> points, const LineAttributes& line,
                     DrawnColour fill, Canvas* canvas);

}  // namespace korvel
