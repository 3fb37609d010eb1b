// Writing the numbers of TIFF and ICO files.
#include "support/picture_files.h"

#include <utility>

namespace korvel::test {

namespace {

std::string Number(std::uint32_t number, int bytes, bool isHighestFirst = false) {
  std::string text;
  for (int byte = 0; byte < bytes; ++byte) {
    text += static_cast<char>(number >> 8 * (isHighestFirst ? bytes - 1 - byte : byte));
  }
  return text;
}

int SizeOf(TiffType type) {
  switch (type) {
  case TiffType::Byte: return 1;
  case TiffType::Short: return 2;
  case TiffType::Long: break;
  }
  return 4;
}

// A file while it is written: the places of the parts are known, and so are those of the numbers.
class TiffWriter {
 public:
  explicit TiffWriter(const TiffFile& file) : file_(file), entries_(file.Entries) {
    bytes_ = (file.IsHighestFirst ? "MM" : "II") + Numeral(42, 2) + Numeral(0, 4);
    AppendParts();
    for (const auto& [tag, entry] : entries_) AppendEntry(tag, entry);
    place_ = bytes_.size();
    bytes_.replace(4, 4, Numeral(static_cast<std::uint32_t>(place_), 4));
    bytes_ += Numeral(static_cast<std::uint32_t>(entries_.size()), 2) + directory_ +
              Numeral(file.NextDirectory, 4);
  }
  [[nodiscard]] const std::string& Bytes() const { return bytes_; }
  [[nodiscard]] std::size_t DirectoryPlace() const { return place_; }

 private:
  [[nodiscard]] std::string Numeral(std::uint32_t number, int bytes) const {
    return Number(number, bytes, file_.IsHighestFirst);
  }
  void AppendParts() {
    TiffFile::Entry places;
    TiffFile::Entry sizes;
    for (const std::string& part : file_.Parts) {
      places.Numbers.push_back(static_cast<std::uint32_t>(bytes_.size()));
      sizes.Numbers.push_back(static_cast<std::uint32_t>(part.size()));
      bytes_ += part;
    }
    const bool isTiled = entries_.contains(tiff_tag::kTileWidth);
    entries_.try_emplace(isTiled ? tiff_tag::kTilePlaces : tiff_tag::kStripPlaces, places);
    entries_.try_emplace(isTiled ? tiff_tag::kTileBytes : tiff_tag::kStripBytes, sizes);
  }
  void AppendEntry(std::uint16_t tag, const TiffFile::Entry& entry) {
    std::string numbers;
    for (const std::uint32_t number : entry.Numbers) numbers += Numeral(number, SizeOf(entry.Type));
    directory_ += Numeral(tag, 2) + Numeral(static_cast<std::uint32_t>(entry.Type), 2) +
                  Numeral(static_cast<std::uint32_t>(entry.Numbers.size()), 4);
    if (numbers.size() <= 4) {
      directory_ += numbers + std::string(4 - numbers.size(), '\0');
    } else {
      directory_ += Numeral(static_cast<std::uint32_t>(bytes_.size()), 4);
      bytes_ += numbers;
    }
  }

  const TiffFile& file_;
  std::map<std::uint16_t, TiffFile::Entry> entries_;
  std::string bytes_;
  std::string directory_;
  std::size_t place_ = 0;
};

}  // namespace

TiffFile::TiffFile(std::uint32_t width, std::uint32_t height, std::uint32_t rowsPerStrip,
                   std::vector<std::string> strips)
    : Parts(std::move(strips)),
      Entries{{tiff_tag::kWidth, {TiffType::Long, {width}}},
              {tiff_tag::kHeight, {TiffType::Long, {height}}},
              {tiff_tag::kBitsPerSample, {TiffType::Short, {8, 8, 8}}},
              {tiff_tag::kCompression, {TiffType::Short, {1}}},
              {tiff_tag::kColours, {TiffType::Short, {2}}},
              {tiff_tag::kSamplesPerPixel, {TiffType::Short, {3}}},
              {tiff_tag::kRowsPerStrip, {TiffType::Long, {rowsPerStrip}}}} {}

std::string TiffFile::Bytes() const { return TiffWriter(*this).Bytes(); }

std::size_t TiffFile::DirectoryPlace() const { return TiffWriter(*this).DirectoryPlace(); }

TiffFile TiledTiff(std::uint32_t width, std::uint32_t height, std::uint32_t tileWidth,
                   std::uint32_t tileHeight, std::vector<std::string> tiles) {
  TiffFile file(width, height, 0, std::move(tiles));
  file.Entries.erase(tiff_tag::kRowsPerStrip);
  file.Entries[tiff_tag::kTileWidth] = {TiffType::Long, {tileWidth}};
  file.Entries[tiff_tag::kTileHeight] = {TiffType::Long, {tileHeight}};
  return file;
}

std::string IcoFile(const std::vector<std::string>& pictures) {
  constexpr std::uint32_t kHeaderBytes = 6;
  constexpr std::uint32_t kEntryBytes = 16;
  const auto count = static_cast<std::uint32_t>(pictures.size());
  std::string directory = Number(0, 2) + Number(1, 2) + Number(count, 2);
  std::string data;
  for (const std::string& picture : pictures) {
    const auto place = kHeaderBytes + kEntryBytes * count + static_cast<std::uint32_t>(data.size());
    directory += Number(0x1010, 4) + Number(0x00200001, 4) +
                 Number(static_cast<std::uint32_t>(picture.size()), 4) + Number(place, 4);
    data += picture;
  }
  return directory + data;
}

std::string IcoPicture(std::uint32_t width, std::uint32_t height, std::uint16_t bits,
                       const std::string& rest) {
  return Number(40, 4) + Number(width, 4) + Number(height, 4) + Number(1, 2) + Number(bits, 2) +
         std::string(24, '\0') + rest;
}

}  // namespace korvel::test
