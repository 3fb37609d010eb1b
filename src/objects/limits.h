// Limits on the resources that content may use, each with its reason. They are counts, not times,
// so that the same content looks and behaves the same on every machine, however slow or busy it is.
// Only the work that remains after a request to close is also limited by time.
#pragma once

#include <cstddef>
#include <cstdint>

namespace korvel {

// ---- Groups ----

// The depth of nested BER elements. Far more than the classes can nest, and small enough for any
// call stack and for ListReader's array of open wrappers.
inline constexpr std::uint32_t kDeepestNesting = 64;

// The bytes of a group's name. Each reference of the group that names no other group gets a copy of
// the name, so with a long one a small file would need a large multiple of its size in memory.
inline constexpr std::size_t kLongestGroupName = 1024;

// The size in bytes to which content may grow an octet string or an entry of the persistent store.
// A longer one is treated as out of memory: doubling it a few more times would exhaust the host
// process.
inline constexpr std::size_t kLongestString = std::size_t{16} * 1024 * 1024;

// ---- Work ----

// The number of applications on the stack, each waiting for the one that it spawned to quit.
inline constexpr std::size_t kMostSpawnedApplications = 5;

// The depth of nested action lists and events. Enough for any content that terminates, small enough
// for the worker's default stack, and below 256, so that the 8-bit generation counters cannot wrap
// around within one nesting.
inline constexpr std::uint32_t kMostLevels = 100;

// The actions that one key, timer expiry or start may run: far more than real content needs, yet
// they take little time.
inline constexpr std::uint32_t kMostActions = 1'000'000;
// The actions that may still run once a close is pending. They are limited in number and also in
// time, because some actions are slow. All remaining work shares these limits, so that a close
// takes less than a second even if the request arrives while the worker pauses for half a second
// before it asks for a file again.
inline constexpr std::uint32_t kMostActionsWhileClosing = 10'000;
inline constexpr std::uint32_t kMostMillisecondsWhileClosing = 400;

// One event runs at most this many links: the first ones in the table that match. Content relies on
// this limit.
inline constexpr std::size_t kMostLinksOfEvent = 5;

// The longest period of a timer. All versions of Windows support this period; some fire a longer
// timer immediately.
inline constexpr std::uint32_t kLongestPeriodMs = 0x7FFFFFFF;

// ---- Pictures ----

// The pixels of a picture: as many as the largest I-frame has. A decoder allocates memory for the
// size that a file claims, and a file of a few bytes can claim any size.
inline constexpr std::uint64_t kMostPicturePixels = std::uint64_t{16} * 1024 * 1024;

// The pixels of a JPEG picture times its number of scans: a decoder processes the whole picture for
// each scan.
inline constexpr std::uint64_t kMostJpegScanPixels = std::uint64_t{256} * 1024 * 1024;

// The bytes of a picture file: as many as the largest picture has uncompressed.
inline constexpr std::size_t kMostPictureBytes = std::size_t{64} * 1024 * 1024;

// The number of decoded pictures kept for later paintings, and the bytes of their files and pixels:
// enough for several scenes. A single picture is kept even if it is larger.
inline constexpr std::size_t kMostKeptPictures = 64;
inline constexpr std::size_t kMostKeptBytes = std::size_t{16} * 1024 * 1024;

// The corners of a polygon. Under Wine the time that GDI+ takes grows with the square of their
// number, and a close must not wait for it. Broadcast content has far fewer.
inline constexpr std::size_t kMostCorners = 1000;

// The pixels of a canvas, at 4 bytes each. A larger canvas is not created.
inline constexpr std::int64_t kMostCanvasPixels = std::int64_t{64} * 1024 * 1024;

// The dashes or dots of a line; a line with more is drawn solid. Under Wine GDI+ builds an outline
// for each of them. A line around the whole scene has fewer.
inline constexpr double kMostDashes = 3000;

// The characters of a text that are drawn: more than fit on the screen. Under Wine GDI+ also lays
// out the text beyond the box, which takes long.
inline constexpr std::size_t kMostCharacters = 20000;

// The lines of a text that are drawn, counted by line feeds: no picture has more lines than pixel
// rows. Under Wine the time that GDI+ takes grows with the square of their number.
inline constexpr std::size_t kMostLines = 576;

// A font of a larger size is not drawn: no part of a character would be visible.
inline constexpr std::int32_t kLargestFontSize = 10000;

}  // namespace korvel
