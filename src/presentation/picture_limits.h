// How much decoding a picture may ask for. Decoders make room for the size that a file claims and
// work through whatever is in it, so that a few kilobytes could keep one busy for minutes.
#pragma once

#include <cstdint>

namespace korvel {

// The largest picture of broadcast television, in pixels: five scenes. Decoding as many takes up to
// half a second, and a redraw is to end within one.
inline constexpr std::uint64_t kLargestPicture = std::uint64_t{1920} * 1152;

// Neither side is 0 and the picture is not too large. Sides of any 32-bit size may be given.
[[nodiscard]] constexpr bool IsDecodableSize(std::uint64_t width, std::uint64_t height) noexcept {
  return width > 0 && height > 0 && width * height <= kLargestPicture;
}

// A progressive JPEG picture comes in about ten scans, one of four inks in 18. Each one goes over
// the whole picture, which takes 20 ms at the largest size, and an empty one has 14 bytes.
inline constexpr int kMostScans = 18;

// Decoders take their time for each chunk of a PNG picture, whatever is in it. Encoders write its
// pixels in chunks of 8 kilobytes and more, of which the largest picture needs about 1000.
inline constexpr int kMostChunks = 2048;

}  // namespace korvel
