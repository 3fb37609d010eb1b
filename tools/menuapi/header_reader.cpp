// Checks the order of the headers and reads the extensions that an intra picture needs. An
// extension belongs to the header before it.
#include "menuapi/header_reader.h"

namespace menuapi {
namespace {

// ISO/IEC 13818-2, table 6-2.
enum ExtensionIdentifier : std::uint32_t {
  kSequenceExtension = 1,
  kMatrixExtension = 3,
  kScalableSequence = 5,
  kPictureCodingExtension = 8,
};

}  // namespace

bool HeaderReader::ReadToSlices(StartCodes& units) {
  for (; !units.IsAtEnd(); units.Advance()) {
    if (units.Current().IsSlice()) return stage_ == Stage::Picture;
    if (!Take(units.Current())) return false;
  }
  return false;
}

bool HeaderReader::Take(const Unit& unit) {
  BitReader reader(unit.payload);
  switch (unit.code) {
  case kSequenceHeader: return TakeSequenceHeader(reader);
  case kExtension: return TakeExtension(reader);
  case kPictureStart: return TakePictureHeader(reader);
  case kSequenceEnd: return false;
  default: return true;  // group-of-pictures headers and user data: not needed
  }
}

// The header may be repeated, but only with the same size: the caller's buffer has the size of the
// first one.
bool HeaderReader::TakeSequenceHeader(BitReader& reader) {
  const FrameSize known = sequence_.size;
  const bool isFirst = stage_ == Stage::Nothing;
  stage_ = Stage::SequenceHeader;
  return ReadSequenceHeader(reader, sequence_) && (isFirst || sequence_.size == known);
}

bool HeaderReader::TakePictureHeader(BitReader& reader) {
  if (stage_ != Stage::Sequence && stage_ != Stage::Picture) return false;
  stage_ = Stage::PictureHeader;
  return ReadPictureHeader(reader);
}

bool HeaderReader::TakeExtension(BitReader& reader) {
  switch (reader.Read(4)) {
  case kSequenceExtension:
    if (stage_ != Stage::SequenceHeader) return false;
    stage_ = Stage::Sequence;
    return ReadSequenceExtension(reader, sequence_);
  case kPictureCodingExtension:
    if (stage_ != Stage::PictureHeader) return false;
    stage_ = Stage::Picture;
    return ReadPictureCodingExtension(reader, sequence_, picture_);
  case kMatrixExtension: return stage_ == Stage::Picture && ReadMatrixExtension(reader, sequence_);
  case kScalableSequence: return false;
  default: return true;  // display, copyright and similar: not needed
  }
}

}  // namespace menuapi
