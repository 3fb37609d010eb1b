// Saving an image as a picture file of a given kind.
#pragma once

#include "presentation/gdi_plus.h"

namespace korvel {

// The class of the GDI+ encoder for a MIME type ("image/png", "image/bmp"). False when there is
// none.
[[nodiscard]] bool FindEncoder(const WCHAR* mimeType, CLSID& encoder);

[[nodiscard]] bool SaveImage(Gdiplus::GpImage* image, const WCHAR* mimeType, const char* path);

}  // namespace korvel
