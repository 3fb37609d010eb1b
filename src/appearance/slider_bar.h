// The bar of a slider, as boxes in scene pixels. It begins at the side that the orientation names
// and ends at the value, counted from 0. A proportional bar covers the portion after the value.
#pragma once

#include "appearance/geometry.h"
#include "objects/visibles.h"

namespace korvel {

struct SliderBar {
  Box bar;
  Box marker;  // across the bar's end; empty if the style has none
};

// A slider whose MinValue equals its MaxValue has a bar of one pixel.
[[nodiscard]] SliderBar SliderBarOf(const Slider& slider);

}  // namespace korvel
