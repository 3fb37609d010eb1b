// Decodes the first frame of an MPEG-2 video stream, if it is intra coded, to samples. The doorway
// of this folder.
#pragma once

#include <cstdint>
#include <span>

#include "menuapi/frame.h"

namespace menuapi {

enum class Result {
  Done,
  Damaged,  // some macroblocks could not be decoded and are black
  Refused,  // the stream is not one that is decoded
};

// Reads the size in the sequence header at the start of the stream. False if there is none, or if
// the size has no area.
[[nodiscard]] bool ReadFrameSize(std::span<const std::uint8_t> stream, FrameSize& size);

// Decodes the first frame into `planes`: luma, then blue and red chroma, PlanesBytes of the
// stream's size. Bytes after those are unchanged; if there is less room, all bytes are.
//
// A frame is one picture or two fields. If only the first field exists or is intra coded, its lines
// are doubled: half the detail of a still picture is better than none. A refused frame is black.
// Refused are MPEG-1, chroma formats other than 4:2:0, scalable streams, sizes that do not fit in
// the sequence header, and streams whose first picture is of another kind.
[[nodiscard]] Result DecodeFrame(std::span<const std::uint8_t> stream,
                                 std::span<std::uint8_t> planes);

}  // namespace menuapi
