// A frame in planar YUV 4:2:0: the luma plane, then the two chroma planes, each of whose samples
// serves two by two pixels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "objects/memory.h"

namespace korvel {

struct FrameSize {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
};

// Owns the bytes of a frame. The decoder that fills them is not ours, so there is room for a whole
// row and column of macroblocks more than the frame needs.
class PlanarFrame {
 public:
  // Bytes() is null when memory is out. The sides are above 0.
  explicit PlanarFrame(FrameSize size) noexcept;
  ~PlanarFrame() { ReleaseMemory(bytes_); }
  PlanarFrame(const PlanarFrame&) = delete;
  PlanarFrame& operator=(const PlanarFrame&) = delete;

  [[nodiscard]] FrameSize Size() const noexcept { return size_; }
  [[nodiscard]] std::uint8_t* Bytes() const noexcept { return bytes_; }

  // The opaque colour of a pixel, 0xAARRGGBB.
  [[nodiscard]] std::uint32_t PixelAt(std::int32_t column, std::int32_t row) const noexcept;

 private:
  FrameSize size_;
  std::uint8_t* bytes_;
};

}  // namespace korvel
