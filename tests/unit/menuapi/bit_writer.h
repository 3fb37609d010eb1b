// Writes bits, most significant first, for hand-made streams. Knows nothing about the syntax of
// streams.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace menuapi::test {

class BitWriter {
 public:
  // The lowest `count` bits of the number.
  void Put(unsigned value, int count) {
    for (int bit = count - 1; bit >= 0; --bit) PutBit((value >> bit & 1) != 0);
  }
  // Bits written as "0" and "1", with optional blanks.
  void Put(std::string_view bits) {
    for (const char bit : bits) {
      if (bit != ' ') PutBit(bit == '1');
    }
  }
  // Zeros up to the next whole byte.
  void Align() {
    while (count_ % 8 != 0) PutBit(false);
  }
  [[nodiscard]] const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  void PutBit(bool isSet) {
    if (count_ % 8 == 0) bytes_.push_back(0);
    if (isSet) bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | 0x80 >> count_ % 8);
    ++count_;
  }

  std::vector<std::uint8_t> bytes_;
  std::size_t count_ = 0;
};

}  // namespace menuapi::test
