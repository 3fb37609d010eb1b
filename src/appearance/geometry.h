// Boxes and lines in pixels, made safe to draw whatever numbers content gives. Sums are calculated
// in 64 bits and limited to bounds far outside the scene: beyond them GDI+ overflows, and under
// Wine it takes minutes to draw a dashed line.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "objects/list.h"
#include "objects/visibles.h"
#include "platform/canvases.h"

namespace korvel {

inline constexpr std::int64_t kFarthestCoordinate = 32000;

[[nodiscard]] constexpr std::int32_t NearCoordinate(std::int64_t coordinate) {
  return static_cast<std::int32_t>(
      std::clamp(coordinate, -kFarthestCoordinate, kFarthestCoordinate));
}

// ---- Boxes ----

// Whether a box of that size has any pixels.
[[nodiscard]] constexpr bool HasArea(const BoxSize& size) {
  return size.Width >= 1 && size.Height >= 1;
}

// A rectangle by its edges; the right and bottom edges are one past the last pixel. Empty unless
// right > left and bottom > top.
struct Box {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  [[nodiscard]] constexpr std::int32_t Width() const { return right - left; }
  [[nodiscard]] constexpr std::int32_t Height() const { return bottom - top; }
  [[nodiscard]] constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
};

[[nodiscard]] constexpr Box BoxBetween(std::int64_t left, std::int64_t top, std::int64_t right,
                                       std::int64_t bottom) {
  return {NearCoordinate(left), NearCoordinate(top), NearCoordinate(right), NearCoordinate(bottom)};
}

[[nodiscard]] constexpr Box BoxAt(const Position& position, const BoxSize& size) {
  return BoxBetween(position.X, position.Y, std::int64_t{position.X} + size.Width,
                    std::int64_t{position.Y} + size.Height);
}

[[nodiscard]] constexpr Box BoxOf(const Visible& visible) {
  return BoxAt(visible.Position, visible.BoxSize);
}

// ---- Line attributes ----

// The width to draw, 0 or more: content may give any number.
[[nodiscard]] std::int32_t DrawnWidth(const LineAttributes& line);

// The length of a dash or dot in line widths. The gaps between them are one width long.
enum class Dashes : std::int32_t { None = 0, Short = 1, Long = 3 };
[[nodiscard]] Dashes DashesOf(const LineAttributes& line);

// The distance in pixels from the start of one dash or dot to the start of the next; 0 for solid
// lines.
[[nodiscard]] std::int32_t DashPeriod(const LineAttributes& line);

// Whether a line of that length, in pixels, has too many dashes or dots and is drawn solid.
[[nodiscard]] bool HasTooManyDashes(const LineAttributes& line, double length);

// ---- Clipping ----

// A part of a line; it may begin and end between pixels.
struct LinePart {
  double fromX = 0;
  double fromY = 0;
  double toX = 0;
  double toY = 0;

  [[nodiscard]] double Length() const;
};

// Cuts a line to the square that reaches `farthest` from the origin in each direction. A dashed
// line loses a whole number of its `period` at its beginning, so that the remaining dashes do not
// move; up to one period of the part may lie outside the square. A period of 0 is a solid line.
// False, with `part` unchanged, if no part of the line is in the square.
[[nodiscard]] bool ClipLine(const CanvasPoint& from, const CanvasPoint& to, std::int64_t farthest,
                            double period, LinePart& part);

// Adds to `clipped` the corners of the part of a polygon that lies in the same square, if there is
// any. False if memory runs out.
[[nodiscard]] bool ClipPolygon(std::span<const CanvasPoint> points, std::int64_t farthest,
                               List<CanvasPoint>& clipped);

}  // namespace korvel
