// Reads the fields in stream order and skips those that an intra picture does not need. Marker bits
// are not checked: nothing depends on them.
#include "menuapi/picture.h"

#include <algorithm>

namespace menuapi {
namespace {

constexpr std::uint32_t kIntraCoded = 1;
constexpr int kMaxVectorSizeCode = 9;

// Reads the size codes of forward vectors and skips those of backward vectors, which an intra
// picture never uses. Forward codes must be valid only if the picture has vectors.
void ReadVectorSizes(BitReader& reader, std::array<int, 2>& restBits) {
  for (int& bits : restBits) bits = static_cast<int>(reader.Read(4)) - 1;
  reader.Skip(4 + 4);
}

bool AreVectorSizesRight(const Picture& picture) {
  return !picture.hasVectors ||
         std::all_of(picture.vectorRestBits.begin(), picture.vectorRestBits.end(),
                     [](int bits) { return bits >= 0 && bits < kMaxVectorSizeCode; });
}

int Rounded(int lines, int unit) { return (lines + unit - 1) / unit; }

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
  const bool areAllDctsOfFrame = reader.ReadFlag();
  picture.hasVectors = reader.ReadFlag();
  picture.scaleType = reader.ReadFlag() ? ScaleType::NonLinear : ScaleType::Linear;
  picture.coefficientTable = reader.ReadFlag() ? CoefficientTable::One : CoefficientTable::Zero;
  picture.usesAlternateScan = reader.ReadFlag();
  if (reader.HasPassedEnd() || structure == 0) return false;
  picture.structure = static_cast<PictureStructure>(structure);
  picture.hasDctTypes = !picture.IsField() && !areAllDctsOfFrame;
  return AreVectorSizesRight(picture) && !(sequence.isProgressive && picture.IsField());
}

int MacroblockColumns(const Sequence& sequence) {
  return Rounded(sequence.size.width, kMacroblockSide);
}

int MacroblockRows(const Sequence& sequence, const Picture& picture) {
  if (sequence.isProgressive) return Rounded(sequence.size.height, kMacroblockSide);
  // Each field is padded to whole macroblocks separately.
  const int fieldRows = Rounded(sequence.size.height, 2 * kMacroblockSide);
  return picture.IsField() ? fieldRows : 2 * fieldRows;
}

}  // namespace menuapi
