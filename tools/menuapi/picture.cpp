// Reads the fields in stream order and skips those that an intra picture does not need. Marker bits
// are not checked: nothing depends on them.
#include "menuapi/picture.h"

#include <algorithm>

namespace menuapi {
namespace {

constexpr std::uint32_t kIntraCoded = 1;
constexpr int kMaxVectorSizeCode = 9;

// Reads the size codes of forward vectors and skips those of backward vectors, which an intra
// picture never uses. Forward codes need not be valid if the picture has no vectors.
void ReadVectorSizes(BitReader& reader, std::array<int, 2>& restBits) {
  for (int& bits : restBits) bits = static_cast<int>(reader.Read(4)) - 1;
  reader.Skip(4 + 4);
}

bool AreVectorSizesValid(const Picture& picture) {
  return !picture.hasVectors ||
         std::all_of(picture.vectorRestBits.begin(), picture.vectorRestBits.end(),
                     [](int bits) { return bits >= 0 && bits < kMaxVectorSizeCode; });
}

// The number of units that cover the length.
int UnitsIn(int length, int unit) { return (length + unit - 1) / unit; }

}  // namespace

bool ReadPictureHeader(BitReader& reader) {
  reader.Skip(10);  // position in the group of pictures
  return reader.Read(3) == kIntraCoded && !reader.HasPassedEnd();
}

bool ReadPictureCodingExtension(BitReader& reader, const Sequence& sequence, Picture& picture) {
  ReadVectorSizes(reader, picture.vectorRestBits);
  picture.dcPrecision = static_cast<int>(reader.Read(2));
  const std::uint32_t structure = reader.Read(2);
  reader.Skip(1);  // top field first
  const bool usesOnlyFrameDct = reader.ReadFlag();
  picture.hasVectors = reader.ReadFlag();
  picture.scaleType = reader.ReadFlag() ? ScaleType::NonLinear : ScaleType::Linear;
  picture.coefficientTable = reader.ReadFlag() ? CoefficientTable::One : CoefficientTable::Zero;
  picture.usesAlternateScan = reader.ReadFlag();
  if (reader.HasPassedEnd() || structure == 0) return false;
  picture.structure = static_cast<PictureStructure>(structure);
  picture.hasDctTypes = !picture.IsField() && !usesOnlyFrameDct;
  return AreVectorSizesValid(picture) && !(sequence.isProgressive && picture.IsField());
}

int MacroblockColumns(const Sequence& sequence) {
  return UnitsIn(sequence.size.width, kMacroblockSide);
}

int MacroblockRows(const Sequence& sequence, const Picture& picture) {
  if (sequence.isProgressive) return UnitsIn(sequence.size.height, kMacroblockSide);
  // Each field is padded to whole macroblocks separately.
  const int fieldRows = UnitsIn(sequence.size.height, 2 * kMacroblockSide);
  return picture.IsField() ? fieldRows : 2 * fieldRows;
}

}  // namespace menuapi
