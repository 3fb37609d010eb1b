// The bar of a slider, as boxes in scene pixels. The orientation names the side where the bar
// begins; it ends at the position of the value in the range.
#pragma once

#include "appearance/geometry.h"
#include "objects/visibles.h"

namespace korvel {

struct SliderBar {
  Box bar;
  Box marker;  // across the bar's end; empty if the style has none
};

// A slider whose limits are equal has a bar of one pixel.
[[nodiscard]] SliderBar SliderBarOf(const Slider& slider);

}  // namespace korvel
