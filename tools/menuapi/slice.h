// Decodes the slices of a picture and their macroblocks to samples in the frame. ISO/IEC 13818-2,
// 6.2.4 to 6.2.6.
#pragma once

#include <array>
#include <vector>

#include "menuapi/block.h"
#include "menuapi/frame.h"
#include "menuapi/start_codes.h"

namespace menuapi {

class SliceDecoder {
 public:
  // Decodes one picture. Borrows all three arguments.
  SliceDecoder(const Sequence& sequence, const Picture& picture, Frame& frame);

  // Decodes a slice up to its first error. A macroblock that has already been decoded ends the
  // slice, so that a stream that repeats slices costs no extra time.
  void Decode(const Unit& slice);

  // Whether every macroblock of the picture has been decoded.
  [[nodiscard]] bool IsWhole() const { return decoded_ == isDecoded_.size(); }

 private:
  // State carried from one macroblock of a slice to the next.
  struct Progress {
    int row = 0;
    int column = -1;
    int scale = 0;
    std::array<int, kComponents> dc{};
  };
  [[nodiscard]] bool ReadSliceHeader(std::uint8_t code, BitReader& reader, Progress& at) const;
  [[nodiscard]] bool ReadScale(BitReader& reader, Progress& at) const;
  [[nodiscard]] bool MoveToNext(BitReader& reader, Progress& at);
  [[nodiscard]] bool DecodeMacroblock(BitReader& reader, Progress& at);
  [[nodiscard]] bool DecodeBlocks(BitReader& reader, bool isFieldDct, Progress& at);
  [[nodiscard]] bool SkipVectors(BitReader& reader) const;
  [[nodiscard]] SampleLines LumaBlock(const Progress& at, int block, bool isFieldDct);
  [[nodiscard]] SampleLines ChromaBlock(const Progress& at, Component component);

  const Sequence& sequence_;
  const Picture& picture_;
  Frame& frame_;
  BlockReader blocks_;
  int columns_;
  int rows_;
  std::vector<bool> isDecoded_;  // per macroblock, row by row
  std::size_t decoded_ = 0;
};

}  // namespace menuapi
