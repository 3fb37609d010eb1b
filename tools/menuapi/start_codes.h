// Splits a video stream into units: each begins with the prefix 00 00 01 and a code, and ends at
// the next prefix.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace menuapi {

// ISO/IEC 13818-2, table 6-1.
enum StartCode : std::uint8_t {
  kPictureStart = 0x00,
  kFirstSlice = 0x01,
  kLastSlice = 0xAF,
  kSequenceHeader = 0xB3,
  kExtension = 0xB5,
  kSequenceEnd = 0xB7,
};

struct Unit {
  std::uint8_t code = kSequenceEnd;
  std::span<const std::uint8_t> payload;  // after the code; borrowed from the stream

  [[nodiscard]] bool IsSlice() const { return code >= kFirstSlice && code <= kLastSlice; }
};

class StartCodes {
 public:
  // Starts at the stream's first unit. Borrows the stream.
  explicit StartCodes(std::span<const std::uint8_t> stream);

  // The current unit; after the last one, a sequence end.
  [[nodiscard]] const Unit& Current() const { return current_; }
  [[nodiscard]] bool IsAtEnd() const { return isAtEnd_; }
  void Advance();

 private:
  // The offset of the first prefix at or after `offset`; the stream's size if there is none.
  [[nodiscard]] std::size_t NextPrefix(std::size_t offset) const;

  std::span<const std::uint8_t> stream_;
  std::size_t next_ = 0;  // offset of the prefix after the current unit
  Unit current_;
  bool isAtEnd_ = false;
};

}  // namespace menuapi
