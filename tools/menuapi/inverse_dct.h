// Converts a block's coefficients to samples: ISO/IEC 13818-2, annex A. The result equals the exact
// formula's, except that ties between two levels may round either way.
#pragma once

#include <array>
#include <cstdint>

#include "menuapi/scan_order.h"

namespace menuapi {

using Coefficients = std::array<int, kBlockSize>;      // row by row, lowest frequency first
using Samples = std::array<std::uint8_t, kBlockSize>;  // row by row

// Rounds to the nearest level and clamps to 0..255.
[[nodiscard]] Samples InverseDct(const Coefficients& coefficients);

}  // namespace menuapi
