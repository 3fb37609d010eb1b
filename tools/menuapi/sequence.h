// What a sequence header and its extension say of all pictures: ISO/IEC 13818-2, 6.2.2. The
// quantiser matrix is here too, although an extension of a picture may change it.
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
  bool isProgressive = false;  // no picture of it is a field, or interlaced
  QuantiserMatrix intraMatrix{};
};

// Reads the sequence header. False when the size is 0 or the matrix is none.
[[nodiscard]] bool ReadSequenceHeader(BitReader& reader, Sequence& sequence);

// Reads the sequence extension, behind its identifier. False for anything but 4:2:0, and for sizes
// above 4095, of which the header, and so the caller's buffer, knows only a part.
[[nodiscard]] bool ReadSequenceExtension(BitReader& reader, Sequence& sequence);

// Reads the quantiser matrix extension, behind its identifier. False when the matrix is none.
[[nodiscard]] bool ReadMatrixExtension(BitReader& reader, Sequence& sequence);

}  // namespace menuapi
