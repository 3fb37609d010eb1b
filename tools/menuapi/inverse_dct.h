// From a block's coefficients to its samples: ISO/IEC 13818-2, annex A. The result is that of the
// formula in exact numbers but for rounding where two levels are equally near.
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
