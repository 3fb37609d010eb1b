// Reads the bits of one unit of the stream, most significant first. Only this code reads the
// stream's bytes. Reads past the end of the unit yield zeros. Header-only so that it is inlined:
// nearly all decoding time is spent here.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace menuapi {

class BitReader {
 public:
  // Borrows the bytes.
  explicit BitReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  // The next `count` bits (1 to 32), without consuming them.
  [[nodiscard]] std::uint32_t Peek(int count) const {
    const std::size_t first = position_ / 8;
    const bool isInside = first + kWordBytes <= bytes_.size();
    const std::uint64_t word = isInside ? WordAt(&bytes_[first]) : WordNearEnd(first);
    return static_cast<std::uint32_t>(word << position_ % 8 >> (64 - count));
  }
  void Skip(int count) { position_ += static_cast<std::size_t>(count); }
  std::uint32_t Read(int count) {
    const std::uint32_t bits = Peek(count);
    Skip(count);
    return bits;
  }
  bool ReadFlag() { return Read(1) != 0; }
  // Whether bits past the end have been skipped or read.
  [[nodiscard]] bool HasPassedEnd() const { return position_ > bytes_.size() * 8; }

 private:
  // Holds the rest of a partly read byte and 32 more bits.
  static constexpr std::size_t kWordBytes = 8;

  // Compilers turn this expression into one load.
  static std::uint64_t WordAt(const std::uint8_t* bytes) {
    return std::uint64_t{bytes[0]} << 56 | std::uint64_t{bytes[1]} << 48 |
           std::uint64_t{bytes[2]} << 40 | std::uint64_t{bytes[3]} << 32 |
           std::uint64_t{bytes[4]} << 24 | std::uint64_t{bytes[5]} << 16 |
           std::uint64_t{bytes[6]} << 8 | std::uint64_t{bytes[7]};
  }
  // The last bytes of the unit, padded with zeros.
  [[nodiscard]] std::uint64_t WordNearEnd(std::size_t first) const {
    const auto rest = bytes_.subspan(std::min(first, bytes_.size()));
    std::array<std::uint8_t, kWordBytes> bytes{};
    std::copy(rest.begin(), rest.end(), bytes.begin());
    return WordAt(bytes.data());
  }

  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;  // in bits
};

}  // namespace menuapi
