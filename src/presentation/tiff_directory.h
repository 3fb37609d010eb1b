// The directory of a TIFF file: what it says about its first picture, and the file with nothing
// else in it. Whether that is a picture which can be decoded is left to tiff_file.cpp. Portable.
#pragma once

#include <cstdint>
#include <string_view>

#include "presentation/picture_file.h"

namespace korvel {

enum class ByteOrder { LowestFirst, HighestFirst };

// The numbers of an entry, of two bytes or of four each; they borrow from the file.
struct TiffNumbers {
  std::string_view Bytes;
  std::size_t Size = 2;
  ByteOrder Order = ByteOrder::LowestFirst;

  [[nodiscard]] std::size_t Count() const noexcept { return Bytes.size() / Size; }
  [[nodiscard]] std::uint32_t At(std::size_t index) const noexcept;
};

// What is not in the directory has the value that the format gives it, or is empty.
struct TiffPicture {
  static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;

  std::uint32_t Width = 0;
  std::uint32_t Height = 0;
  TiffNumbers BitsPerSample;
  std::uint32_t Compression = 1;
  std::uint32_t Colours = kUnknown;
  std::uint32_t FillOrder = 1;
  TiffNumbers StripPlaces;
  std::uint32_t SamplesPerPixel = 1;
  std::uint32_t RowsPerStrip = kUnknown;
  TiffNumbers StripBytes;
  std::uint32_t Planes = 1;
  std::uint32_t Predictor = 1;
  TiffNumbers Palette;
  std::uint32_t TileWidth = 0;
  std::uint32_t TileHeight = 0;
  TiffNumbers TilePlaces;
  TiffNumbers TileBytes;
  TiffNumbers ExtraSamples;
  TiffNumbers SampleFormats;
};

// Reads the first directory of a file, and appends the file with a directory that has the entries
// of the picture alone and is the last one; everything else keeps its place. False when an entry of
// the picture is wrong, or not whole in the file, and when memory is out.
[[nodiscard]] bool ReadTiffDirectory(std::string_view file, TiffPicture& picture,
                                     FilePieces& pieces) noexcept;

}  // namespace korvel
