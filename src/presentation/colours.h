// From the colours that objects carry to the one form that drawing uses. An object's colour may be
// absolute, an index into a palette, or not set; what is not set comes from the application, and
// what the application does not set either has a value of its own here.
#pragma once

#include "objects/group.h"
#include "objects/visibles.h"
#include "presentation/gdi_plus.h"
#include "presentation/presentation.h"

namespace korvel {

[[nodiscard]] DrawnColour TextColourOf(const Text& text) noexcept;
[[nodiscard]] DrawnColour BackgroundColourOf(const Text& text) noexcept;
[[nodiscard]] DrawnColour SliderColourOf(const Slider& slider) noexcept;

inline constexpr DrawnColour kTransparencyByte = 0xFF;

// Whether anything that is drawn in the colour can be seen.
[[nodiscard]] constexpr bool IsSeen(DrawnColour colour) noexcept {
  return (colour & kTransparencyByte) != kTransparencyByte;
}

// The colour as GDI+ takes it.
[[nodiscard]] Gdiplus::ARGB ToGdiPlus(DrawnColour colour) noexcept;

// A brush of the colour. False where it cannot be seen anyway, and when it could not be made.
[[nodiscard]] bool MakeBrush(DrawnColour colour, SolidBrushOwner& brush) noexcept;

}  // namespace korvel
