// The cache of the pictures that the library carries itself. They are decoded on first use and stay
// until the engine restarts or closes.
#pragma once

#include <string_view>

#include "presentation/gdi_plus.h"

namespace korvel {

// The named picture; null when the library does not carry it.
[[nodiscard]] Gdiplus::GpImage* NamedImage(std::string_view name);

}  // namespace korvel
