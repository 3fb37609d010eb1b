// The canvases of dynamic line art. Coordinates are canvas pixels. Every operation accepts a null
// canvas and then does nothing. Worker thread only.
#pragma once

#include <cstdint>
#include <span>

#include "objects/vocabulary.h"

namespace korvel {

struct Canvas;

// A colour to draw in: 0xRRGGBBTT, where TT is the transparency.
using DrawnColour = std::uint32_t;

// No fill, or no background.
inline constexpr DrawnColour kTransparentColour = 0xFFFFFFFF;

struct LineAttributes {
  std::int32_t width = 1;              // pixels
  LineStyle style = LineStyle::Solid;  // an unknown style is drawn solid
  DrawnColour ink = 0;
};

struct CanvasPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

enum class ArcForm { Arc, Sector };

// Creates a transparent canvas. Null if a side is below 1, if it would be too large, or if memory
// runs out.
[[nodiscard]] Canvas* NewCanvas(std::int32_t width, std::int32_t height);

// Releases a canvas.
void DestroyCanvas(Canvas* canvas);

// Limits all further drawing to the top-left part of that size, the drawable area.
void ClipCanvas(std::int32_t width, std::int32_t height, Canvas* canvas);

// Makes the whole canvas transparent, then fills its drawable area.
void ClearCanvas(DrawnColour fill, Canvas* canvas);

void CanvasLine(CanvasPoint from, CanvasPoint to, const LineAttributes& line, Canvas* canvas);

// Draws an outline inside the rectangle between the two corners, and the fill inside the outline.
void CanvasRectangle(CanvasPoint from, CanvasPoint to, const LineAttributes& line, DrawnColour fill,
                     Canvas* canvas);

// Draws only the fill of an oval, not its outline.
void CanvasOval(CanvasPoint at, std::int32_t width, std::int32_t height, DrawnColour fill,
                Canvas* canvas);

// Angles are degrees; the start angle is measured clockwise from the right, a positive arc angle
// runs counter-clockwise. A sector's fill is as transparent as its line.
void CanvasArc(CanvasPoint at, std::int32_t width, std::int32_t height, std::int32_t startAngle,
               std::int32_t arcAngle, const LineAttributes& line, DrawnColour fill, ArcForm form,
               Canvas* canvas);

// Draws a closed, filled polygon, also for DrawPolyline. Two points give a line; fewer draw
// nothing.
void CanvasPolygon(std::span<const CanvasPoint> points, const LineAttributes& line,
                   DrawnColour fill, Canvas* canvas);

}  // namespace korvel
