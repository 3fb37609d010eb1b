// TIFF files: pixels in strips or in tiles, at places that a directory names. What GDI+ does not
// read, and what it would read for too long, is refused.
#include <algorithm>

#include "presentation/picture_limits.h"
#include "presentation/tiff_directory.h"

namespace korvel {

namespace {

// Decoders take their time for each part. The largest picture of broadcast television has 8640
// tiles of 16 x 16 pixels, which are the smallest that encoders write.
constexpr std::uint64_t kMostParts = 16384;

// For each byte of what is read, and of what is unpacked from it: once where each part is a strip,
// else for each row.
constexpr std::uint64_t kUnpackingByteNs = 6;
constexpr std::uint64_t kUnpackingAgainByteNs = 20;

constexpr std::uint64_t kPixelNs = 5;

enum Compression : std::uint32_t {
  kNone = 1,
  kLzw = 5,
  kDeflate = 8,
  kPackBits = 32773,
  kEarlierDeflate = 32946
};

enum Colours : std::uint32_t {
  kWhiteIsZero = 0,
  kBlackIsZero = 1,
  kRedGreenBlue = 2,
  kPalette = 3,
  kInks = 5
};

// The ways of fax machines are not among them: wrong data leads decoders of those astray.
bool HasKnownCompression(const TiffPicture& picture) noexcept {
  switch (picture.Compression) {
  case kNone:
  case kLzw:
  case kDeflate:
  case kPackBits:
  case kEarlierDeflate: return picture.Predictor == 1 || picture.Predictor == 2;
  default: return false;
  }
}

// One number for all samples of a pixel, or each of them with the same.
bool AreAll(const TiffNumbers& numbers, std::uint32_t samples, std::uint32_t value) noexcept {
  if (numbers.Count() != 1 && numbers.Count() != samples) return false;
  for (std::size_t index = 0; index < numbers.Count(); ++index) {
    if (numbers.At(index) != value) return false;
  }
  return true;
}

std::uint32_t BitsOf(const TiffPicture& picture) noexcept {
  return picture.BitsPerSample.Count() == 0 ? 1 : picture.BitsPerSample.At(0);
}

// The samples of a pixel that GDI+ reads: colours, and perhaps how opaque they are.
bool HasKnownSamples(const TiffPicture& picture) noexcept {
  const std::uint32_t samples = picture.SamplesPerPixel;
  const std::uint32_t bits = BitsOf(picture);
  switch (picture.Colours) {
  case kBlackIsZero:
    if (samples == 2) return bits == 8;
    [[fallthrough]];
  case kWhiteIsZero: return samples == 1 && (bits == 1 || bits == 4 || bits == 8 || bits == 16);
  case kRedGreenBlue: return (samples == 3 || samples == 4) && (bits == 8 || bits == 16);
  case kPalette:
    return samples == 1 && (bits == 1 || bits == 2 || bits == 4 || bits == 8) &&
           picture.Palette.Count() == std::size_t{3} << bits;
  case kInks: return samples == 4 && bits == 8;
  default: return false;
  }
}

bool HasKnownPixels(const TiffPicture& picture) noexcept {
  constexpr std::uint32_t kWholeNumbers = 1;
  const std::uint32_t samples = picture.SamplesPerPixel;
  return HasKnownSamples(picture) && picture.Planes == 1 &&
         (picture.FillOrder == 1 || picture.FillOrder == 2) && picture.ExtraSamples.Count() <= 1 &&
         (picture.BitsPerSample.Count() == 0 ||
          AreAll(picture.BitsPerSample, samples, BitsOf(picture))) &&
         (picture.SampleFormats.Count() == 0 ||
          AreAll(picture.SampleFormats, samples, kWholeNumbers));
}

// The strips of the picture, or its tiles. The last strip may be lower than the others; tiles are
// filled up.
struct Parts {
  bool AreTiles = false;
  std::uint64_t Width = 0;
  std::uint64_t Height = 0;
  TiffNumbers Places;
  TiffNumbers Bytes;
};

// False when there is some of both.
[[nodiscard]] bool FindParts(const TiffPicture& picture, std::uint64_t mostNs,
                             Parts& parts) noexcept {
  const bool hasStrips = picture.StripPlaces.Count() + picture.StripBytes.Count() > 0;
  const bool hasTiles = picture.TilePlaces.Count() + picture.TileBytes.Count() > 0 ||
                        picture.TileWidth > 0 || picture.TileHeight > 0;
  if (hasStrips == hasTiles) return false;
  if (hasTiles) {
    parts = {true, picture.TileWidth, picture.TileHeight, picture.TilePlaces, picture.TileBytes};
  } else {
    const std::uint32_t rows = std::min(picture.RowsPerStrip, picture.Height);
    parts = {false, picture.Width, rows, picture.StripPlaces, picture.StripBytes};
  }
  return IsDecodable(parts.Width, parts.Height, {}, mostNs);
}

std::uint64_t PartsOfSide(std::uint64_t side, std::uint64_t partSide) noexcept {
  return (side + partSide - 1) / partSide;
}

// How many bytes the parts have in the file, all of which must be there. What is not packed must
// have as many as its pixels take. False when that is not so.
[[nodiscard]] bool SumBytes(const TiffPicture& picture, const Parts& parts, std::uint64_t rowBytes,
                            std::uint64_t fileBytes, std::uint64_t& sum) noexcept {
  for (std::size_t part = 0; part < parts.Bytes.Count(); ++part) {
    const std::uint64_t bytes = parts.Bytes.At(part);
    const std::uint64_t rows = parts.AreTiles
                                   ? parts.Height
                                   : std::min(parts.Height, picture.Height - part * parts.Height);
    if (parts.Places.At(part) + bytes > fileBytes) return false;
    if (picture.Compression == kNone && bytes < rowBytes * rows) return false;
    sum += bytes;
  }
  return true;
}

// GDI+ asks for one row of pixels after the other, and decoders keep one part: where several lie
// side by side, each of them is unpacked anew for each of its rows.
[[nodiscard]] bool HasDecodableParts(const TiffPicture& picture, std::uint64_t fileBytes,
                                     std::uint64_t mostNs) noexcept {
  Parts parts;
  if (!FindParts(picture, mostNs, parts)) return false;
  const std::uint64_t across = PartsOfSide(picture.Width, parts.Width);
  const std::uint64_t count = across * PartsOfSide(picture.Height, parts.Height);
  if (count > kMostParts || parts.Places.Count() != count || parts.Bytes.Count() != count) {
    return false;
  }
  const std::uint64_t pixelBits = std::uint64_t{picture.SamplesPerPixel} * BitsOf(picture);
  const std::uint64_t rowBytes = (parts.Width * pixelBits + 7) / 8;
  std::uint64_t bytes = picture.Compression == kNone ? 0 : rowBytes * parts.Height * count;
  if (!SumBytes(picture, parts, rowBytes, fileBytes, bytes) || bytes > mostNs) return false;
  const std::uint64_t byteNs =
      across == 1 ? kUnpackingByteNs : parts.Height * kUnpackingAgainByteNs;
  return IsDecodable(picture.Width, picture.Height,
                     {.PerPixel = kPixelNs, .ForData = bytes * byteNs}, mostNs);
}

}  // namespace

bool FindTiffPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  TiffPicture picture;
  return ReadTiffDirectory(file, picture, pieces) && HasKnownCompression(picture) &&
         HasKnownPixels(picture) && HasDecodableParts(picture, file.size(), mostNs);
}

}  // namespace korvel
