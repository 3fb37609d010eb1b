// Content paths, and the sizes in the headers of PNG, GIF, BMP, JPEG and MPEG-2 files.
#include "appearance/content_file.h"

#include <algorithm>
#include <cstddef>

#include "platform/files.h"

namespace korvel {
namespace {

// The numbers of a file header. Bytes past the end of the file are 0, so a size that is cut short
// is too small or 0, which is refused.
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

bool IsDecodablePng(const Header& header) {
  return IsDecodableSize(header.Big32(16), header.Big32(20));
}

// The offset of the first frame, after the palette and the extensions.
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

// A GIF screen without a size is as large as its frame.
bool IsDecodableGif(const Header& header) {
  const std::uint64_t screen = std::uint64_t{header.Little16(6)} * header.Little16(8);
  const std::size_t frame = FirstGifFrame(header);
  return screen <= kMostPicturePixels &&
         IsDecodableSize(header.Little16(frame + 5), header.Little16(frame + 7));
}

// A negative height means that the rows begin at the top.
std::uint32_t Magnitude(std::uint32_t number) {
  return (number & 0x8000'0000) != 0 ? 0 - number : number;
}

// The offset of the pixels must be inside the file: under Wine GDI+ reads at any offset.
bool IsDecodableBmp(const Header& header, std::size_t fileBytes) {
  constexpr std::uint32_t kOldHeaderBytes = 12;
  if (header.Little32(10) > fileBytes) return false;
  if (header.Little32(14) == kOldHeaderBytes) {
    return IsDecodableSize(header.Little16(18), header.Little16(20));
  }
  return IsDecodableSize(header.Little32(18), Magnitude(header.Little32(22)));
}

// JPEG markers: 0xFF and a number. Inside the data of a scan a 0xFF is followed by 0.
constexpr std::uint32_t kFirstFrame = 0xC0;
constexpr std::uint32_t kLastFrame = 0xCF;
constexpr std::uint32_t kHuffmanTables = 0xC4;
constexpr std::uint32_t kJpegExtension = 0xC8;
constexpr std::uint32_t kArithmeticTables = 0xCC;
constexpr std::uint32_t kFirstRestart = 0xD0;
constexpr std::uint32_t kEndOfImage = 0xD9;
constexpr std::uint32_t kScan = 0xDA;

bool IsFrame(std::uint32_t marker) {
  return marker >= kFirstFrame && marker <= kLastFrame && marker != kHuffmanTables &&
         marker != kJpegExtension && marker != kArithmeticTables;
}

bool HasSegment(std::uint32_t marker) {
  return marker >= kFirstFrame && (marker < kFirstRestart || marker > kEndOfImage) &&
         marker != 0xFF;
}

// Decoders stop at the end of the image. Some cameras append other data to it.
bool IsDecodableJpeg(const Header& header, std::string_view file) {
  std::uint64_t pixels = 0;
  std::uint64_t scans = 0;
  std::size_t at = 2;
  while ((at = file.find('\xFF', at)) != std::string_view::npos) {
    const std::uint32_t marker = header.Byte(at + 1);
    if (marker == kEndOfImage) break;
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

// MPEG-2 sequence headers and their extensions: ISO/IEC 13818-2, 6.2.2.
constexpr std::string_view kSequenceHeader("\x00\x00\x01\xB3", 4);
constexpr std::string_view kExtension("\x00\x00\x01\xB5", 4);
constexpr std::uint32_t kSequenceExtension = 1;

// An extension begins with its kind (4 bits). A sequence extension continues with 11 other bits,
// then the two highest bits of the width and the two highest bits of the height.
bool ExtendsSize(const Header& header, std::size_t extension) {
  const std::size_t payload = extension + kExtension.size();
  if (header.Byte(payload) >> 4 != kSequenceExtension) return false;
  return (header.Byte(payload + 1) & 0x01) != 0 || (header.Byte(payload + 2) & 0xE0) != 0;
}

bool HasLargerFrames(const Header& header, std::string_view stream) {
  std::size_t at = stream.find(kExtension);
  while (at != std::string_view::npos && !ExtendsSize(header, at)) {
    at = stream.find(kExtension, at + kExtension.size());
  }
  return at != std::string_view::npos;
}

}  // namespace

bool ContentPath(std::string_view reference, OctetString& path) {
  const std::size_t slash = reference.find('/');
  if (!path.Assign(slash == std::string_view::npos ? reference : reference.substr(slash + 1))) {
    return false;
  }
  std::replace(path.MutableBytes(), path.MutableBytes() + path.Length(), '/', '\\');
  return true;
}

bool ReadPictureContent(const ContentBody& content, OctetString& file, std::string_view& bytes) {
  bytes = content.Data.View();
  if (content.IsReferenced) {
    OctetString path;
    if (!ContentPath(content.Data.TextView(), path) || !FetchFile(path.View(), &file)) return false;
    bytes = file.View();
  }
  return !bytes.empty();
}

bool MayBeDecoded(std::string_view file) {
  if (file.size() > kMostPictureBytes) return false;
  const Header header(file);
  if (file.starts_with("\x89PNG\r\n\x1A\n")) return IsDecodablePng(header);
  if (file.starts_with("GIF8")) return IsDecodableGif(header);
  if (file.starts_with("BM")) return IsDecodableBmp(header, file.size());
  if (file.starts_with("\xFF\xD8")) return IsDecodableJpeg(header, file);
  return true;
}

bool FindFrameSize(std::string_view stream, FrameSize& size) {
  constexpr std::size_t kHeaderAndSize = 7;
  if (stream.size() < kHeaderAndSize || stream.size() > kMostPictureBytes ||
      !stream.starts_with(kSequenceHeader)) {
    return false;
  }
  const Header header(stream);
  const std::uint32_t sides = header.Big32(3) & 0xFF'FFFF;  // 12 bits each
  const std::uint32_t width = sides >> 12;
  const std::uint32_t height = sides & 0xFFF;
  if (!IsDecodableSize(width, height) || HasLargerFrames(header, stream)) return false;
  size = {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
  return true;
}

}  // namespace korvel
