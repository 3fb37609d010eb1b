// The order in which a block's coefficients are sent: ISO/IEC 13818-2, figures 7-2 and 7-3.
// Pictures choose one of the two; quantiser matrices always use the first.
#pragma once

#include <array>
#include <cstdint>

namespace menuapi {

inline constexpr int kBlockSide = 8;
inline constexpr int kBlockSize = kBlockSide * kBlockSide;

// Maps a position in the stream to a position in the block, counted row by row.
using ScanOrder = std::array<std::uint8_t, kBlockSize>;

// Along the diagonals, for progressive pictures and for quantiser matrices.
[[nodiscard]] const ScanOrder& ZigzagScan();
// Mostly downwards, for interlaced pictures, whose neighbouring lines differ more.
[[nodiscard]] const ScanOrder& AlternateScan();

}  // namespace menuapi
