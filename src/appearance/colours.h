// Converts the colours of objects to the form that drawing uses. An object's colour may be
// absolute, an index into a palette, or not set. A colour that is not set comes from the running
// application. If that does not set it either, the default in the function's comment applies.
#pragma once

#include <cstddef>
#include <string_view>

#include "objects/group.h"
#include "objects/visibles.h"
#include "platform/canvases.h"

namespace korvel {

// White if nothing sets it.
[[nodiscard]] DrawnColour TextColourOf(const Text& text, const RunningGroups& groups);
// Transparent if nothing sets it.
[[nodiscard]] DrawnColour BackgroundColourOf(const Text& text, const RunningGroups& groups);
// White if nothing sets it.
[[nodiscard]] DrawnColour SliderColourOf(const Slider& slider, const RunningGroups& groups);

// The current lines and fill of line art; black lines and no fill if the object does not set the
// colours. The application has no such defaults.
[[nodiscard]] LineAttributes LineAttributesOf(const LineArt& lineArt, const RunningGroups& groups);
[[nodiscard]] DrawnColour FillColourOf(const LineArt& lineArt, const RunningGroups& groups);

// The fill colour of the content, which actions do not change.
[[nodiscard]] DrawnColour OriginalFillColourOf(const LineArt& lineArt, const RunningGroups& groups);

// Whether an absolute colour may have that many bytes. Three are opaque. A colour of another length
// is not set.
[[nodiscard]] constexpr bool IsColourLength(std::size_t bytes) { return bytes == 3 || bytes == 4; }

// The colour with these bytes, the most significant first.
[[nodiscard]] constexpr DrawnColour PackColour(std::string_view bytes) {
  DrawnColour colour = 0;
  for (const char byte : bytes) colour = colour << 8 | static_cast<unsigned char>(byte);
  return colour;
}

inline constexpr DrawnColour kTransparencyByte = 0xFF;

// Whether the colour is visible at all.
[[nodiscard]] constexpr bool IsSeen(DrawnColour colour) {
  return (colour & kTransparencyByte) != kTransparencyByte;
}

}  // namespace korvel
