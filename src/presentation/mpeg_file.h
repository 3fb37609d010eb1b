// What an MPEG-2 video stream says of the size of its frames. Whoever decodes a stream takes the
// size from it once more, so one that can be read in two ways is not decoded at all. Portable.
#pragma once

#include <cstdint>
#include <string_view>

#include "presentation/yuv.h"

namespace korvel {

// The size in the sequence header that the stream begins with. False when it begins with none, when
// decoding and painting the frame could take more than `mostNs` nanoseconds of processor time, and
// when an extension adds to the size: a decoder would write a frame larger than the header says.
[[nodiscard]] bool FindFrameSize(std::string_view stream, std::uint64_t mostNs,
                                 FrameSize& size) noexcept;

}  // namespace korvel
