// The headers of the four formats whose size is looked at. Each function returns the pixels that
// the header claims; 0 means none, or that the header is cut short.
#include "appearance/picture_size.h"

#include <cstddef>

namespace korvel {

namespace {

// Numbers of a file; bytes past its end are 0.
class Header {
 public:
  explicit Header(std::string_view file) : file_(file) {}

  [[nodiscard]] std::uint32_t Byte(std::size_t offset) const {
    return offset < file_.size() ? static_cast<unsigned char>(file_[offset]) : 0;
  }
  [[nodiscard]] std::uint32_t Big16(std::size_t offset) const {
    return Byte(offset) << 8 | Byte(offset + 1);
  }
  [[nodiscard]] std::uint32_t Big32(std::size_t offset) const {
    return Big16(offset) << 16 | Big16(offset + 2);
  }
  [[nodiscard]] std::uint32_t Little16(std::size_t offset) const {
    return Byte(offset) | Byte(offset + 1) << 8;
  }
  [[nodiscard]] std::uint32_t Little32(std::size_t offset) const {
    return Little16(offset) | Little16(offset + 2) << 16;
  }

 private:
  std::string_view file_;
};

bool IsDecodablePng(std::string_view file) {
  const Header header(file);
  return IsDecodableSize(header.Big32(16), header.Big32(20));
}

// The position of the first frame, after the palette and the extensions.
std::size_t FirstGifFrame(const Header& header) {
  const std::uint32_t flags = header.Byte(10);
  std::size_t at = 13 + ((flags & 0x80) != 0 ? std::size_t{6} << (flags & 7) : 0);
  while (header.Byte(at) == '!') {
    at += 2;
    while (header.Byte(at) != 0) at += 1 + header.Byte(at);
    ++at;
  }
  return at;
}

// A screen of no size is as large as its frame.
bool IsDecodableGif(std::string_view file) {
  const Header header(file);
  const std::uint64_t screen = std::uint64_t{header.Little16(6)} * header.Little16(8);
  const std::size_t frame = FirstGifFrame(header);
  return screen <= kMostPicturePixels &&
         IsDecodableSize(header.Little16(frame + 5), header.Little16(frame + 7));
}

// A height below 0 means that the rows begin at the top.
std::uint32_t Magnitude(std::uint32_t number) {
  return (number & 0x8000'0000) != 0 ? 0 - number : number;
}

// Under Wine GDI+ follows the offset of the pixels wherever it leads.
bool IsDecodableBmp(std::string_view file) {
  const Header header(file);
  constexpr std::uint32_t kOldHeaderBytes = 12;
  if (header.Little32(10) > file.size()) return false;
  if (header.Little32(14) == kOldHeaderBytes) {
    return IsDecodableSize(header.Little16(18), header.Little16(20));
  }
  return IsDecodableSize(header.Little32(18), Magnitude(header.Little32(22)));
}

// JPEG markers: 0xFF and a number. Inside the data of a scan a 0xFF is followed by 0.
constexpr std::uint32_t kFirstFrame = 0xC0;
constexpr std::uint32_t kLastFrame = 0xCF;
constexpr std::uint32_t kHuffmanTables = 0xC4;
constexpr std::uint32_t kExtension = 0xC8;
constexpr std::uint32_t kArithmeticTables = 0xCC;
constexpr std::uint32_t kFirstRestart = 0xD0;
constexpr std::uint32_t kStartOfImage = 0xD8;
constexpr std::uint32_t kScan = 0xDA;

bool IsFrame(std::uint32_t marker) {
  return marker >= kFirstFrame && marker <= kLastFrame && marker != kHuffmanTables &&
         marker != kExtension && marker != kArithmeticTables;
}

bool HasSegment(std::uint32_t marker) {
  return marker >= kFirstFrame && (marker < kFirstRestart || marker > kStartOfImage + 1) &&
         marker != 0xFF;
}

bool IsDecodableJpeg(std::string_view file) {
  const Header header(file);
  std::uint64_t pixels = 0;
  std::uint64_t scans = 0;
  std::size_t at = 2;
  while ((at = file.find('\xFF', at)) != std::string_view::npos) {
    const std::uint32_t marker = header.Byte(at + 1);
    ++at;
    if (!HasSegment(marker)) continue;
    if (IsFrame(marker)) {
      const std::uint32_t height = header.Big16(at + 4);
      const std::uint32_t width = header.Big16(at + 6);
      if (!IsDecodableSize(width, height)) return false;
      pixels = std::uint64_t{width} * height;
    }
    if (marker == kScan && ++scans * pixels > kMostJpegScanPixels) return false;
    at += 1 + header.Big16(at + 1);
  }
  return pixels > 0;
}

}  // namespace

bool MayBeDecoded(std::string_view file) {
  if (file.size() > kMostPictureBytes) return false;
  if (file.starts_with("\x89PNG\r\n\x1A\n")) return IsDecodablePng(file);
  if (file.starts_with("GIF8")) return IsDecodableGif(file);
  if (file.starts_with("BM")) return IsDecodableBmp(file);
  if (file.starts_with("\xFF\xD8")) return IsDecodableJpeg(file);
  return true;
}

}  // namespace korvel
