// Reads the fields in stream order and skips those that a single picture does not need (rates,
// buffer size, aspect ratio).
#include "menuapi/sequence.h"

namespace menuapi {
namespace {

constexpr std::uint32_t kChroma420 = 1;

bool ReadIntraMatrix(BitReader& reader, const QuantiserMatrix& otherwise, QuantiserMatrix& matrix) {
  if (reader.ReadFlag()) return ReadMatrix(reader, matrix);
  matrix = otherwise;
  return true;
}

}  // namespace

bool ReadSequenceHeader(BitReader& reader, Sequence& sequence) {
  sequence.size.width = static_cast<int>(reader.Read(12));
  sequence.size.height = static_cast<int>(reader.Read(12));
  reader.Skip(4 + 4);        // aspect ratio, frame rate
  reader.Skip(18 + 1 + 10);  // bit rate, marker, buffer size
  reader.Skip(1);            // constrained parameters
  // The matrix for non-intra blocks is not needed.
  return ReadIntraMatrix(reader, DefaultIntraMatrix(), sequence.intraMatrix) &&
         !reader.HasPassedEnd() && sequence.size.width > 0 && sequence.size.height > 0;
}

bool ReadSequenceExtension(BitReader& reader, Sequence& sequence) {
  reader.Skip(8);  // profile and level
  sequence.isProgressive = reader.ReadFlag();
  const std::uint32_t chromaFormat = reader.Read(2);
  const std::uint32_t sizeExtensions = reader.Read(2 + 2);
  return chromaFormat == kChroma420 && sizeExtensions == 0 && !reader.HasPassedEnd();
}

bool ReadMatrixExtension(BitReader& reader, Sequence& sequence) {
  // The matrices that follow are not needed: chroma has its own only in formats other than 4:2:0.
  return ReadIntraMatrix(reader, sequence.intraMatrix, sequence.intraMatrix) &&
         !reader.HasPassedEnd();
}

}  // namespace menuapi
