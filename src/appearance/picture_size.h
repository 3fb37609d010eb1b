// The limits on pictures, and a look at the size that a picture file claims. Portable.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/limits.h"

namespace korvel {

// Whether a picture of that size, in pixels, is decoded. Sides of any 32-bit size may be given.
[[nodiscard]] constexpr bool IsDecodableSize(std::uint64_t width, std::uint64_t height) {
  return width > 0 && height > 0 && width * height <= kMostPicturePixels;
}

// Whether a file may be given to GDI+: it is not too long, and if it is a PNG, GIF, BMP or JPEG
// file, the size in its header and the scans of a JPEG are within the limits. Files of other
// formats are not looked into. Under Wine GDI+ decodes a picture as soon as it loads it, so its
// size must be known before.
[[nodiscard]] bool MayBeDecoded(std::string_view file);

}  // namespace korvel
