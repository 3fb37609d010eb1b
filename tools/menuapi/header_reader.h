// Reads the headers before the slices of a picture and checks their order. sequence.h and picture.h
// read the fields of each header.
#pragma once

#include "menuapi/picture.h"
#include "menuapi/sequence.h"
#include "menuapi/start_codes.h"

namespace menuapi {

class HeaderReader {
 public:
  // Reads from the current unit to the first slice of the next picture. Returns false if there is
  // no such picture, or if it cannot be decoded: not MPEG-2, not intra coded, not 4:2:0, or
  // scalable.
  [[nodiscard]] bool ReadToSlices(StartCodes& units);

  [[nodiscard]] const Sequence& CurrentSequence() const { return sequence_; }
  [[nodiscard]] const Picture& CurrentPicture() const { return picture_; }

 private:
  // The required header that was read last.
  enum class Stage { Nothing, SequenceHeader, Sequence, PictureHeader, Picture };

  [[nodiscard]] bool Take(const Unit& unit);
  [[nodiscard]] bool TakeSequenceHeader(BitReader& reader);
  [[nodiscard]] bool TakePictureHeader(BitReader& reader);
  [[nodiscard]] bool TakeExtension(BitReader& reader);

  Stage stage_ = Stage::Nothing;
  Sequence sequence_;
  Picture picture_;
};

}  // namespace menuapi
