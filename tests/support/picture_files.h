// TIFF and ICO files spelled out by hand, for tests: they can claim what no encoder writes.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace korvel::test {

enum class TiffType : std::uint16_t { Byte = 1, Short = 3, Long = 4 };

namespace tiff_tag {
inline constexpr std::uint16_t kWidth = 256;
inline constexpr std::uint16_t kHeight = 257;
inline constexpr std::uint16_t kBitsPerSample = 258;
inline constexpr std::uint16_t kCompression = 259;
inline constexpr std::uint16_t kColours = 262;
inline constexpr std::uint16_t kFillOrder = 266;
inline constexpr std::uint16_t kDescription = 270;
inline constexpr std::uint16_t kStripPlaces = 273;
inline constexpr std::uint16_t kSamplesPerPixel = 277;
inline constexpr std::uint16_t kRowsPerStrip = 278;
inline constexpr std::uint16_t kStripBytes = 279;
inline constexpr std::uint16_t kPlanes = 284;
inline constexpr std::uint16_t kPredictor = 317;
inline constexpr std::uint16_t kPalette = 320;
inline constexpr std::uint16_t kTileWidth = 322;
inline constexpr std::uint16_t kTileHeight = 323;
inline constexpr std::uint16_t kTilePlaces = 324;
inline constexpr std::uint16_t kTileBytes = 325;
inline constexpr std::uint16_t kSubDirectories = 330;
inline constexpr std::uint16_t kExtraSamples = 338;
inline constexpr std::uint16_t kSampleFormats = 339;
inline constexpr std::uint16_t kCameraDirectory = 34665;
}  // namespace tiff_tag

// A picture of red, green and blue, a byte each, whose pixels are in these strips. Tests change
// what they are about and ask for the bytes: header, parts, numbers, and the directory last.
struct TiffFile {
  struct Entry {
    TiffType Type = TiffType::Long;
    std::vector<std::uint32_t> Numbers;
  };

  TiffFile(std::uint32_t width, std::uint32_t height, std::uint32_t rowsPerStrip,
           std::vector<std::string> strips);

  [[nodiscard]] std::string Bytes() const;
  // Where the directory is in them.
  [[nodiscard]] std::size_t DirectoryPlace() const;

  bool IsHighestFirst = false;
  std::vector<std::string> Parts;
  std::map<std::uint16_t, Entry> Entries;  // the parts' places and sizes too, once they are set
  std::uint32_t NextDirectory = 0;
};

// The same in tiles.
[[nodiscard]] TiffFile TiledTiff(std::uint32_t width, std::uint32_t height, std::uint32_t tileWidth,
                                 std::uint32_t tileHeight, std::vector<std::string> tiles);

// An ICO file of these pictures.
[[nodiscard]] std::string IcoFile(const std::vector<std::string>& pictures);

// One of them: a header with that size, of which the height counts the mask too, and what is
// behind.
[[nodiscard]] std::string IcoPicture(std::uint32_t width, std::uint32_t height, std::uint16_t bits,
                                     const std::string& rest);

}  // namespace korvel::test
