// JPEG files: segments that begin with a marker, a byte FF and one that is neither 00 nor FF. As
// decoders do, whatever is no marker is passed over, be it the data of a scan or rubbish.
#include "presentation/file_reader.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

constexpr std::uint32_t kEndOfPicture = 0xD9;
constexpr std::uint32_t kProgressive = 0xC2;
constexpr std::uint32_t kStartOfScan = 0xDA;

// Decoding takes this for each pixel, more where the four inks of print become colours, for each
// scan that follows the first one, since it goes over the whole picture again, and for the data.
constexpr std::uint64_t kPixelNs = 10;
constexpr std::uint64_t kInksPixelNs = 34;
constexpr std::uint64_t kScanPixelNs = 9;
constexpr std::uint64_t kDataByteNs = 16;
constexpr std::uint32_t kInks = 4;

// The next marker's second byte; 0 when there is none.
std::uint32_t NextMarker(FileReader& reader) noexcept {
  while (!reader.IsAtEnd()) {
    reader.SkipPast('\xFF');
    std::uint32_t marker = reader.Byte();
    while (marker == 0xFF) marker = reader.Byte();
    if (marker != 0) return marker;
  }
  return 0;
}

// Restarts and the start and the end of the picture are markers without a segment.
constexpr bool HasSegment(std::uint32_t marker) noexcept {
  return (marker < 0xD0 || marker > kEndOfPicture) && marker != 0x01;
}

// The frames of all ways to encode; what lies between them are tables. GDI+ reads none of those
// that follow the progressive one: without loss, in layers, or with arithmetic codes, which take
// long.
constexpr bool IsFrame(std::uint32_t marker) noexcept {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// Whether the picture can be decoded in time. The segment is that of its frame, from the length on.
[[nodiscard]] bool HasDecodableFrame(FileReader segment, std::uint64_t moreScans,
                                     std::size_t fileBytes, std::uint64_t mostNs) noexcept {
  segment.Skip(3);  // the length and the bits of a sample
  const std::uint32_t height = segment.Big16();
  const std::uint32_t width = segment.Big16();
  const std::uint64_t firstScanNs = segment.Byte() < kInks ? kPixelNs : kInksPixelNs;
  return IsDecodable(
      width, height,
      {.PerPixel = firstScanNs + kScanPixelNs * moreScans, .ForData = fileBytes * kDataByteNs},
      mostNs);
}

}  // namespace

bool FindJpegPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  FileReader reader(file);
  FileReader frame("");
  std::uint64_t frames = 0;
  std::uint64_t scans = 0;
  for (std::uint32_t marker = NextMarker(reader); marker != 0 && marker != kEndOfPicture;
       marker = NextMarker(reader)) {
    if (IsFrame(marker)) {
      if (marker > kProgressive) return false;
      frame = reader;
      ++frames;
    }
    if (marker == kStartOfScan) ++scans;
    if (!HasSegment(marker)) continue;
    const std::uint32_t length = reader.Big16();  // with its own two bytes
    reader.Skip(length < 2 ? 0 : length - 2);
  }
  const std::uint64_t moreScans = scans > 0 ? scans - 1 : 0;
  return frames == 1 && HasDecodableFrame(frame, moreScans, file.size(), mostNs) &&
         pieces.Append(file);
}

}  // namespace korvel
