// The headers before a picture's slices, in the order in which they have to come. What the fields
// of each mean is said in sequence.h and picture.h.
#pragma once

#include "menuapi/picture.h"
#include "menuapi/sequence.h"
#include "menuapi/start_codes.h"

namespace menuapi {

class HeaderReader {
 public:
  // Reads on, from the unit at hand to the first slice of the next picture. False when there is
  // none, or it cannot be decoded: no MPEG-2, not intra coded, not 4:2:0, scalable.
  [[nodiscard]] bool ReadToSlices(StartCodes& units);

  [[nodiscard]] const Sequence& CurrentSequence() const { return sequence_; }
  [[nodiscard]] const Picture& CurrentPicture() const { return picture_; }

 private:
  // What has been read last of what must not be missing.
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
