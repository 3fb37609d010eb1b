// Sequence headers and their extensions: ISO/IEC 13818-2, 6.2.2.
#include "appearance/mpeg_file.h"

#include <cstddef>
#include <cstdint>

#include "appearance/picture_size.h"

namespace korvel {

namespace {

constexpr std::string_view kSequenceHeader("\x00\x00\x01\xB3", 4);
constexpr std::string_view kExtension("\x00\x00\x01\xB5", 4);
constexpr int kSequenceExtension = 1;

// 0 where the stream has ended.
int ByteAt(std::string_view stream, std::size_t offset) {
  return offset < stream.size() ? static_cast<std::uint8_t>(stream[offset]) : 0;
}

// An extension begins with its kind (4 bits). That of a sequence goes on with 11 bits of no
// interest here, and two bits each that stand before those of the width and the height.
bool AddsToSize(std::string_view stream, std::size_t extension) {
  const std::size_t payload = extension + kExtension.size();
  if (ByteAt(stream, payload) >> 4 != kSequenceExtension) return false;
  return (ByteAt(stream, payload + 1) & 0x01) != 0 || (ByteAt(stream, payload + 2) & 0xE0) != 0;
}

bool HasLargerFrames(std::string_view stream) {
  std::size_t at = stream.find(kExtension);
  while (at != std::string_view::npos && !AddsToSize(stream, at)) {
    at = stream.find(kExtension, at + kExtension.size());
  }
  return at != std::string_view::npos;
}

}  // namespace

bool FindFrameSize(std::string_view stream, FrameSize& size) {
  constexpr std::size_t kHeaderAndSize = 7;
  if (stream.size() < kHeaderAndSize || stream.size() > kMostPictureBytes ||
      !stream.starts_with(kSequenceHeader)) {
    return false;
  }
  const FrameSize found{.Width = ByteAt(stream, 4) * 16 + (ByteAt(stream, 5) >> 4),
                        .Height = (ByteAt(stream, 5) & 15) * 256 + ByteAt(stream, 6)};
  if (!IsDecodableSize(static_cast<std::uint64_t>(found.Width),
                       static_cast<std::uint64_t>(found.Height)) ||
      HasLargerFrames(stream)) {
    return false;
  }
  size = found;
  return true;
}

}  // namespace korvel
