// PNG files: chunks of a length, a name, so many bytes and a check of four bytes.
#include "presentation/file_reader.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

constexpr std::size_t kCheckBytes = 4;
constexpr std::uint32_t kHeaderBytes = 13;

// Decoding takes a nanosecond for each bit of a pixel, and what inflating the data takes.
constexpr std::uint64_t kInflatingByteNs = 3;

// Decoders take their time for each chunk, whatever is in it. Encoders write the pixels in chunks
// of 8 kilobytes and more.
constexpr int kMostChunks = 16'384;

// The number that the four letters of a chunk's name make.
constexpr std::uint32_t Named(const char (&name)[5]) noexcept {
  std::uint32_t number = 0;
  for (int letter = 0; letter < 4; ++letter) {
    number = number << 8 | static_cast<std::uint8_t>(name[letter]);
  }
  return number;
}

constexpr std::uint32_t kHeader = Named("IHDR");
constexpr std::uint32_t kEnd = Named("IEND");

// The chunks that say how a pixel looks. All others are texts, profiles and times.
bool IsOfThePicture(std::uint32_t name) noexcept {
  switch (name) {
  case kHeader:
  case Named("PLTE"):
  case Named("tRNS"):
  case Named("gAMA"):
  case Named("cHRM"):
  case Named("sRGB"):
  case Named("IDAT"):
  case kEnd: return true;
  default: return false;
  }
}

// Of a pixel, by the type of its colour.
std::uint64_t SamplesOf(std::uint32_t colourType) noexcept {
  constexpr std::uint32_t kColour = 2;
  constexpr std::uint32_t kAlpha = 4;
  switch (colourType) {
  case kColour: return 3;
  case kAlpha: return 2;
  case kColour | kAlpha: return 4;
  default: return 1;  // grey, or an index into the palette
  }
}

// The first chunk must be the header, which begins with the size.
bool HasDecodableHeader(std::string_view file, std::uint64_t mostNs) noexcept {
  FileReader reader(file);
  reader.Skip(kPngSignature.size());
  if (reader.Big32() != kHeaderBytes || reader.Big32() != kHeader) return false;
  const std::uint32_t width = reader.Big32();
  const std::uint32_t height = reader.Big32();
  const std::uint64_t sampleBits = reader.Byte();
  const std::uint64_t samples = SamplesOf(reader.Byte());
  return IsDecodable(width, height,
                     {.PerPixel = sampleBits * samples, .ForData = file.size() * kInflatingByteNs},
                     mostNs);
}

}  // namespace

bool FindPngPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  if (!HasDecodableHeader(file, mostNs)) return false;
  FileReader reader(file);
  reader.Skip(kPngSignature.size());
  if (!pieces.Append(reader.Since(0))) return false;
  std::uint32_t name = 0;
  for (int chunks = 0; name != kEnd && !reader.IsAtEnd();) {
    const std::size_t start = reader.At();
    const std::uint32_t length = reader.Big32();
    name = reader.Big32();
    reader.Skip(length);
    reader.Skip(kCheckBytes);
    if (!IsOfThePicture(name)) continue;
    if (++chunks > kMostChunks || !pieces.Append(reader.Since(start))) return false;
  }
  return true;
}

}  // namespace korvel
