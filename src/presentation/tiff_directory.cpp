// Entries of twelve bytes: a tag, the type and the count of its numbers, and the numbers, or their
// place when they take more than four bytes.
#include "presentation/tiff_directory.h"

#include <array>

#include "presentation/file_reader.h"

namespace korvel {

namespace {

constexpr std::size_t kHeaderBytes = 8;
constexpr std::size_t kCountBytes = 2;
constexpr std::size_t kEntryBytes = 12;

// What stands behind the entries: the place of the next directory.
constexpr std::string_view kNoDirectory("\0\0\0\0", 4);

std::uint32_t Read16(FileReader& reader, ByteOrder order) noexcept {
  return order == ByteOrder::HighestFirst ? reader.Big16() : reader.Little16();
}

std::uint32_t Read32(FileReader& reader, ByteOrder order) noexcept {
  return order == ByteOrder::HighestFirst ? reader.Big32() : reader.Little32();
}

// Where the number of an entry that has only one belongs; null for all other entries.
std::uint32_t* NumberOf(std::uint32_t tag, TiffPicture& picture) noexcept {
  switch (tag) {
  case 256: return &picture.Width;
  case 257: return &picture.Height;
  case 259: return &picture.Compression;
  case 262: return &picture.Colours;
  case 266: return &picture.FillOrder;
  case 277: return &picture.SamplesPerPixel;
  case 278: return &picture.RowsPerStrip;
  case 284: return &picture.Planes;
  case 317: return &picture.Predictor;
  case 322: return &picture.TileWidth;
  case 323: return &picture.TileHeight;
  default: return nullptr;
  }
}

// Where the numbers of an entry that may have many belong; null for all other entries.
TiffNumbers* NumbersOf(std::uint32_t tag, TiffPicture& picture) noexcept {
  switch (tag) {
  case 258: return &picture.BitsPerSample;
  case 273: return &picture.StripPlaces;
  case 279: return &picture.StripBytes;
  case 320: return &picture.Palette;
  case 324: return &picture.TilePlaces;
  case 325: return &picture.TileBytes;
  case 338: return &picture.ExtraSamples;
  case 339: return &picture.SampleFormats;
  default: return nullptr;
  }
}

// A number of entries as the file has it, from a row of such numbers with the highest byte first: a
// byte further on, they have it last.
std::string_view EntryCount(std::size_t count, ByteOrder order) noexcept {
  constexpr std::size_t kMostEntries = 19;  // as many as there are tags above
  static constexpr auto kCounts = [] {
    std::array<char, (kMostEntries + 1) * kCountBytes + 1> counts{};
    for (std::size_t number = 0; number <= kMostEntries; ++number) {
      counts[number * kCountBytes + 1] = static_cast<char>(number);
    }
    return counts;
  }();
  const std::size_t shift = order == ByteOrder::HighestFirst ? 0 : 1;
  return {kCounts.data() + count * kCountBytes + shift, kCountBytes};
}

struct Directory {
  std::string_view File;
  ByteOrder Order = ByteOrder::LowestFirst;
  std::size_t Start = 0;
  std::size_t End = 0;  // behind the place of the next one
};

[[nodiscard]] bool FindDirectory(std::string_view file, Directory& directory) noexcept {
  directory.File = file;
  if (file.starts_with("MM")) directory.Order = ByteOrder::HighestFirst;
  FileReader header(file);
  header.Skip(4);  // the signature
  directory.Start = Read32(header, directory.Order);
  if (directory.Start < kHeaderBytes || directory.Start > file.size()) return false;
  FileReader reader(file.substr(directory.Start));
  const std::size_t entries = Read16(reader, directory.Order);
  directory.End = directory.Start + kCountBytes + entries * kEntryBytes + kNoDirectory.size();
  return directory.End <= file.size();
}

// The numbers may not lie where the directory is, for what is there changes.
[[nodiscard]] bool ReadNumbers(const Directory& directory, std::string_view entry,
                               TiffNumbers& numbers) noexcept {
  FileReader reader(entry);
  reader.Skip(2);  // the tag
  const std::uint32_t type = Read16(reader, directory.Order);
  if (type != 3 && type != 4) return false;
  numbers.Size = type == 3 ? 2 : 4;
  numbers.Order = directory.Order;
  const std::uint64_t bytes = std::uint64_t{Read32(reader, directory.Order)} * numbers.Size;
  const auto size = static_cast<std::size_t>(bytes);
  if (bytes <= 4) {
    numbers.Bytes = entry.substr(reader.At(), size);
    return true;
  }
  const std::uint64_t start = Read32(reader, directory.Order);
  const std::uint64_t end = start + bytes;
  if (end > directory.File.size() || (start < directory.End && end > directory.Start)) return false;
  numbers.Bytes = directory.File.substr(static_cast<std::size_t>(start), size);
  return true;
}

// Appends the entries of the picture, which come in ascending order, and so each of them once.
[[nodiscard]] bool ReadEntries(const Directory& directory, TiffPicture& picture,
                               FilePieces& pieces) noexcept {
  std::uint32_t last = 0;
  const std::size_t end = directory.End - kNoDirectory.size();
  for (std::size_t at = directory.Start + kCountBytes; at < end; at += kEntryBytes) {
    const std::string_view entry = directory.File.substr(at, kEntryBytes);
    FileReader reader(entry);
    const std::uint32_t tag = Read16(reader, directory.Order);
    std::uint32_t* number = NumberOf(tag, picture);
    TiffNumbers* numbers = NumbersOf(tag, picture);
    if (number == nullptr && numbers == nullptr) continue;
    TiffNumbers read;
    if (tag <= last || !ReadNumbers(directory, entry, read)) return false;
    last = tag;
    if (numbers != nullptr) *numbers = read;
    if (number != nullptr) {
      if (read.Count() != 1) return false;
      *number = read.At(0);
    }
    if (!pieces.Append(entry)) return false;
  }
  return true;
}

}  // namespace

std::uint32_t TiffNumbers::At(std::size_t index) const noexcept {
  FileReader reader(Bytes.substr(index * Size, Size));
  return Size == 2 ? Read16(reader, Order) : Read32(reader, Order);
}

bool ReadTiffDirectory(std::string_view file, TiffPicture& picture, FilePieces& pieces) noexcept {
  Directory directory;
  if (!FindDirectory(file, directory) || !pieces.Append(file.substr(0, directory.Start))) {
    return false;
  }
  const std::size_t place = pieces.Size();
  if (!pieces.Append({}) || !ReadEntries(directory, picture, pieces)) return false;
  const std::size_t entries = pieces.Size() - place - 1;
  pieces[place] = EntryCount(entries, directory.Order);
  const std::size_t end =
      directory.Start + kCountBytes + entries * kEntryBytes + kNoDirectory.size();
  return pieces.Append(kNoDirectory) && pieces.Append(file.substr(end));
}

}  // namespace korvel
