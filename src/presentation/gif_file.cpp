// GIF files: blocks, each of them with data in parts of up to 255 bytes. Only the first of its
// pictures is ever shown; the block before it may say which colour is transparent.
#include "presentation/file_reader.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

constexpr std::uint32_t kExtension = 0x21;
constexpr std::uint32_t kGraphicControl = 0xF9;
constexpr std::uint32_t kPicture = 0x2C;
constexpr std::string_view kEnd = ";";

constexpr DecodingTime kDecoding{.PerPixel = 10};

// What follows a size, of the screen or of a picture: a byte that tells of a table of colours, and
// the table, after `between` bytes.
void SkipColours(FileReader& reader, std::size_t between) noexcept {
  const std::uint32_t flags = reader.Byte();
  reader.Skip(between);
  if ((flags & 0x80) != 0) reader.Skip(std::size_t{3} << ((flags & 7) + 1));
}

void SkipData(FileReader& reader) noexcept {
  for (std::uint32_t length = reader.Byte(); length > 0; length = reader.Byte()) {
    reader.Skip(length);
  }
}

// The screen's size, which may be 0 where the picture's is what counts.
[[nodiscard]] bool ReadScreen(FileReader& reader, std::uint64_t mostNs) noexcept {
  reader.Skip(6);  // the signature with the version
  const std::uint64_t width = reader.Little16();
  const std::uint64_t height = reader.Little16();
  SkipColours(reader, 2);
  return width * height == 0 || IsDecodable(width, height, kDecoding, mostNs);
}

[[nodiscard]] bool ReadPicture(FileReader& reader, std::uint64_t mostNs) noexcept {
  reader.Skip(4);  // its place on the screen
  const std::uint32_t width = reader.Little16();
  const std::uint32_t height = reader.Little16();
  if (reader.IsAtEnd()) return false;  // the end put behind it would make it another size
  SkipColours(reader, 0);
  reader.Skip(1);  // the width of the first code
  SkipData(reader);
  return IsDecodable(width, height, kDecoding, mostNs);
}

}  // namespace

bool FindGifPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  FileReader reader(file);
  if (!ReadScreen(reader, mostNs) || !pieces.Append(reader.Since(0))) return false;
  std::string_view control;
  while (!reader.IsAtEnd()) {
    const std::size_t start = reader.At();
    const std::uint32_t kind = reader.Byte();
    if (kind == kPicture) {
      return ReadPicture(reader, mostNs) && pieces.Append(control) &&
             pieces.Append(reader.Since(start)) && pieces.Append(kEnd);
    }
    if (kind != kExtension) return false;
    const bool isControl = reader.Byte() == kGraphicControl;
    SkipData(reader);
    if (isControl) control = reader.Since(start);
  }
  return false;
}

}  // namespace korvel
