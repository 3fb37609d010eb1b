// Limits on the resources that content may use, each with its reason. They are counts, not times,
// so that the same content looks and behaves the same on every machine, however slow or busy it is.
// Only the remaining work while a close is pending is also limited by time.
#pragma once

#include <cstddef>
#include <cstdint>

namespace korvel {

// ---- Groups ----

// The depth of nested elements. Far more than the classes can nest, and small enough for any stack
// and for ListReader's array of open wrappers.
inline constexpr std::uint32_t kDeepestNesting = 64;

// The size in bytes to which content may grow an octet string. A longer one is treated as out of
// memory: doubling it a few more times would exhaust the host process.
inline constexpr std::size_t kLongestString = std::size_t{16} * 1024 * 1024;

// ---- Work ----

// The applications that can wait on the stack of spawning applications.
inline constexpr std::size_t kMostSpawnedApplications = 5;

// The depth of nested action lists and events. Enough for any content that terminates, small enough
// for the worker's default stack, and below 256, so that the 8-bit generation counters cannot wrap
// around within one nesting.
inline constexpr std::uint32_t kMostLevels = 100;

// The actions that one key, timer expiry or start may run: far more than real content needs, and
// still fast.
inline constexpr std::uint32_t kMostActions = 1'000'000;
// The actions that may still run once a close is pending. They are limited in number and also in
// time, because some actions are slow. All remaining work shares these limits, so that a close
// takes less than a second even if the worker waits half a second for a file when the request
// comes.
inline constexpr std::uint32_t kMostActionsWhileClosing = 10'000;
inline constexpr std::uint32_t kMostMillisecondsWhileClosing = 400;

// One event runs at most this many links: the first ones in the table that match. Content relies on
// this limit.
inline constexpr std::size_t kMostLinksOfEvent = 5;

// The longest period of a timer. All versions of Windows support this period; some fire a longer
// timer immediately.
inline constexpr std::uint32_t kLongestPeriodMs = 0x7FFFFFFF;

// ---- Pictures ----

// The pixels of a picture: those of the largest I-frame. A decoder allocates memory for the size
// that a file claims, and a file of a few bytes can claim any size.
inline constexpr std::uint64_t kMostPicturePixels = std::uint64_t{16} * 1024 * 1024;

// The pixels of a JPEG picture times its scans: a decoder processes the whole picture for each
// scan.
inline constexpr std::uint64_t kMostJpegScanPixels = std::uint64_t{256} * 1024 * 1024;

// The bytes of a picture file: those of the largest uncompressed picture.
inline constexpr std::size_t kMostPictureBytes = std::size_t{64} * 1024 * 1024;

// The decoded pictures that are kept for the next painting, and the bytes of their files and
// pixels: those of several scenes. A single larger picture is kept too.
inline constexpr std::size_t kMostKeptPictures = 64;
inline constexpr std::size_t kMostKeptBytes = std::size_t{16} * 1024 * 1024;

// The corners of a polygon. Under Wine the time that GDI+ takes grows with their square, and a
// close must not wait for it; broadcast content comes nowhere near this.
inline constexpr std::size_t kMostCorners = 1000;

// The pixels of a canvas, of 4 bytes each; a larger one is not created.
inline constexpr std::int64_t kMostCanvasPixels = std::int64_t{64} * 1024 * 1024;

// The dashes or dots of a line; a line with more is drawn solid. Under Wine GDI+ makes an outline
// of each of them. A line around the whole scene has fewer.
inline constexpr double kMostDashes = 3000;

// The characters of a text that are drawn: more than fit on the screen. Under Wine GDI+ also lays
// out the text beyond the box, which takes long.
inline constexpr std::size_t kMostCharacters = 20000;

// A font of a larger size is not drawn: no part of a character would be visible.
inline constexpr std::int32_t kLargestFontSize = 10000;

}  // namespace korvel
