// Builds small PNG and GIF files byte by byte, so that they can claim sizes and contain data that
// no encoder writes.
#include <algorithm>
#include <array>

#include "support/number_bytes.h"
#include "windows/presentation/content.h"

namespace korvel::test {

namespace {

std::uint32_t Crc(const std::string& bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char byte : bytes) {
    crc ^= static_cast<std::uint8_t>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

// Writes bits in deflate's order: the lowest bit of each byte first.
class BitWriter {
 public:
  void Write(std::uint32_t bits, int count) {
    for (int bit = 0; bit < count; ++bit) {
      if (filled_ % 8 == 0) bytes_ += '\0';
      bytes_.back() = static_cast<char>(bytes_.back() | (bits >> bit & 1) << filled_ % 8);
      ++filled_;
    }
  }
  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
  int filled_ = 0;
};

// `count` zero bytes in deflate's fixed codes: one literal, then matches of length 258 at distance
// 1, then literals for the rest.
std::string CompressedZeros(std::uint64_t count) {
  constexpr std::uint64_t kLongest = 258;
  BitWriter writer;
  writer.Write(0b011, 3);  // the last block, in fixed codes
  const auto literal = [&writer] { writer.Write(0b00001100, 8); };
  literal();
  for (--count; count >= kLongest; count -= kLongest) writer.Write(0b00000'10100011, 13);
  for (; count > 0; --count) literal();
  writer.Write(0, 7);
  return writer.Bytes();
}

}  // namespace

std::string ZlibOfZeros(std::uint64_t count) {
  const auto checksum = static_cast<std::uint32_t>(count % 65521) << 16 | 1;
  return "\x78\x01" + CompressedZeros(count) + Big(checksum, 4);
}

std::string PngChunk(const std::string& name, const std::string& data) {
  return Big(static_cast<std::uint32_t>(data.size()), 4) + name + data + Big(Crc(name + data), 4);
}

std::string FlatPngWith(std::uint32_t width, std::uint32_t height, std::uint32_t colour,
                        const std::string& chunks) {
  // One bit per pixel, an index into a palette of one colour; a filter byte before each row.
  const std::string header = Big(width, 4) + Big(height, 4) + std::string("\x01\x03\0\0\0", 5);
  const std::uint64_t bytes = (std::uint64_t{width} + 7) / 8 + 1;
  return "\x89PNG\r\n\x1A\n" + PngChunk("IHDR", header) + chunks +
         PngChunk("PLTE", Big(colour, 4).substr(1)) +
         PngChunk("IDAT", ZlibOfZeros(bytes * height)) + PngChunk("IEND", "");
}

std::string FlatPng(std::uint32_t width, std::uint32_t height, std::uint32_t colour) {
  return FlatPngWith(width, height, colour, "");
}

std::string GifFile(int frames, std::uint16_t width, std::uint16_t height) {
  std::string bytes =
      "GIF89a" + Little(width, 2) + Little(height, 2) + std::string("\x80\0\0\0\xFF\0\0\0\0", 9);
  const std::string frame("\x2C\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0", 15);
  for (int count = 0; count < frames; ++count) bytes += frame;
  return bytes + ';';
}

}  // namespace korvel::test
