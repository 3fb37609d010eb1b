// What an MPEG-2 video stream says of the size of its frames. Whoever decodes a stream takes the
// size from it once more, so one that can be read in two ways is not decoded at all. Portable.
#pragma once

#include <string_view>

#include "presentation/yuv.h"

namespace korvel {

// The size in the sequence header that the stream begins with. False when it begins with none, when
// the size is none that is decoded, and when an extension adds to it: a decoder would write a frame
// larger than the header says.
[[nodiscard]] bool FindFrameSize(std::string_view stream, FrameSize& size) noexcept;

}  // namespace korvel
