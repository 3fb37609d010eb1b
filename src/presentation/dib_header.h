// The header that BMP and ICO files have before their pixels, and what follows from it. Some
// decoders believe what it says about places and numbers, so that is checked here.
#pragma once

#include <cstdint>

#include "presentation/file_reader.h"
#include "presentation/picture_limits.h"

namespace korvel {

enum DibCompression : std::uint32_t {
  kNotCompressed = 0,
  kRunsOf8Bits = 1,
  kRunsOf4Bits = 2,
  kColourMasks = 3
};

struct DibHeader {
  std::uint32_t Bytes = 0;  // of the header
  std::uint32_t Width = 0;
  std::uint32_t Height = 0;
  std::uint32_t Bits = 0;  // of a pixel
  std::uint32_t Compression = kNotCompressed;
  std::uint32_t Colours = 0;  // in the palette; 0 is all that the bits allow
};

inline constexpr DecodingTime kDibDecoding{.PerPixel = 8};

inline constexpr std::uint32_t kOldestDibHeaderBytes = 12;  // its numbers have 16 bits
inline constexpr std::uint32_t kDibHeaderBytes = 40;        // what all later ones begin with

[[nodiscard]] inline bool ReadDibHeader(FileReader& reader, DibHeader& header) noexcept {
  header.Bytes = reader.Little32();
  const bool isOldest = header.Bytes == kOldestDibHeaderBytes;
  if (!isOldest && header.Bytes < kDibHeaderBytes) return false;
  header.Width = isOldest ? reader.Little16() : reader.Little32();
  header.Height = isOldest ? reader.Little16() : reader.Little32();
  reader.Skip(2);  // planes
  header.Bits = reader.Little16();
  if (isOldest) return true;
  header.Compression = reader.Little32();
  reader.Skip(12);  // the size of the pixels, and how large they are meant to be
  header.Colours = reader.Little32();
  return true;
}

inline bool HasKnownCompression(const DibHeader& header) noexcept {
  const std::uint32_t compression = header.Compression;
  switch (header.Bits) {
  case 4: return compression == kNotCompressed || compression == kRunsOf4Bits;
  case 8: return compression == kNotCompressed || compression == kRunsOf8Bits;
  case 16:
  case 32: return compression == kNotCompressed || compression == kColourMasks;
  default: return (header.Bits == 1 || header.Bits == 24) && compression == kNotCompressed;
  }
}

inline constexpr std::uint32_t kMostPaletteBits = 8;

inline bool HasKnownPalette(const DibHeader& header) noexcept {
  return header.Bits > kMostPaletteBits || header.Colours <= 1U << header.Bits;
}

// Of a row that is not compressed, which is filled up to whole groups of four bytes.
constexpr std::uint64_t DibRowBytes(std::uint64_t width, std::uint32_t bits) noexcept {
  return (width * bits + 31) / 32 * 4;
}

}  // namespace korvel
