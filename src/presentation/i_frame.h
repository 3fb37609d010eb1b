// Pictures that are MPEG-2 I-frames. The frame itself is decoded by the host's library MenuAPI,
// which wants the stream in a file.
#pragma once

#include <cstdint>
#include <string_view>

#include "presentation/gdi_plus.h"

namespace korvel {

// Decodes a stream in memory by way of the temporary file. False when there is no image, and when
// it could take more than `mostNs` nanoseconds of processor time to decode and paint.
[[nodiscard]] bool DecodeIFrame(std::string_view stream, std::uint64_t mostNs,
                                BitmapOwner& image) noexcept;

// The same for the stream in a file.
[[nodiscard]] bool DecodeIFrameFile(const char* path, std::uint64_t mostNs,
                                    BitmapOwner& image) noexcept;

// Decodes the stream in a file and saves the picture as a PNG file. False when it could not be.
[[nodiscard]] bool ConvertIFrameToPng(const char* source, const char* target) noexcept;

}  // namespace korvel
