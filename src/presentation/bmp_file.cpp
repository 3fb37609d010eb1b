// BMP files: headers, perhaps a palette, and the pixels at a place that the file names. Some
// decoders believe what the headers say about places and numbers, so that is checked here.
#include "presentation/file_reader.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

constexpr std::uint32_t kOldestHeaderBytes = 12;  // its numbers have 16 bits
constexpr std::uint32_t kHeaderBytes = 40;        // what all later ones begin with

enum Compression : std::uint32_t { kNone = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3 };

struct BmpHeader {
  std::uint32_t PixelsAt = 0;  // from the beginning of the file
  std::uint32_t Width = 0;
  std::uint32_t Height = 0;
  std::uint32_t Bits = 0;  // of a pixel
  std::uint32_t Compression = kNone;
  std::uint32_t Colours = 0;  // in the palette; 0 is all that the bits allow
};

// A negative height says that the rows begin at the top.
std::uint32_t Magnitude(std::uint32_t height) noexcept {
  return (height & 0x80000000) != 0 ? 0 - height : height;
}

[[nodiscard]] bool ReadHeader(FileReader& reader, BmpHeader& header) noexcept {
  reader.Skip(10);  // the signature, the size of the file, nothing
  header.PixelsAt = reader.Little32();
  const std::uint32_t headerBytes = reader.Little32();
  const bool isOldest = headerBytes == kOldestHeaderBytes;
  if (!isOldest && headerBytes < kHeaderBytes) return false;
  header.Width = isOldest ? reader.Little16() : reader.Little32();
  header.Height = isOldest ? reader.Little16() : Magnitude(reader.Little32());
  reader.Skip(2);  // planes
  header.Bits = reader.Little16();
  if (isOldest) return true;
  header.Compression = reader.Little32();
  reader.Skip(12);  // the size of the pixels, and how large they are meant to be
  header.Colours = reader.Little32();
  return true;
}

// What the pixels take at least: a row that is not compressed is filled up to whole groups of four
// bytes, runs of equal pixels may take next to nothing.
std::uint64_t LeastPixelBytes(const BmpHeader& header) noexcept {
  if (header.Compression == kRuns8 || header.Compression == kRuns4) return 0;
  const std::uint64_t rowBits = std::uint64_t{header.Width} * header.Bits;
  return (rowBits + 31) / 32 * 4 * header.Height;
}

bool HasKnownCompression(const BmpHeader& header) noexcept {
  switch (header.Bits) {
  case 4: return header.Compression == kNone || header.Compression == kRuns4;
  case 8: return header.Compression == kNone || header.Compression == kRuns8;
  case 16:
  case 32: return header.Compression == kNone || header.Compression == kMasks;
  default: return (header.Bits == 1 || header.Bits == 24) && header.Compression == kNone;
  }
}

bool HasKnownPalette(const BmpHeader& header) noexcept {
  constexpr std::uint32_t kPaletteBits = 8;
  return header.Bits > kPaletteBits || header.Colours <= 1U << header.Bits;
}

}  // namespace

bool FindBmpPicture(std::string_view file, FilePieces& pieces) noexcept {
  FileReader reader(file);
  BmpHeader header;
  return ReadHeader(reader, header) && IsDecodableSize(header.Width, header.Height) &&
         HasKnownCompression(header) && HasKnownPalette(header) &&
         header.PixelsAt + LeastPixelBytes(header) <= file.size() && pieces.Append(file);
}

}  // namespace korvel
