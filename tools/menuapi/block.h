// A block's coefficients: read, put in their places and multiplied out. ISO/IEC 13818-2, 7.2 to
// 7.4, for intra blocks.
#pragma once

#include "menuapi/bit_reader.h"
#include "menuapi/inverse_dct.h"
#include "menuapi/picture.h"

namespace menuapi {

// Reads the blocks of one picture. Borrows the codes and the matrix.
class BlockReader {
 public:
  BlockReader(const Sequence& sequence, const Picture& picture);

  // What the first DC coefficient of a slice is a difference to.
  [[nodiscard]] int InitialDc() const { return 1 << (7 + dcPrecision_); }

  // Reads a block. The DC coefficient is coded as the difference to `dc`, which it then becomes.
  // False when the bits are none of a block's.
  [[nodiscard]] bool Read(BitReader& reader, const CodeTable<int>& dcSizes, int scale, int& dc,
                          Coefficients& block) const;

 private:
  [[nodiscard]] bool ReadDc(BitReader& reader, const CodeTable<int>& sizes, int& dc) const;
  [[nodiscard]] bool ReadAc(BitReader& reader, int scale, Coefficients& block) const;
  [[nodiscard]] int Multiplied(int level, std::size_t place, int scale) const;

  const CodeTable<RunLevel>& codes_;
  const ScanOrder& scan_;
  const QuantiserMatrix& matrix_;
  int dcPrecision_;
};

}  // namespace menuapi
