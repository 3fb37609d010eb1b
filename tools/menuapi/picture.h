// The fields of a picture header and its coding extension that intra coded pictures need: ISO/IEC
// 13818-2, 6.2.3. Also computes the number of macroblocks in a picture.
#pragma once

#include <array>

#include "menuapi/bit_reader.h"
#include "menuapi/coefficient_codes.h"
#include "menuapi/quantiser.h"
#include "menuapi/sequence.h"

namespace menuapi {

inline constexpr int kMacroblockSide = 16;  // in luma samples

// A picture has all lines of a frame, or every second line.
enum class PictureStructure { TopField = 1, BottomField = 2, Frame = 3 };

struct Picture {
  PictureStructure structure = PictureStructure::Frame;
  int dcPrecision = 0;                  // bits of DC coefficients, minus 8
  bool hasDctTypes = false;             // macroblocks have a flag for field DCT
  bool hasVectors = false;              // macroblocks have concealment motion vectors
  std::array<int, 2> vectorRestBits{};  // x and y: bits of a vector component after code and sign
  ScaleType scaleType = ScaleType::Linear;
  CoefficientTable coefficientTable = CoefficientTable::Zero;
  bool usesAlternateScan = false;

  [[nodiscard]] bool IsField() const { return structure != PictureStructure::Frame; }
};

// Reads the picture header. Returns false if the picture is not intra coded.
[[nodiscard]] bool ReadPictureHeader(BitReader& reader);

// Reads the picture coding extension, after its identifier. Returns false if it is invalid or
// contradicts the sequence.
[[nodiscard]] bool ReadPictureCodingExtension(BitReader& reader, const Sequence& sequence,
                                              Picture& picture);

// The number of macroblocks in a row, and in a column of one picture.
[[nodiscard]] int MacroblockColumns(const Sequence& sequence);
[[nodiscard]] int MacroblockRows(const Sequence& sequence, const Picture& picture);

}  // namespace menuapi
