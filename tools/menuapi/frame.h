// The frame being decoded: three planes of samples, padded to whole macroblocks so that blocks
// always fit. Callers get copies cropped to the frame's real size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "menuapi/inverse_dct.h"
#include "menuapi/picture.h"

namespace menuapi {

// The lines of a plane, of one of its fields, or of a block in it. Borrowed from the plane.
struct SampleLines {
  std::uint8_t* first = nullptr;
  std::ptrdiff_t step = 0;  // between the starts of two lines, in samples

  [[nodiscard]] std::uint8_t* At(int x, int y) const { return first + y * step + x; }
};

void Put(const Samples& samples, SampleLines target);

class Plane {
 public:
  Plane(int width, int height, std::uint8_t level);

  // The lines that a picture of this structure has.
  [[nodiscard]] SampleLines Lines(PictureStructure structure);
  // Copies each line of `field` over the neighbouring line of the other field.
  void DoubleLines(PictureStructure field);
  // Fills `target` with rows of `width` samples from the plane's upper left corner.
  void CopyTo(int width, std::span<std::uint8_t> target) const;

 private:
  std::size_t width_;
  std::vector<std::uint8_t> samples_;
};

enum Component { kLuma, kChromaBlue, kChromaRed, kComponents };

class Frame {
 public:
  // Creates a black frame, large enough for every picture of the sequence.
  explicit Frame(const Sequence& sequence);

  [[nodiscard]] SampleLines Lines(Component component, PictureStructure structure) {
    return planes_[component].Lines(structure);
  }
  void DoubleLines(PictureStructure field);
  // Copies the frame, cropped to `size`: luma, then blue chroma, then red chroma.
  void CopyTo(FrameSize size, std::span<std::uint8_t> planes) const;

 private:
  std::array<Plane, kComponents> planes_;
};

// The sizes of a luma plane, of one chroma plane, and of all three planes. Chroma has half the
// width and height, rounded down.
[[nodiscard]] std::size_t LumaBytes(FrameSize size);
[[nodiscard]] std::size_t ChromaBytes(FrameSize size);
[[nodiscard]] std::size_t PlanesBytes(FrameSize size);
// Makes planes of that size black.
void FillBlack(FrameSize size, std::span<std::uint8_t> planes);

}  // namespace menuapi
