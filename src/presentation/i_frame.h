// Pictures that are MPEG-2 I-frames. The host's library MenuAPI decodes the frame; it reads the
// stream from a file. Worker thread only.
#pragma once

#include <string_view>

#include "presentation/gdi_plus.h"

namespace korvel {

// Writes a stream to the temporary file, which each call overwrites, and decodes it. False, with
// `image` unchanged, if that fails.
[[nodiscard]] bool DecodeIFrame(std::string_view stream, BitmapOwner& image);

// Determines the path of the temporary file. Called when the presentation opens.
void FindTemporaryFolder();

// Unloads the host's library if it was loaded. Called when the presentation closes.
void ReleaseDecoder();

// ---- Saving pictures. The engine never calls these: developers convert pictures in advance. ----

// Decodes the stream in a file and saves the picture as a PNG file.
[[nodiscard]] bool ConvertIFrameToPng(const char* source, const char* target);

// Finds the class of the GDI+ encoder for a MIME type ("image/png", "image/bmp"). False if there is
// none.
[[nodiscard]] bool FindEncoder(const WCHAR* mimeType, CLSID& encoder);

[[nodiscard]] bool SaveImage(Gdiplus::GpImage* image, const WCHAR* mimeType, const char* path);

}  // namespace korvel
