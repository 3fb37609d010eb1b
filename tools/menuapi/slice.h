// The slices of a picture and the macroblocks in them, up to the samples in the frame. ISO/IEC
// 13818-2, 6.2.4 to 6.2.6.
#pragma once

#include <array>
#include <vector>

#include "menuapi/block.h"
#include "menuapi/frame.h"
#include "menuapi/start_codes.h"

namespace menuapi {

class SliceDecoder {
 public:
  // For one picture. Borrows all three.
  SliceDecoder(const Sequence& sequence, const Picture& picture, Frame& frame);

  // Decodes the intact part of a slice. Macroblocks that are decoded already are not decoded again,
  // so that a stream that repeats itself costs no extra time.
  void Decode(const Unit& slice);

  // Whether every macroblock of the picture has been decoded.
  [[nodiscard]] bool IsWhole() const { return decoded_ == isDecoded_.size(); }

 private:
  // The values that a macroblock passes to the next one of the slice.
  struct Progress {
    int row = 0;
    int column = -1;
    int scale = 0;
    std::array<int, kComponents> dc{};
  };
  [[nodiscard]] bool ReadSliceHeader(std::uint8_t code, BitReader& reader, Progress& at) const;
  [[nodiscard]] bool ReadScale(BitReader& reader, Progress& at) const;
  [[nodiscard]] bool TakeNext(BitReader& reader, Progress& at);
  [[nodiscard]] bool DecodeMacroblock(BitReader& reader, Progress& at);
  [[nodiscard]] bool DecodeBlocks(BitReader& reader, bool isFieldDct, Progress& at);
  [[nodiscard]] bool SkipVectors(BitReader& reader) const;
  [[nodiscard]] BlockPlace LumaPlace(const Progress& at, int block, bool isFieldDct);
  [[nodiscard]] BlockPlace ChromaPlace(const Progress& at, Component component);

  const Sequence& sequence_;
  const Picture& picture_;
  Frame& frame_;
  BlockReader blocks_;
  int columns_;
  int rows_;
  std::vector<bool> isDecoded_;  // decoded already, row by row
  std::size_t decoded_ = 0;
};

}  // namespace menuapi
