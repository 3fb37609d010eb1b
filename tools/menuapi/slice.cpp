// Reads slices and macroblocks, and computes where their blocks are in the frame. An error ends the
// slice but keeps the macroblocks decoded so far.
#include "menuapi/slice.h"

#include "menuapi/macroblock_codes.h"

namespace menuapi {
namespace {

constexpr int kLumaBlocks = 4;
constexpr int kTallHeight = 2800;  // above this, slices have three more bits for their row
constexpr int kSliceEndBits = 23;  // a run of this many zeros occurs only in a start code

// A bit of 1 precedes each extra byte. The first byte holds flags, none of which is needed.
void SkipExtraInformation(BitReader& reader) {
  while (reader.ReadFlag()) reader.Skip(8);
}

// Reads the distance to the next macroblock. Returns false if the bits are invalid, or if escapes
// alone reach `limit`.
bool ReadIncrement(BitReader& reader, int limit, int& increment) {
  increment = 0;
  while (increment < limit) {
    const int* code = AddressIncrementCodes().Read(reader);
    if (code == nullptr) return false;
    if (*code != kIncrementEscape) {
      increment += *code;
      return true;
    }
    increment += kIncrementOfEscape;
  }
  return false;
}

bool SkipVector(BitReader& reader, int restBits) {
  const int* code = MotionCodes().Read(reader);
  if (code == nullptr) return false;
  if (*code != 0) reader.Skip(1 + restBits);
  return true;
}

}  // namespace

SliceDecoder::SliceDecoder(const Sequence& sequence, const Picture& picture, Frame& frame)
    : sequence_(sequence),
      picture_(picture),
      frame_(frame),
      blocks_(sequence, picture),
      columns_(MacroblockColumns(sequence)),
      rows_(MacroblockRows(sequence, picture)),
      isDecoded_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

void SliceDecoder::Decode(const Unit& slice) {
  BitReader reader(slice.payload);
  Progress at;
  if (!ReadSliceHeader(slice.code, reader, at)) return;
  do {
    if (!MoveToNext(reader, at) || !DecodeMacroblock(reader, at)) return;
    ++decoded_;
  } while (reader.Peek(kSliceEndBits) != 0);
}

bool SliceDecoder::ReadSliceHeader(std::uint8_t code, BitReader& reader, Progress& at) const {
  at.row = code - kFirstSlice;
  if (sequence_.size.height > kTallHeight) at.row += static_cast<int>(reader.Read(3)) << 7;
  at.dc.fill(blocks_.InitialDc());
  if (at.row >= rows_ || !ReadScale(reader, at)) return false;
  SkipExtraInformation(reader);
  return !reader.HasPassedEnd();
}

bool SliceDecoder::ReadScale(BitReader& reader, Progress& at) const {
  at.scale = QuantiserScale(reader.Read(5), picture_.scaleType);
  return at.scale != 0;
}

// Moves to the next macroblock. A slice of an intra picture skips macroblocks only at its start.
bool SliceDecoder::MoveToNext(BitReader& reader, Progress& at) {
  const int limit = at.column < 0 ? columns_ : 1;
  int increment = 0;
  if (!ReadIncrement(reader, limit, increment) || increment > limit) return false;
  at.column += increment;
  if (at.column >= columns_) return false;
  const auto index = static_cast<std::size_t>(at.row) * static_cast<std::size_t>(columns_) +
                     static_cast<std::size_t>(at.column);
  if (isDecoded_[index]) return false;
  isDecoded_[index] = true;
  return true;
}

bool SliceDecoder::DecodeMacroblock(BitReader& reader, Progress& at) {
  const int* hasScale = IntraTypeCodes().Read(reader);
  if (hasScale == nullptr) return false;
  const bool isFieldDct = picture_.hasDctTypes && reader.ReadFlag();
  if (*hasScale != 0 && !ReadScale(reader, at)) return false;
  if (picture_.hasVectors && !SkipVectors(reader)) return false;
  return DecodeBlocks(reader, isFieldDct, at);
}

bool SliceDecoder::SkipVectors(BitReader& reader) const {
  if (picture_.IsField()) reader.Skip(1);  // which field the vector points into
  for (const int restBits : picture_.vectorRestBits) {
    if (!SkipVector(reader, restBits)) return false;
  }
  reader.Skip(1);  // marker
  return true;
}

bool SliceDecoder::DecodeBlocks(BitReader& reader, bool isFieldDct, Progress& at) {
  Coefficients block;
  for (int index = 0; index < kLumaBlocks; ++index) {
    if (!blocks_.Read(reader, LumaDcSizeCodes(), at.scale, at.dc[kLuma], block)) return false;
    Put(InverseDct(block), LumaBlock(at, index, isFieldDct));
  }
  for (const Component component : {kChromaBlue, kChromaRed}) {
    if (!blocks_.Read(reader, ChromaDcSizeCodes(), at.scale, at.dc[component], block)) return false;
    Put(InverseDct(block), ChromaBlock(at, component));
  }
  return true;
}

SampleLines SliceDecoder::LumaBlock(const Progress& at, int block, bool isFieldDct) {
  const SampleLines lines = frame_.Lines(kLuma, picture_.structure);
  const int x = at.column * kMacroblockSide + block % 2 * kBlockSide;
  const int y = at.row * kMacroblockSide;
  const int lower = block / 2;  // 1: the lower half, or with field DCT the odd lines
  if (isFieldDct) return {lines.At(x, y + lower), 2 * lines.step};
  return {lines.At(x, y + lower * kBlockSide), lines.step};
}

// Each chroma component has one block per macroblock, which is never split into fields.
SampleLines SliceDecoder::ChromaBlock(const Progress& at, Component component) {
  const SampleLines lines = frame_.Lines(component, picture_.structure);
  return {lines.At(at.column * kBlockSide, at.row * kBlockSide), lines.step};
}

}  // namespace menuapi
