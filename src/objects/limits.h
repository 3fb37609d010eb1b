// Limits on what content may ask for, each with its reason. They are counts, not times, so that the
// same content looks and behaves the same on every machine, however slow or busy it is.
#pragma once

#include <cstddef>
#include <cstdint>

namespace korvel {

// A picture may have as many pixels as the largest I-frame. A decoder allocates what a file claims,
// and a file of a few bytes can claim anything.
inline constexpr std::uint64_t kMostPicturePixels = std::uint64_t{16} * 1024 * 1024;

// A JPEG decoder goes over the whole picture once for each scan.
inline constexpr std::uint64_t kMostJpegScanPixels = std::uint64_t{256} * 1024 * 1024;

// The bytes of a picture file: those of the largest uncompressed picture.
inline constexpr std::size_t kMostPictureBytes = std::size_t{64} * 1024 * 1024;

// The corners of a polygon. The time that GDI+ takes grows with their square, and a close must not
// wait for it; broadcast content comes nowhere near this.
inline constexpr std::size_t kMostCorners = 1000;

// The pixels of a canvas, of 4 bytes each; a larger one is not made.
inline constexpr std::int64_t kMostCanvasPixels = std::int64_t{64} * 1024 * 1024;

// The dashes or dots of a line; one that has more is drawn solid. GDI+ makes an outline of each of
// them. Around the whole scene run fewer.
inline constexpr double kMostDashes = 3000;

}  // namespace korvel
