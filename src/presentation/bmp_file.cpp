// BMP files: headers, perhaps a palette, and the pixels at a place that the file names.
#include "presentation/dib_header.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

// A negative height says that the rows begin at the top.
std::uint32_t Magnitude(std::uint32_t height) noexcept {
  return (height & 0x80000000) != 0 ? 0 - height : height;
}

// What the pixels take at least: runs of equal ones may take next to nothing.
std::uint64_t LeastPixelBytes(const DibHeader& header) noexcept {
  if (header.Compression == kRunsOf8Bits || header.Compression == kRunsOf4Bits) return 0;
  return DibRowBytes(header.Width, header.Bits) * header.Height;
}

}  // namespace

bool FindBmpPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  FileReader reader(file);
  reader.Skip(10);  // the signature, the size of the file, nothing
  const std::uint32_t pixelsAt = reader.Little32();
  DibHeader header;
  if (!ReadDibHeader(reader, header)) return false;
  header.Height = Magnitude(header.Height);
  return IsDecodable(header.Width, header.Height, kDibDecoding, mostNs) &&
         HasKnownCompression(header) && HasKnownPalette(header) &&
         pixelsAt + LeastPixelBytes(header) <= file.size() && pieces.Append(file);
}

}  // namespace korvel
