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

// Owns the bytes of a frame. The decoder that fills them is not ours, is not told how many there
// are, and takes the size from the stream anew: so there is always room for the largest frame that
// a sequence header can speak of. What stays unused of it costs no memory.
class PlanarFrame {
 public:
  // Bytes() is null when memory is out. The sides are above 0.
  explicit PlanarFrame(FrameSize size);
  ~PlanarFrame() { ReleaseMemory(bytes_); }
  PlanarFrame(const PlanarFrame&) = delete;
  PlanarFrame& operator=(const PlanarFrame&) = delete;

  [[nodiscard]] FrameSize Size() const { return size_; }
  [[nodiscard]] std::uint8_t* Bytes() const { return bytes_; }

  // Whether the luma samples are all as they were at first. No decoder makes them so: black is 16.
  [[nodiscard]] bool IsUntouched() const;

  // The opaque colours of a row's pixels, 0xAARRGGBB; there is room for all of them.
  void ConvertRow(std::int32_t row, std::uint32_t* pixels) const;

 private:
  FrameSize size_;
  std::uint8_t* bytes_;
};

}  // namespace korvel
