// Reads the headers and slices of one frame picture or two field pictures. A picture ends at the
// first unit that is not a slice.
#include "menuapi/decoder.h"

#include "menuapi/header_reader.h"
#include "menuapi/slice.h"

namespace menuapi {
namespace {

// Decodes the current picture's slices into the frame. Returns false if part of it is missing.
bool DecodePicture(StartCodes& units, const HeaderReader& headers, Frame& frame) {
  SliceDecoder slices(headers.CurrentSequence(), headers.CurrentPicture(), frame);
  for (; units.Current().IsSlice(); units.Advance()) slices.Decode(units.Current());
  return slices.IsWhole();
}

bool IsOtherField(PictureStructure one, PictureStructure other) {
  return other != PictureStructure::Frame && other != one;
}

// Returns false if there is a second field and part of it is missing.
bool DecodeSecondField(StartCodes& units, HeaderReader& headers, Frame& frame) {
  const PictureStructure first = headers.CurrentPicture().structure;
  if (headers.ReadToSlices(units) && IsOtherField(first, headers.CurrentPicture().structure)) {
    return DecodePicture(units, headers, frame);
  }
  frame.DoubleLines(first);
  return true;
}

}  // namespace

bool ReadFrameSize(std::span<const std::uint8_t> stream, FrameSize& size) {
  constexpr std::size_t kPrefixAndSize = 7;
  if (stream.size() < kPrefixAndSize) return false;
  BitReader reader(stream);
  if (reader.Read(32) != (1U << 8 | kSequenceHeader)) return false;
  size.width = static_cast<int>(reader.Read(12));
  size.height = static_cast<int>(reader.Read(12));
  return size.width > 0 && size.height > 0;
}

Result DecodeFrame(std::span<const std::uint8_t> stream, std::span<std::uint8_t> planes) {
  FrameSize size;
  if (!ReadFrameSize(stream, size) || planes.size() < PlanesBytes(size)) return Result::Rejected;
  FillBlack(size, planes);
  StartCodes units(stream);
  HeaderReader headers;
  if (!headers.ReadToSlices(units)) return Result::Rejected;
  Frame frame(headers.CurrentSequence());
  bool isWhole = DecodePicture(units, headers, frame);
  if (headers.CurrentPicture().IsField()) {
    isWhole = DecodeSecondField(units, headers, frame) && isWhole;
  }
  frame.CopyTo(size, planes);
  return isWhole ? Result::Done : Result::Damaged;
}

}  // namespace menuapi
