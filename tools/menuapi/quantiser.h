// What a coefficient is multiplied with: the matrix, a weight for each place of the block, and the
// scale, which slices and macroblocks set. ISO/IEC 13818-2, 6.3.11 and 7.4.2.
#pragma once

#include <array>
#include <cstdint>

#include "menuapi/bit_reader.h"
#include "menuapi/scan_order.h"

namespace menuapi {

using QuantiserMatrix = std::array<std::uint8_t, kBlockSize>;  // row by row

// The intra matrix of a sequence that brings none.
[[nodiscard]] const QuantiserMatrix& DefaultIntraMatrix();

// Reads 64 weights in zigzag order. False, with the matrix untouched, when one is 0.
[[nodiscard]] bool ReadMatrix(BitReader& reader, QuantiserMatrix& matrix);

enum class ScaleType { Linear, NonLinear };

// The scale that a code of 1 to 31 means; 0 for the code 0, which is none.
[[nodiscard]] int QuantiserScale(std::uint32_t code, ScaleType type);

}  // namespace menuapi
