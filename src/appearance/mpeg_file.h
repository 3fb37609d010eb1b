// The size of the frames of an MPEG-2 video stream. The decoder reads the size from the stream
// again, so a stream whose size can be read in two ways is not decoded at all. Portable.
#pragma once

#include <string_view>

#include "appearance/yuv.h"

namespace korvel {

// The size in the sequence header that the stream begins with. False, with `size` unchanged, when
// it begins with none, when the stream or the frame is beyond the limits on pictures, and when an
// extension adds to the size: a decoder would write a frame larger than the header says.
[[nodiscard]] bool FindFrameSize(std::string_view stream, FrameSize& size);

}  // namespace korvel
