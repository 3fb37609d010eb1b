// What a pen covers on its way around a polygon, by the rules that GDI+ draws outlines with. There
// the pen runs along the middle of the outline, mitres the corners, up to a limit, and ends dashes
// flat. Nothing here allocates, so nothing fails.
#pragma once

#include <cstdint>
#include <span>

#include "presentation/coverage.h"
#include "presentation/line_attributes.h"
#include "presentation/presentation.h"

namespace korvel {

// Adds the outline of the closed polygon, drawn with a pen of two or more pixels. The shape is to
// be filled by the rule NonZero.
void AddWideOutline(std::span<const CanvasPoint> corners, std::int32_t width, Dashes dashes,
                    Coverage& coverage) noexcept;

// The same for a pen of one pixel, which goes from pixel to pixel.
void AddThinOutline(std::span<const CanvasPoint> corners, Dashes dashes,
                    Coverage& coverage) noexcept;

}  // namespace korvel
