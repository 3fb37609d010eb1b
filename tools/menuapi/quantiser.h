// The factors that multiply coefficients: a matrix with a weight for each position in the block,
// and a scale that slices and macroblocks set. ISO/IEC 13818-2, 6.3.11 and 7.4.2.
#pragma once

#include <array>
#include <cstdint>

#include "menuapi/bit_reader.h"
#include "menuapi/scan_order.h"

namespace menuapi {

using QuantiserMatrix = std::array<std::uint8_t, kBlockSize>;  // row by row

// The intra matrix for sequences that define none.
[[nodiscard]] const QuantiserMatrix& DefaultIntraMatrix();

// Reads 64 weights in zigzag order. Returns false and leaves the matrix unchanged if one is 0.
[[nodiscard]] bool ReadMatrix(BitReader& reader, QuantiserMatrix& matrix);

enum class ScaleType { Linear, NonLinear };

// The scale for a code of 1 to 31; 0 for the invalid code 0.
[[nodiscard]] int QuantiserScale(std::uint32_t code, ScaleType type);

}  // namespace menuapi
