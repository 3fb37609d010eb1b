// Decodes the first frame of an MPEG-2 video stream to samples, if it is intra coded. The doorway
// of this folder.
#pragma once

#include <cstdint>
#include <span>

#include "menuapi/frame.h"

namespace menuapi {

enum class Result {
  Done,
  Damaged,   // some macroblocks could not be decoded and are black
  Rejected,  // the stream is not supported, or the buffer is too small
};

// Reads the size from the sequence header at the start of the stream. Returns false if there is no
// such header, or if width or height is 0.
[[nodiscard]] bool ReadFrameSize(std::span<const std::uint8_t> stream, FrameSize& size);

// Decodes the first frame into `planes`: luma, then blue chroma, then red chroma, PlanesBytes() of
// the stream's size in all. Later bytes stay unchanged. If `planes` is too small, all bytes stay
// unchanged.
//
// A frame is one picture or two fields. If only the first field exists or is intra coded, its lines
// are doubled: half the detail of a still picture is better than none. A rejected frame is
// black. The decoder rejects MPEG-1, chroma formats other than 4:2:0, scalable streams, sizes that
// do not fit in the sequence header, and streams whose first picture is not intra coded.
[[nodiscard]] Result DecodeFrame(std::span<const std::uint8_t> stream,
                                 std::span<std::uint8_t> planes);

}  // namespace menuapi
