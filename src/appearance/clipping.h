// Lines and polygons cut to the coordinates that are drawn, without bending what remains.
#pragma once

#include <span>

#include "objects/sequence.h"
#include "platform/canvases.h"

namespace korvel {

// A part of a line; it may begin and end between pixels.
struct LinePart {
  double FromX = 0;
  double FromY = 0;
  double ToX = 0;
  double ToY = 0;

  [[nodiscard]] double Length() const;
};

// What remains of a line within `farthest` of the origin in each direction. Where it has dashes, a
// whole number of their `period` is taken off its beginning, at most a period too few, so that the
// rest stay where they are; 0 is a line without any. False when nothing of it lies there.
[[nodiscard]] bool ClipLine(const CanvasPoint& from, const CanvasPoint& to, std::int64_t farthest,
                            double period, LinePart& part);

// The outline of what remains of a polygon within `farthest` of the origin in each direction; it
// may be empty. False when memory is out.
[[nodiscard]] bool ClipPolygon(std::span<const CanvasPoint> points, std::int64_t farthest,
                               Sequence<CanvasPoint>& clipped);

}  // namespace korvel
