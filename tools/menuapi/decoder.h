// An MPEG-2 video stream that begins with an intra coded frame, to the samples of that frame. This
// is all that the rest of the player needs to know of the decoder, whose parts lie beside it.
#pragma once

#include <cstdint>
#include <span>

#include "menuapi/frame.h"

namespace menuapi {

enum class Result {
  Done,
  Damaged,  // some macroblocks could not be decoded and are black
  Refused,  // it is no such stream
};

// The size in the sequence header with which the stream must begin. False when it does not, or the
// size has no area.
[[nodiscard]] bool ReadFrameSize(std::span<const std::uint8_t> stream, FrameSize& size);

// Decodes the first frame into `planes`: luma, then blue and red chroma, PlanesBytes of the
// stream's size. What is beyond that is untouched, and all is when there is less room.
//
// A frame is one picture, or two fields. Where only the first field is intra coded or there at all,
// its lines are doubled: half the detail of a still picture is more than none. A frame that is
// refused is black. MPEG-1, other chroma formats, scalable streams, sizes of which the sequence
// header holds only a part and first pictures of other kinds are refused.
[[nodiscard]] Result DecodeFrame(std::span<const std::uint8_t> stream,
                                 std::span<std::uint8_t> planes);

}  // namespace menuapi
