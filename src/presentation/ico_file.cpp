// ICO files: a directory of the same picture in several sizes. GDI+ takes the first one, whatever
// the others are, so that alone is handed on: as the file that it is when it is a PNG, else as the
// only one of an ICO file. The sizes in the directory have no meaning to it.
#include "presentation/dib_header.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

// A directory of one entry, of which the last number is the place of its picture, right behind it.
constexpr std::string_view kDirectoryStart("\0\0\1\0\1\0", 6);
constexpr std::string_view kPlace("\x16\0\0\0", 4);

// The palette, as many colours as the bits allow unless the header says how many.
std::uint64_t PaletteBytes(const DibHeader& header) noexcept {
  std::uint64_t colours = header.Colours;
  if (colours == 0 && header.Bits <= kMostPaletteBits) colours = std::uint64_t{1} << header.Bits;
  return colours * 4;
}

// A picture without a header of a file. Below its rows lie those of a mask of one bit for each
// pixel that tells which ones are seen; the header counts both. 32 bits tell it themselves.
[[nodiscard]] bool IsWholePicture(std::string_view picture, std::uint64_t mostNs) noexcept {
  FileReader reader(picture);
  DibHeader header;
  if (!ReadDibHeader(reader, header) || header.Bytes != kDibHeaderBytes) return false;
  const std::uint32_t height = header.Height / 2;
  if (!IsDecodable(header.Width, height, kDibDecoding, mostNs) ||
      header.Compression != kNotCompressed || !HasKnownCompression(header) ||
      !HasKnownPalette(header)) {
    return false;
  }
  const std::uint64_t maskRowBytes = header.Bits == 32 ? 0 : DibRowBytes(header.Width, 1);
  const std::uint64_t rowBytes = DibRowBytes(header.Width, header.Bits) + maskRowBytes;
  return header.Bytes + PaletteBytes(header) + rowBytes * height <= picture.size();
}

}  // namespace

bool FindIcoPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  FileReader reader(file);
  reader.Skip(4);  // the signature
  if (reader.Little16() == 0) return false;
  const std::size_t entry = reader.At();
  reader.Skip(8);  // what the entry says about the picture
  const std::uint32_t bytes = reader.Little32();
  const std::string_view facts = reader.Since(entry);
  const std::uint32_t place = reader.Little32();
  if (place > file.size()) return false;
  const std::string_view picture = file.substr(place, bytes);
  if (picture.starts_with(kPngSignature)) return FindPngPicture(picture, mostNs, pieces);
  return picture.size() == bytes && IsWholePicture(picture, mostNs) &&
         pieces.Append(kDirectoryStart) && pieces.Append(facts) && pieces.Append(kPlace) &&
         pieces.Append(picture);
}

}  // namespace korvel
