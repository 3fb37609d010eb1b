// Limits on what content may ask for, each with its reason. They are counts, not times, so that the
// same content looks and behaves the same on every machine, however slow or busy it is. Only the
// work that is left when a close is pending is limited by time too.
#pragma once

#include <cstddef>
#include <cstdint>

namespace korvel {

// ---- Groups ----

// The levels of elements within elements. Far beyond what the classes can nest, and little enough
// for any stack and for a list's record of open wrappers.
inline constexpr std::uint32_t kDeepestNesting = 64;

// The bytes of an octet string that content enlarges: beyond this the string counts as out of
// memory. Doubling it a few times more would take the host down with it.
inline constexpr std::size_t kLongestString = std::size_t{16} * 1024 * 1024;

// ---- Work ----

// The levels of action lists and events within each other. Deep enough for any content that means
// to end, shallow enough for the worker's default stack, and below 256, so that the 8-bit
// generation counters cannot come round inside one nest.
inline constexpr std::uint32_t kMostLevels = 100;

// The actions that one key, timer expiry or start may cost: far beyond real content, and over in a
// moment.
inline constexpr std::uint32_t kMostActions = 1'000'000;
// The actions that may still run once a close is pending, in number and in time: some actions are
// slow. All the work that is left shares this, so that a close takes less than a second even if the
// worker waits half a second for a file when the request comes.
inline constexpr std::uint32_t kMostActionsWhileClosing = 10'000;
inline constexpr std::uint32_t kMostMillisecondsWhileClosing = 400;

// The links that one event runs, the first ones that match. Content relies on it.
inline constexpr std::size_t kMostLinksOfEvent = 5;

// The longest period of a timer. Every version of the platform waits that long; some of them fire
// a longer one at once.
inline constexpr std::uint32_t kLongestPeriodMs = 0x7FFFFFFF;

// ---- Pictures ----

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

// The characters of a text that are drawn, more than any picture shows. GDI+ lays out what lies
// beyond the box too, and is slow at it.
inline constexpr std::size_t kMostCharacters = 20000;

// A font of a larger size is not drawn: not even a part of a character would be in the picture.
inline constexpr std::int32_t kLargestFontSize = 10000;

}  // namespace korvel
