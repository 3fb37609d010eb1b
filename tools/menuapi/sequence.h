// The fields of a sequence header and its extension, which apply to all pictures: ISO/IEC 13818-2,
// 6.2.2. The quantiser matrix is included, although an extension of a picture may change it.
#pragma once

#include "menuapi/bit_reader.h"
#include "menuapi/quantiser.h"

namespace menuapi {

struct FrameSize {
  int width = 0;
  int height = 0;

  friend bool operator==(const FrameSize&, const FrameSize&) = default;
};

struct Sequence {
  FrameSize size;
  bool isProgressive = false;  // all pictures are progressive frames
  QuantiserMatrix intraMatrix{};
};

// Reads the sequence header. Returns false if width or height is 0 or the matrix is invalid.
[[nodiscard]] bool ReadSequenceHeader(BitReader& reader, Sequence& sequence);

// Reads the sequence extension, after its identifier. Returns false for chroma formats other than
// 4:2:0, and for sizes above 4095: the header, and so the caller's buffer, covers only part of
// those.
[[nodiscard]] bool ReadSequenceExtension(BitReader& reader, Sequence& sequence);

// Reads the quantiser matrix extension, after its identifier. Returns false if the matrix is
// invalid.
[[nodiscard]] bool ReadMatrixExtension(BitReader& reader, Sequence& sequence);

}  // namespace menuapi
