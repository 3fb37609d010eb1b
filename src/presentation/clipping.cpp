// Clipping against a square around the origin, worked in double precision: content may give any
// 32-bit coordinates.
#include "presentation/clipping.h"

#include <array>
#include <cmath>

#include "presentation/geometry.h"

namespace korvel {

namespace {

// One side of the square: the points p with p.X * X + p.Y * Y <= Far lie inside of it.
struct Side {
  double X;
  double Y;
  double Far;
};

std::array<Side, 4> SidesOf(std::int64_t farthest) noexcept {
  const auto far = static_cast<double>(farthest);
  return {Side{1, 0, far}, Side{-1, 0, far}, Side{0, 1, far}, Side{0, -1, far}};
}

// How far a point lies outside of a side; not above 0 inside.
double Outside(const CanvasPoint& point, const Side& side) noexcept {
  return point.X * side.X + point.Y * side.Y - side.Far;
}

// Where the line from an inner to an outer point, or the other way, meets the side.
CanvasPoint Meeting(const CanvasPoint& from, const CanvasPoint& to, const Side& side) noexcept {
  const double before = Outside(from, side);
  const double share = before / (before - Outside(to, side));
  const auto between = [share](double start, double end) {
    return static_cast<std::int32_t>(std::lround(start + (end - start) * share));
  };
  return {between(from.X, to.X), between(from.Y, to.Y)};
}

[[nodiscard]] bool ClipToSide(std::span<const CanvasPoint> points, const Side& side,
                              Sequence<CanvasPoint>& clipped) noexcept {
  for (std::size_t index = 0; index < points.size(); ++index) {
    const CanvasPoint& here = points[index];
    const CanvasPoint& next = points[(index + 1) % points.size()];
    const bool isInside = Outside(here, side) <= 0;
    if (isInside && !clipped.Append(here)) return false;
    if (isInside == (Outside(next, side) <= 0)) continue;
    if (!clipped.Append(Meeting(here, next, side))) return false;
  }
  return true;
}

}  // namespace

bool ClipLine(CanvasPoint& from, CanvasPoint& to) noexcept {
  for (const Side& side : SidesOf(kFarthestCoordinate)) {
    const bool isFromOutside = Outside(from, side) > 0;
    const bool isToOutside = Outside(to, side) > 0;
    if (isFromOutside && isToOutside) return false;
    if (isFromOutside) from = Meeting(from, to, side);
    if (isToOutside) to = Meeting(from, to, side);
  }
  return true;
}

bool ClipPolygon(std::span<const CanvasPoint> points, std::int64_t farthest,
                 Sequence<CanvasPoint>& clipped) noexcept {
  const std::array<Side, 4> sides = SidesOf(farthest);
  Sequence<CanvasPoint> right;
  Sequence<CanvasPoint> left;
  Sequence<CanvasPoint> lower;
  const auto all = [](const Sequence<CanvasPoint>& some) {
    return std::span<const CanvasPoint>(some.begin(), some.Size());
  };
  return ClipToSide(points, sides[0], right) && ClipToSide(all(right), sides[1], left) &&
         ClipToSide(all(left), sides[2], lower) && ClipToSide(all(lower), sides[3], clipped);
}

}  // namespace korvel
