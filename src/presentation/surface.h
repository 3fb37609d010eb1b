// The back buffer: the one off-screen picture that everything visible is drawn into. Made and given
// up by the presentation's doorway, on the worker thread, which alone uses it.
#pragma once

#include "presentation/gdi_plus.h"

namespace korvel {

// The picture, 720 x 576, 32 bits per pixel with alpha. Null while there is none.
[[nodiscard]] Gdiplus::GpBitmap* BackBuffer() noexcept;

// What draws on it. Null while there is none: a drawing routine then draws nothing.
[[nodiscard]] Gdiplus::GpGraphics* SurfaceGraphics() noexcept;

}  // namespace korvel
