// The frame being decoded: three planes of samples, a whole number of macroblocks in size, so that
// blocks always fit; and the planes that callers get, of the frame's own size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "menuapi/inverse_dct.h"
#include "menuapi/picture.h"

namespace menuapi {

// The position of a block's first sample, and the distance between its lines.
struct BlockPlace {
  std::uint8_t* first = nullptr;
  std::ptrdiff_t step = 0;
};

void Put(const Samples& samples, BlockPlace place);

// A plane, or every second line of one.
struct PlaneLines {
  std::uint8_t* first = nullptr;
  std::ptrdiff_t step = 0;

  [[nodiscard]] std::uint8_t* At(int x, int y) const { return first + y * step + x; }
};

class Plane {
 public:
  Plane(int width, int height, std::uint8_t level);

  // The lines of a picture in the frame. The plane owns them.
  [[nodiscard]] PlaneLines Lines(PictureStructure structure);
  // Copies each line of the field over its neighbour of the other field.
  void DoubleLines(PictureStructure field);
  // Copies as much of the upper left corner as fits in the target at this width.
  void CopyTo(int width, std::span<std::uint8_t> target) const;

 private:
  std::size_t width_;
  std::vector<std::uint8_t> samples_;
};

enum Component { kLuma, kChromaBlue, kChromaRed, kComponents };

class Frame {
 public:
  // Black, and large enough for all pictures of the sequence.
  explicit Frame(const Sequence& sequence);

  [[nodiscard]] PlaneLines Lines(Component component, PictureStructure structure) {
    return planes_[component].Lines(structure);
  }
  void DoubleLines(PictureStructure field);
  // Copies the frame without the parts of macroblocks beyond its size: luma, blue and red chroma.
  void CopyTo(FrameSize size, std::span<std::uint8_t> planes) const;

 private:
  std::array<Plane, kComponents> planes_;
};

// The bytes of a frame in three planes. Chroma has half the width and height, rounded down.
[[nodiscard]] std::size_t LumaBytes(FrameSize size);
[[nodiscard]] std::size_t ChromaBytes(FrameSize size);
[[nodiscard]] std::size_t PlanesBytes(FrameSize size);
// Makes planes of that size black.
void FillBlack(FrameSize size, std::span<std::uint8_t> planes);

}  // namespace menuapi
