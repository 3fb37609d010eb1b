// The fields of a picture header and its coding extension that matter for intra coded pictures,
// ISO/IEC 13818-2, 6.2.3; and the number of macroblocks in a picture.
#pragma once

#include <array>

#include "menuapi/bit_reader.h"
#include "menuapi/coefficient_codes.h"
#include "menuapi/quantiser.h"
#include "menuapi/sequence.h"

namespace menuapi {

inline constexpr int kMacroblockSide = 16;  // in luma samples

// A picture is every line of a frame, or every second one.
enum class PictureStructure { TopField = 1, BottomField = 2, Frame = 3 };

struct Picture {
  PictureStructure structure = PictureStructure::Frame;
  int dcPrecision = 0;       // bits of DC coefficients beyond 8
  bool hasDctTypes = false;  // macroblocks say whether their blocks hold lines of one field
  bool hasVectors = false;   // macroblocks have vectors to conceal the loss of their neighbours
  std::array<int, 2> vectorRestBits{};  // across and down: the bits of a vector after its code
  ScaleType scaleType = ScaleType::Linear;
  CoefficientTable coefficientTable = CoefficientTable::Zero;
  bool usesAlternateScan = false;

  [[nodiscard]] bool IsField() const { return structure != PictureStructure::Frame; }
};

// Reads the picture header. False when the picture is not intra coded.
[[nodiscard]] bool ReadPictureHeader(BitReader& reader);

// Reads the picture coding extension, after its identifier. False if it contradicts itself or the
// sequence.
[[nodiscard]] bool ReadPictureCodingExtension(BitReader& reader, const Sequence& sequence,
                                              Picture& picture);

// The number of macroblocks in a row, and in a column of one picture.
[[nodiscard]] int MacroblockColumns(const Sequence& sequence);
[[nodiscard]] int MacroblockRows(const Sequence& sequence, const Picture& picture);

}  // namespace menuapi
