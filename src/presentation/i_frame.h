// Pictures that are MPEG-2 I-frames. The frame itself is decoded by the host's library MenuAPI,
// which wants the stream in a file.
#pragma once

#include <string_view>

#include "presentation/gdi_plus.h"

namespace korvel {

// Decodes a stream in memory by way of the temporary file. False when there is no image.
[[nodiscard]] bool DecodeIFrame(std::string_view stream, BitmapOwner& image) noexcept;

// Decodes the stream in a file. False when it is no MPEG sequence, or nothing can decode it.
[[nodiscard]] bool DecodeIFrameFile(const char* path, BitmapOwner& image) noexcept;

// Decodes the stream in a file and saves the picture as a PNG file. False when it could not be.
[[nodiscard]] bool ConvertIFrameToPng(const char* source, const char* target) noexcept;

}  // namespace korvel
