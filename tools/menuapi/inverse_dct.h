// Converts a block's coefficients to samples: ISO/IEC 13818-2, annex A. The result is that of the
// formula in exact numbers, except for rounding if two levels are equally near.
#pragma once

#include <array>
#include <cstdint>

#include "menuapi/scan_order.h"

namespace menuapi {

using Coefficients = std::array<int, kBlockSize>;      // row by row, frequency rising
using Samples = std::array<std::uint8_t, kBlockSize>;  // row by row

// Rounds to the nearest level and cuts off at 0 and 255.
[[nodiscard]] Samples InverseDct(const Coefficients& coefficients);

}  // namespace menuapi
