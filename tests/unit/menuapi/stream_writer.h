// Writes streams that no encoder writes: macroblocks of one colour, with any values in their
// headers.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "unit/menuapi/bit_writer.h"

namespace menuapi::test {

inline constexpr int kIntraPicture = 1;
inline constexpr int kPredictedPicture = 2;
inline constexpr int kTopField = 1;
inline constexpr int kBottomField = 2;
inline constexpr int kFramePicture = 3;

// The values in the headers. The size may differ from that of the slices that follow.
struct StreamSettings {
  unsigned width = 32;
  unsigned height = 32;
  bool isProgressive = true;
  unsigned chromaFormat = 1;
  unsigned sizeExtensions = 0;  // two bits for the width, two for the height
  unsigned vectorSize = 15;     // the code for all four vector components
  bool isFrameDctOnly = true;
  bool hasVectors = false;
};

class StreamWriter {
 public:
  explicit StreamWriter(const StreamSettings& settings) : settings_(settings) {}

  void StartCode(unsigned code);
  void SequenceHeader();
  void SequenceExtension();
  void PictureHeader(int type);
  void PictureCodingExtension(int structure);
  // Writes 64 equal weights that replace the intra matrix.
  void MatrixExtension(unsigned weight);
  // Writes everything before the slices of a first picture with this structure.
  void Headers(int structure = kFramePicture);

  // Begins a slice. `information` is the extra information between the scale and the macroblocks.
  void Slice(unsigned row, unsigned scaleCode = 1, std::string_view information = "0");
  // Writes `head` (address increment, type, and the fields that depend on the type), then flat
  // blocks of these levels.
  void Macroblock(std::string_view head, int luma, int blue, int red);
  // Writes a slice with a full row of macroblocks, each two levels lighter than the one before.
  void FlatRow(unsigned row, int luma, int blue = 128, int red = 128);

  [[nodiscard]] BitWriter& Bits() { return bits_; }
  [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return bits_.Bytes(); }

 private:
  void FlatBlock(const std::array<std::string_view, 12>& sizeCodes, int level, int& predictor);

  StreamSettings settings_;
  BitWriter bits_;
  std::array<int, 3> predictors_{};
};

}  // namespace menuapi::test
