// Line attributes, and clipping against a square around the origin. Clipping calculates in double
// precision: content may give any 32-bit coordinates.
#include "appearance/geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "objects/limits.h"

namespace korvel {
namespace {

// One side of the square: a point p is inside if p.x * x + p.y * y <= far.
struct Side {
  double x;
  double y;
  double far;
};

std::array<Side, 4> SidesOf(std::int64_t farthest) {
  const auto far = static_cast<double>(farthest);
  return {Side{1, 0, far}, Side{-1, 0, far}, Side{0, 1, far}, Side{0, -1, far}};
}

// The distance of a point outside a side; 0 or less inside.
double Outside(const CanvasPoint& point, const Side& side) {
  return point.x * side.x + point.y * side.y - side.far;
}

// The point where the line between an inner and an outer point crosses the side.
CanvasPoint Crossing(const CanvasPoint& from, const CanvasPoint& to, const Side& side) {
  const double before = Outside(from, side);
  const double share = before / (before - Outside(to, side));
  const auto between = [share](double start, double end) {
    return static_cast<std::int32_t>(std::lround(start + (end - start) * share));
  };
  return {between(from.x, to.x), between(from.y, to.y)};
}

[[nodiscard]] bool ClipToSide(std::span<const CanvasPoint> points, const Side& side,
                              List<CanvasPoint>& clipped) {
  for (std::size_t index = 0; index < points.size(); ++index) {
    const CanvasPoint& here = points[index];
    const CanvasPoint& next = points[(index + 1) % points.size()];
    const bool isInside = Outside(here, side) <= 0;
    if (isInside && !clipped.Append(here)) return false;
    if (isInside == (Outside(next, side) <= 0)) continue;
    if (!clipped.Append(Crossing(here, next, side))) return false;
  }
  return true;
}

// Narrows the part of a line that is inside a side. It begins and ends at the fractions `first` and
// `last` of the line. `start` and `end` are the distances of its ends outside that side.
void NarrowToSide(double start, double end, double& first, double& last) {
  if (start > 0 && end > 0) last = -1;
  if ((start > 0) == (end > 0)) return;
  const double share = start / (start - end);
  if (start > 0) {
    first = std::max(first, share);
  } else {
    last = std::min(last, share);
  }
}

}  // namespace

std::int32_t DrawnWidth(const LineAttributes& line) {
  return line.width < 0 ? 0 : NearCoordinate(line.width);
}

Dashes DashesOf(const LineAttributes& line) {
  switch (line.style) {
  case LineStyle::Dashed: return Dashes::Long;
  case LineStyle::Dotted: return Dashes::Short;
  case LineStyle::Solid: break;
  }
  return Dashes::None;
}

std::int32_t DashPeriod(const LineAttributes& line) {
  const Dashes dashes = DashesOf(line);
  return dashes == Dashes::None ? 0 : (static_cast<std::int32_t>(dashes) + 1) * DrawnWidth(line);
}

bool HasTooManyDashes(const LineAttributes& line, double length) {
  return DashPeriod(line) != 0 && length > kMostDashes * DashPeriod(line);
}

double LinePart::Length() const { return std::hypot(toX - fromX, toY - fromY); }

bool ClipLine(const CanvasPoint& from, const CanvasPoint& to, std::int64_t farthest, double period,
              LinePart& part) {
  double first = 0;
  double last = 1;
  for (const Side& side : SidesOf(farthest)) {
    NarrowToSide(Outside(from, side), Outside(to, side), first, last);
  }
  if (first > last) return false;
  const double wayX = static_cast<double>(to.x) - from.x;
  const double wayY = static_cast<double>(to.y) - from.y;
  const double length = std::hypot(wayX, wayY);
  if (first > 0 && period > 0) first = std::floor(first * length / period) * period / length;
  part = {from.x + wayX * first, from.y + wayY * first, from.x + wayX * last, from.y + wayY * last};
  return true;
}

bool ClipPolygon(std::span<const CanvasPoint> points, std::int64_t farthest,
                 List<CanvasPoint>& clipped) {
  const std::array<Side, 4> sides = SidesOf(farthest);
  List<CanvasPoint> first;
  List<CanvasPoint> second;
  List<CanvasPoint> third;
  return ClipToSide(points, sides[0], first) && ClipToSide(first, sides[1], second) &&
         ClipToSide(second, sides[2], third) && ClipToSide(third, sides[3], clipped);
}

}  // namespace korvel
