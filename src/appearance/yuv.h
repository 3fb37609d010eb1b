// A frame in planar YUV 4:2:0: the luma plane, then the two chroma planes with one sample for each
// two by two pixels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "objects/memory.h"

namespace korvel {

struct FrameSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// Owns the bytes of a frame. The host's decoder fills them without knowing how many there are, and
// reads the size from the stream again. So the buffer is always large enough for any frame that a
// sequence header can describe; the system only commits the pages that are written.
class PlanarFrame {
 public:
  // Bytes() is null if memory runs out. Both sides must be above 0.
  explicit PlanarFrame(FrameSize size);
  ~PlanarFrame() { ReleaseMemory(bytes_); }
  PlanarFrame(const PlanarFrame&) = delete;
  PlanarFrame& operator=(const PlanarFrame&) = delete;

  [[nodiscard]] FrameSize Size() const { return size_; }
  [[nodiscard]] std::uint8_t* Bytes() const { return bytes_; }

  // Writes the opaque colours of a row to `pixels`, 0xAARRGGBB, Size().Width of them.
  void ConvertRow(std::int32_t row, std::uint32_t* pixels) const;

 private:
  FrameSize size_;
  std::uint8_t* bytes_;
};

}  // namespace korvel
