// Places in scene pixels, made safe for drawing: sums are worked in 64 bits and kept within bounds
// far outside the scene, where GDI+ neither overflows nor follows a dashed line for minutes.
#pragma once

#include <algorithm>
#include <cstdint>

#include "objects/visibles.h"

namespace korvel {

inline constexpr std::int64_t kFarthestCoordinate = 32000;

[[nodiscard]] constexpr std::int32_t NearCoordinate(std::int64_t coordinate) {
  return static_cast<std::int32_t>(
      std::clamp(coordinate, -kFarthestCoordinate, kFarthestCoordinate));
}

// Whether a box of that size has any pixels.
[[nodiscard]] constexpr bool HasArea(const BoxSize& size) {
  return size.Width >= 1 && size.Height >= 1;
}

// A rectangle by its edges; the right and bottom edges lie one past the last pixel. Empty when an
// edge does not lie beyond its opposite.
struct Box {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Right = 0;
  std::int32_t Bottom = 0;

  [[nodiscard]] constexpr std::int32_t Width() const { return Right - Left; }
  [[nodiscard]] constexpr std::int32_t Height() const { return Bottom - Top; }
  [[nodiscard]] constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
};

[[nodiscard]] constexpr Box BoxBetween(std::int64_t left, std::int64_t top, std::int64_t right,
                                       std::int64_t bottom) {
  return {NearCoordinate(left), NearCoordinate(top), NearCoordinate(right), NearCoordinate(bottom)};
}

[[nodiscard]] constexpr Box BoxAt(std::int64_t x, std::int64_t y, std::int64_t width,
                                  std::int64_t height) {
  return BoxBetween(x, y, x + width, y + height);
}

[[nodiscard]] constexpr Box BoxOf(const Visible& visible) {
  return BoxAt(visible.Position.X, visible.Position.Y, visible.BoxSize.Width,
               visible.BoxSize.Height);
}

}  // namespace korvel
