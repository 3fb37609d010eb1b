// Reads a block's coefficients, puts them in scan order and dequantises them. ISO/IEC 13818-2, 7.2
// to 7.4, for intra blocks.
#pragma once

#include "menuapi/bit_reader.h"
#include "menuapi/inverse_dct.h"
#include "menuapi/picture.h"

namespace menuapi {

// Reads the blocks of one picture. Borrows the sequence, for its quantiser matrix.
class BlockReader {
 public:
  BlockReader(const Sequence& sequence, const Picture& picture);

  // The predictor of the first DC coefficient of a slice.
  [[nodiscard]] int InitialDc() const { return 1 << (7 + dcPrecision_); }

  // Reads a block. The DC coefficient is coded as the difference from `dc`, which is updated.
  // Returns false if the bits are not a valid block.
  [[nodiscard]] bool Read(BitReader& reader, const CodeTable<int>& dcSizes, int scale, int& dc,
                          Coefficients& block) const;

 private:
  [[nodiscard]] bool ReadDc(BitReader& reader, const CodeTable<int>& sizes, int& dc) const;
  [[nodiscard]] bool ReadAc(BitReader& reader, int scale, Coefficients& block) const;
  [[nodiscard]] int Dequantised(int level, std::size_t position, int scale) const;

  const CodeTable<RunLevel>& codes_;
  const ScanOrder& scan_;
  const QuantiserMatrix& matrix_;
  int dcPrecision_;
};

}  // namespace menuapi
