// Lines and polygons cut to the coordinates that are drawn, without bending what remains.
#pragma once

#include <span>

#include "objects/sequence.h"
#include "presentation/presentation.h"

namespace korvel {

// Cuts both ends to the range. False when nothing of the line lies in it.
[[nodiscard]] bool ClipLine(CanvasPoint& from, CanvasPoint& to) noexcept;

// The outline of what remains of a polygon within `farthest` of the origin in each direction; it
// may be empty. False when memory is out.
[[nodiscard]] bool ClipPolygon(std::span<const CanvasPoint> points, std::int64_t farthest,
                               Sequence<CanvasPoint>& clipped) noexcept;

}  // namespace korvel
