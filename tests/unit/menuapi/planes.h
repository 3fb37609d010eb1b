// A decoded frame for tests: its samples by plane and position, and a check that the bytes after
// the frame are unchanged.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "menuapi/decoder.h"

namespace menuapi::test {

// Initial value of each byte of a buffer. The bytes after the frame must keep it.
inline constexpr std::uint8_t kUntouched = 0xA5;

// A frame in a buffer of the size that the engine allocates, which exceeds the frame if a side is
// odd, and some bytes to detect writes past its end.
class Planes {
 public:
  explicit Planes(FrameSize size)
      : size_(size), bytes_(LumaBytes(size) * 3 / 2 + kGuardBytes, kUntouched) {}

  // Decodes into the buffer. A write past the frame fails the test.
  Result Decode(std::span<const std::uint8_t> stream);

  [[nodiscard]] int Luma(int x, int y) const { return At(0, size_.width, x, y); }
  [[nodiscard]] int Blue(int x, int y) const { return At(LumaBytes(size_), size_.width / 2, x, y); }
  [[nodiscard]] int Red(int x, int y) const {
    return At(LumaBytes(size_) + ChromaBytes(size_), size_.width / 2, x, y);
  }
  [[nodiscard]] FrameSize Size() const { return size_; }
  [[nodiscard]] std::span<const std::uint8_t> Bytes() const {
    return std::span(bytes_).first(PlanesBytes(size_));
  }
  [[nodiscard]] bool IsBlack() const;
  [[nodiscard]] bool IsUntouched() const;

 private:
  static constexpr std::size_t kGuardBytes = 64;

  [[nodiscard]] int At(std::size_t plane, int width, int x, int y) const {
    return bytes_.at(plane + static_cast<std::size_t>(y * width + x));
  }

  FrameSize size_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace menuapi::test
