// Pictures that are MPEG-2 I-frames. The frame itself is decoded by the host's library MenuAPI,
// which reads the stream from a file. Worker thread only.
#pragma once

#include <string_view>

#include "presentation/gdi_plus.h"

namespace korvel {

// Decodes a stream in memory by way of the temporary file, which is rewritten for each. False, with
// `image` unchanged, when there is no image.
[[nodiscard]] bool DecodeIFrame(std::string_view stream, BitmapOwner& image);

// Decodes the stream in a file and saves the picture as a PNG file. False when it could not be.
// Nothing in the engine calls it: it is there for preparing bitmaps ahead.
[[nodiscard]] bool ConvertIFrameToPng(const char* source, const char* target);

// Finds the folder for temporary files; called as the presentation opens.
void FindTemporaryFolder();

// Unloads the host's library if it was needed; called as the presentation closes.
void ReleaseDecoder();

}  // namespace korvel
