// What a canvas is made of: a picture of its own, transparent where nothing was drawn.
#pragma once

#include <cstdint>

#include "presentation/gdi_plus.h"
#include "presentation/presentation.h"

namespace korvel {

// The picture goes after the graphics that draws on it.
struct Canvas {
  BitmapOwner Picture;
  GraphicsOwner Graphics;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  // The drawable area, from the top-left corner.
  std::int32_t ClipWidth = 0;
  std::int32_t ClipHeight = 0;
};

// Dashed lines and polygons are cut so far from the origin, a little outside of the canvas, where
// neither the cut nor the points of a polygon's corners, which reach five widths beyond them, are
// seen.
[[nodiscard]] std::int64_t FarthestPoint(const Canvas& canvas, const LineAttributes& line) noexcept;

}  // namespace korvel
