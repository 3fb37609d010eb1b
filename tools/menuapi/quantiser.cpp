// The default matrix, the non-linear scale (ISO/IEC 13818-2, table 7-6), and the reader of a
// matrix. A matrix is coded in zigzag order even if the picture uses the alternate scan.
#include "menuapi/quantiser.h"

#include <algorithm>

namespace menuapi {
namespace {

constexpr QuantiserMatrix kDefaultIntra = {
    8,  16, 19, 22, 26, 27, 29, 34,  //
    16, 16, 22, 24, 27, 29, 34, 37,  //
    19, 22, 26, 27, 29, 34, 34, 38,  //
    22, 22, 26, 27, 29, 34, 37, 40,  //
    22, 26, 27, 29, 32, 35, 40, 48,  //
    26, 27, 29, 32, 35, 40, 48, 58,  //
    26, 27, 29, 34, 38, 46, 56, 69,  //
    27, 29, 35, 38, 46, 56, 69, 83,
};

constexpr std::array<int, 32> kNonLinearScale = {
    0,  1,  2,  3,  4,  5,  6,   7,   //
    8,  10, 12, 14, 16, 18, 20,  22,  //
    24, 28, 32, 36, 40, 44, 48,  52,  //
    56, 64, 72, 80, 88, 96, 104, 112,
};

}  // namespace

const QuantiserMatrix& DefaultIntraMatrix() { return kDefaultIntra; }

bool ReadMatrix(BitReader& reader, QuantiserMatrix& matrix) {
  QuantiserMatrix read{};
  for (const std::uint8_t position : ZigzagScan()) {
    read[position] = static_cast<std::uint8_t>(reader.Read(8));
  }
  if (std::find(read.begin(), read.end(), 0) != read.end()) return false;
  matrix = read;
  return true;
}

int QuantiserScale(std::uint32_t code, ScaleType type) {
  if (type == ScaleType::NonLinear) return kNonLinearScale.at(code);
  return static_cast<int>(code) * 2;
}

}  // namespace menuapi
