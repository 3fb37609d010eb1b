// JPEG files: segments that begin with a marker, a byte FF and one that is neither 00 nor FF. As
// decoders do, whatever is no marker is passed over, be it the data of a scan or rubbish.
#include "presentation/file_reader.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

constexpr std::uint32_t kEndOfPicture = 0xD9;
constexpr std::uint32_t kStartOfScan = 0xDA;

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

// The frames of all ways to encode; what lies between them are tables.
constexpr bool IsFrame(std::uint32_t marker) noexcept {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// The reader stands at the length of the frame's segment.
[[nodiscard]] bool HasDecodableSize(FileReader segment) noexcept {
  segment.Skip(3);  // the length and the bits of a sample
  const std::uint32_t height = segment.Big16();
  return IsDecodableSize(segment.Big16(), height);
}

}  // namespace

bool FindJpegPicture(std::string_view file, FilePieces& pieces) noexcept {
  FileReader reader(file);
  bool hasFrame = false;
  int scans = 0;
  for (std::uint32_t marker = NextMarker(reader); marker != 0 && marker != kEndOfPicture;
       marker = NextMarker(reader)) {
    if (IsFrame(marker)) {
      if (!HasDecodableSize(reader)) return false;
      hasFrame = true;
    }
    if (marker == kStartOfScan && ++scans > kMostScans) return false;
    if (!HasSegment(marker)) continue;
    const std::uint32_t length = reader.Big16();  // with its own two bytes
    reader.Skip(length < 2 ? 0 : length - 2);
  }
  return hasFrame && pieces.Append(file);
}

}  // namespace korvel
