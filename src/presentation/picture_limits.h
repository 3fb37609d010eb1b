// How much decoding a picture may ask for. Decoders make room for the size that a file claims and
// work through whatever is in it, so that a few kilobytes could keep one busy for minutes.
#pragma once

#include <cstdint>

namespace korvel {

// A redraw is to end within a second: this is what its pictures may take, in nanoseconds of
// processor time. The rest is for showing the scene, and for the pictures that take up to a fifth
// longer than is reckoned with below.
inline constexpr std::uint64_t kLongestPicturesNs = 750'000'000;

// What painting takes for each pixel of the picture, wherever and however large it is shown.
inline constexpr std::uint64_t kPaintingPixelNs = 28;

// What a decoder takes at the most, in nanoseconds. The numbers of each kind of file were measured
// with the slowest pictures of that kind.
struct DecodingTime {
  std::uint64_t PerPixel = 0;
  std::uint64_t ForData = 0;  // for what the file holds, however many pixels that makes
};

// Whether a picture can be decoded and painted within `mostNs`. Sides of any 32-bit size may be
// given; there is no picture of which one is 0.
[[nodiscard]] constexpr bool IsDecodable(std::uint64_t width, std::uint64_t height,
                                         DecodingTime time, std::uint64_t mostNs) noexcept {
  const std::uint64_t pixels = width * height;
  const std::uint64_t pixelNs = kPaintingPixelNs + time.PerPixel;
  return pixels > 0 && pixels <= mostNs / pixelNs && time.ForData <= mostNs - pixels * pixelNs;
}

}  // namespace korvel
