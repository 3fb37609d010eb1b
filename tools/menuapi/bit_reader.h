// Bits of one unit of the stream, most significant first. All content is read through this: past
// the unit's end there are zeros, and no read leaves the unit. It is in the header whole because
// everything that costs time passes through it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace menuapi {

class BitReader {
 public:
  // Borrows the bytes for as long as it lives.
  explicit BitReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  // The next 1 to 32 bits, which stay unread.
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
  // Whether some of what has been read was not there.
  [[nodiscard]] bool HasPassedEnd() const { return position_ > bytes_.size() * 8; }

 private:
  static constexpr std::size_t kWordBytes = 8;  // the bits of a begun byte, and 32 more, fit

  // Written out like this, compilers make one load of it.
  static std::uint64_t WordAt(const std::uint8_t* bytes) {
    return std::uint64_t{bytes[0]} << 56 | std::uint64_t{bytes[1]} << 48 |
           std::uint64_t{bytes[2]} << 40 | std::uint64_t{bytes[3]} << 32 |
           std::uint64_t{bytes[4]} << 24 | std::uint64_t{bytes[5]} << 16 |
           std::uint64_t{bytes[6]} << 8 | std::uint64_t{bytes[7]};
  }
  // The last bytes of the unit, and zeros.
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
